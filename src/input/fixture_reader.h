#pragma once
// Reading a written fixture definition file back, whole, into a plain value. The file is
// opened for reading only and never changed. A file that is no fixture definition is
// refused whole, with a reason that names the first line that could not be read.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace input {

// What the pages of the wizard hold of one fixture. The comment lines and the line with
// the path, date and time are not kept: the wizard composes them anew.
struct FixtureFile {
    QString nameOnDesk;
    QString manufacturer;
    QString model;
    int mirrorKind = 0;  // 1 mirror, 2 moving head, 0 any other kind or none chosen
    QString pan;
    QString tilt;
    QList<QStringList> channelRows;  // the cells of each row, column 0 ("#") to 14
    QString patchText;               // lines joined by CR LF, as the text box holds them
};

struct ReadOutcome {
    std::optional<FixtureFile> fixture;
    QString error;  // why the file was refused, as "line 12: ..."
};

ReadOutcome ReadFixtureBytes(const QByteArray& bytes);
ReadOutcome ReadFixtureFile(const QString& path);

}  // namespace input
