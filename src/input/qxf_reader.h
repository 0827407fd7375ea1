#pragma once
// Reading a QLC+ fixture definition (.qxf) whole into a plain value: the fixture, its
// channels and its modes, as the file writes them. Nothing is mapped or filled here.

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace input {

struct QxfChannel {
    QString name;       // exactly as written, blanks and line breaks included
    QString preset;     // the channel's Preset attribute, empty when it has none
    QString group;      // the text of its Group child, empty when it has none
    bool fine = false;  // the low byte of a 16-bit value: Group Byte="1" or a preset "...Fine"
    QString colour;     // the Colour child of an old intensity channel
};

struct QxfMode {
    QString name;
    QStringList channels;  // the channel names in the mode's order
    QList<int> numbers;    // for each of them its Number, the offset from 0; -1 for none
    QList<int> heads;      // for each of them the head it belongs to, from 0; -1 for none
    QString focusType;     // the Focus Type of the mode's own Physical, empty when none
};

struct QxfFixture {
    QString manufacturer;
    QString model;
    QString type;                // "Moving Head", "Scanner", "Color Changer" ...
    QString focusType;           // the Focus Type of the fixture's Physical
    QList<QxfChannel> channels;  // each name once: the first definition wins
    QList<QxfMode> modes;

    // The channel of that exact name, nothing when the fixture defines none.
    const QxfChannel* channel(const QString& name) const;

    // Of the modes with as many channels as mode `mode`: how many there are, and how many of
    // them come before it, as the reader counted them.
    struct SameCount {
        int modes = 1;
        int before = 0;
    };
    SameCount sameCount(int mode) const { return sameCount_.value(mode); }

  private:
    friend class QxfParser;
    QHash<QString, qsizetype> byName_;
    QList<SameCount> sameCount_;
};

struct QxfOutcome {
    std::optional<QxfFixture> fixture;
    QString error;  // why the file was refused; "line 12: ..." for a fault in the XML
};

// True when the bytes are XML rather than the lines of a written fixture file, in whatever
// encoding the XML reader takes.
bool LooksLikeXml(const QByteArray& bytes);

QxfOutcome ReadQxfBytes(const QByteArray& bytes);

}  // namespace input
