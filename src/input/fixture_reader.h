#pragma once
// Reading a written fixture definition file back, whole, into a plain value. The file is
// opened for reading only and never changed. A file that is no fixture definition is
// refused whole, with a reason that names the first line that could not be read.

#include <QByteArray>
#include <QString>
#include <optional>

#include "common/fixture.h"

namespace input {

// What was read: the fixture as the pages hold it, each name cut to its box. The comment
// lines and the line with the path, date and time are not kept: the wizard composes them
// anew.
struct ReadOutcome {
    std::optional<common::Fixture> fixture;
    QString error;  // why the file was refused, as "line 12: ..."
};

ReadOutcome ReadFixtureBytes(const QByteArray& bytes);
ReadOutcome ReadFixtureFile(const QString& path);

}  // namespace input
