#include "output/fixture_file.h"

#include <QDateTime>
#include <QIODevice>
#include <algorithm>
#include <cstring>

#include "common/number.h"
#include "gui/system.h"
#include "output/channel_bytes.h"
#include "output/channel_rows.h"
#include "output/code_page.h"
#include "output/comment_lines.h"
#include "output/write_back.h"
#include "wizard/main_form.h"

namespace {

constexpr int kMaxRows = 32767;  // the row counter is 16 bits wide
constexpr double kDmxUniverse = 512;

// Writes lines in order, gathered into writes of a quarter megabyte or so, and remembers the
// first failure; after it, writes nothing more. The gathering buffer keeps its full size;
// `used_` tells how much of it holds bytes for the file.
class LineWriter {
  public:
    LineWriter(QIODevice& out, const gui::GridModel& channels)
        : out_(out), channels_(channels), pending_(kChunk + kChunk / 4, Qt::Uninitialized) {}

    void line(const QString& text) {
        if (!outcome_.ok) return;
        const QByteArray bytes = ToFileBytes(text);
        const qsizetype size = bytes.size() + 2;
        char* const at = output::RoomAt(pending_, used_, size);
        std::memcpy(at, bytes.constData(), static_cast<std::size_t>(bytes.size()));
        std::memcpy(at + bytes.size(), "\r\n", 2);
        used_ += size;
        if (used_ >= kChunk) flush();
    }
    void line(const char* ascii) { line(QString::fromLatin1(ascii)); }
    // The lines of one channel row, encoded straight into the gathered bytes.
    void channelRow(int row) {
        if (!outcome_.ok) return;
        used_ = channels_.Write(row, pending_, used_);
        if (used_ >= kChunk) flush();
    }
    // Hands the gathered bytes to the device.
    void flush() {
        send(pending_.constData(), used_);
        used_ = 0;
    }
    bool ok() const { return outcome_.ok; }
    WriteOutcome finish() {
        flush();
        return outcome_;
    }

  private:
    // A device may take part of the bytes and tell the reason only when asked for the rest,
    // so it is asked until it takes all or refuses.
    void send(const char* bytes, qsizetype size) {
        const qint64 from = written_;
        qsizetype done = 0;
        while (outcome_.ok && done < size) {
            const qint64 n = out_.write(bytes + done, size - done);
            if (n <= 0) {
                outcome_.ok = false;
                outcome_.error = out_.errorString();
            } else {
                done += n;
                written_ += n;
            }
        }
        StartWriteBack(out_, from, written_ - from);
    }

    static constexpr qsizetype kChunk = 256 * 1024;
    QIODevice& out_;
    output::ChannelRowsEncoder channels_;
    QByteArray pending_;
    qsizetype used_ = 0;
    qint64 written_ = 0;
    WriteOutcome outcome_;
};

QString SavedLine(const QString& path) {
    const QDateTime now = gui::Now();
    return QStringLiteral("; file ") + path + QStringLiteral(" saved ") +
           now.toString(QStringLiteral("MM-dd-yyyy")) + now.toString(QStringLiteral("HH:mm:ss"));
}

QString MirrorLine(const MainForm& f) {
    const char kind = f.mirror.Value() ? '1' : f.movinghead.Value() ? '2' : '0';
    return QStringLiteral("MIRROR ") + QLatin1Char(kind) + u' ' + f.degreespan.Text() + u' ' +
           f.degreestilt.Text();
}

QString MaxDmxLine(const MainForm& f) {
    const double channels = common::LeadingNumber(f.dmxchannels.Caption());
    return QStringLiteral("MAXDMX=") + common::NumberText(kDmxUniverse - channels);
}

// One line per 8-bit row, two per 16-bit row; a row without a number in dmx2 writes none.
void WriteChannelLines(const MainForm& f, LineWriter& w) {
    const int rows = std::min(f.table.Rows(), kMaxRows + 1);
    for (int r = 1; r < rows && w.ok(); ++r) w.channelRow(r);
}

}  // namespace

WriteOutcome WriteFixtureFile(const MainForm& f, const QString& path, QIODevice& out) {
    LineWriter w(out, *f.table.model());
    for (const QString& comment : CommentLines(f.morecomment.Text())) w.line(comment);
    w.line("; ");
    w.line("; ");
    w.line(SavedLine(path));
    w.line("; ");
    w.line("; ");
    w.line(QStringLiteral("DEVICE ") + f.nameondesk.Text());
    w.line(QStringLiteral("NAME \"") + f.manifacturer.Text() + QStringLiteral("\" \"") +
           f.model.Text() + u'"');
    w.line("; ");
    w.line(QStringLiteral("TYPE 1 ") + f.dmxchannels.Caption() + QStringLiteral(" M"));
    w.line("; ");
    w.line(MirrorLine(f));
    w.line("; ");
    w.line("DEVICEADDRESS");
    w.line("\"Handle %2d\"h");
    w.line("\"Fixture %11s\"n");
    w.line("\"DMX %03d\"d");
    w.line("\"\"");
    w.line("\"\"");
    w.line(QStringLiteral("\"Set to ") + f.dmxchannels.Caption() + QStringLiteral(" DMX, 8bit\""));
    w.line("\"\"");
    w.line("\"\"");
    w.line("DAEND");
    w.line("; ");
    w.line("MINDMX=1");
    w.line(MaxDmxLine(f));
    w.line("DIVBY=1");
    w.line("; ");
    w.line("; ");
    w.line("DMX");
    WriteChannelLines(f, w);
    w.line("END");
    w.line("; ");
    w.line("; ");
    w.line("TEXT");
    w.line(f.patchdisplay.Text());
    w.line("END");
    w.line("ATTR");
    w.line("obsolete");
    w.line("END");
    w.line("; ");
    w.line("; ");
    return w.finish();
}
