#include "output/fixture_file.h"

#include <QDateTime>
#include <QDir>
#include <QIODevice>
#include <algorithm>

#include "common/code_page.h"
#include "common/number.h"
#include "output/channel_line.h"
#include "output/comment_lines.h"

namespace {

using common::Fixture;
constexpr double kDmxUniverse = 512;

// The lines of the file, each in the file's code page and followed by CR LF.
class Lines {
  public:
    void line(const QString& text) {
        bytes_ += ToFileBytes(text);
        bytes_ += "\r\n";
    }
    void line(const char* ascii) { line(QString::fromLatin1(ascii)); }
    const QByteArray& bytes() const { return bytes_; }

  private:
    QByteArray bytes_;
};

// The path as the system writes it, whoever named it: Qt's own dialogs give "/" on Windows too.
QString SavedLine(const QString& path, const QDateTime& saved) {
    return QStringLiteral("; file ") + QDir::toNativeSeparators(path) + QStringLiteral(" saved ") +
           saved.toString(QStringLiteral("MM-dd-yyyy")) +
           saved.toString(QStringLiteral("HH:mm:ss"));
}

QString MirrorLine(const Fixture& fixture) {
    using common::FixtureType;
    const char kind = fixture.type == FixtureType::kMirror       ? '1'
                      : fixture.type == FixtureType::kMovingHead ? '2'
                                                                 : '0';
    return QStringLiteral("MIRROR ") + QLatin1Char(kind) + u' ' + fixture.pan + u' ' + fixture.tilt;
}

// One line per 8-bit row, two per 16-bit row; a row without a number in dmx2 writes none.
void WriteChannelLines(const common::TextTable& rows, Lines& w) {
    const int count = std::min(rows.rows(), common::kMaxChannelRows);
    for (int row = 0; row < count; ++row) {
        const std::optional<QString> first = BuildChannelLine(rows, row, false);
        if (!first) continue;
        w.line(*first);
        // A row with a number above 0 in dmx2 is a 16-bit channel: its low byte line follows.
        if (*common::WholeNumber(rows.cell(row, common::kDmx2)) > 0)
            w.line(*BuildChannelLine(rows, row, true));
    }
}

}  // namespace

WriteOutcome SendBytes(const QByteArray& bytes, QIODevice& out) {
    // A device may take part of the bytes and tell the reason only when asked for the rest, so
    // it is asked until it has taken all or refuses.
    qsizetype done = 0;
    while (done < bytes.size()) {
        const qint64 n = out.write(bytes.constData() + done, bytes.size() - done);
        if (n <= 0) return {false, out.errorString()};
        done += n;
    }
    return {};
}

QByteArray FixtureFileBytes(const Fixture& fixture, const QString& path, const QDateTime& saved) {
    const QString& count = fixture.channelCount;
    Lines w;
    for (const QString& comment : CommentLines(fixture.comment)) w.line(comment);
    w.line("; ");
    w.line("; ");
    w.line(SavedLine(path, saved));
    w.line("; ");
    w.line("; ");
    w.line(QStringLiteral("DEVICE ") + fixture.nameOnDesk);
    w.line(QStringLiteral("NAME \"") + fixture.manufacturer + QStringLiteral("\" \"") +
           fixture.model + u'"');
    w.line("; ");
    w.line(QStringLiteral("TYPE 1 ") + count + QStringLiteral(" M"));
    w.line("; ");
    w.line(MirrorLine(fixture));
    w.line("; ");
    w.line("DEVICEADDRESS");
    w.line("\"Handle %2d\"h");
    w.line("\"Fixture %11s\"n");
    w.line("\"DMX %03d\"d");
    w.line("\"\"");
    w.line("\"\"");
    w.line(QStringLiteral("\"Set to ") + count + QStringLiteral(" DMX, 8bit\""));
    w.line("\"\"");
    w.line("\"\"");
    w.line("DAEND");
    w.line("; ");
    w.line("MINDMX=1");
    w.line(QStringLiteral("MAXDMX=") +
           common::NumberText(kDmxUniverse - common::LeadingNumber(count)));
    w.line("DIVBY=1");
    w.line("; ");
    w.line("; ");
    w.line("DMX");
    WriteChannelLines(fixture.channels, w);
    w.line("END");
    w.line("; ");
    w.line("; ");
    w.line("TEXT");
    w.line(fixture.patchText);
    w.line("END");
    w.line("ATTR");
    w.line("obsolete");
    w.line("END");
    w.line("; ");
    w.line("; ");
    return w.bytes();
}

WriteOutcome WriteFixtureFile(const Fixture& fixture, const QString& path, const QDateTime& saved,
                              QIODevice& out) {
    return SendBytes(FixtureFileBytes(fixture, path, saved), out);
}
