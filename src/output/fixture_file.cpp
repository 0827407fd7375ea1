#include "output/fixture_file.h"

#include <QDateTime>
#include <QIODevice>
#include <algorithm>

#include "common/code_page.h"
#include "common/number.h"
#include "gui/system.h"
#include "output/channel_columns.h"
#include "output/channel_line.h"
#include "output/comment_lines.h"
#include "wizard/main_form.h"

namespace {

constexpr int kMaxRows = 32767;  // the row counter is 16 bits wide
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
void WriteChannelLines(const MainForm& f, Lines& w) {
    const int rows = std::min(f.table.Rows(), kMaxRows + 1);
    for (int r = 1; r < rows; ++r) {
        const auto row = static_cast<std::int16_t>(r);
        const std::optional<QString> first = BuildChannelLine(f, row, false);
        if (!first) continue;
        w.line(*first);
        // A row with a number above 0 in dmx2 is a 16-bit channel: its low byte line follows.
        if (*common::WholeNumber(f.table.TextMatrix(r, output::kDmx2)) > 0)
            w.line(*BuildChannelLine(f, row, true));
    }
}

// Hands the bytes to the device. A device may take part of them and tell the reason only when
// asked for the rest, so it is asked until it has taken all or refuses.
WriteOutcome Send(const QByteArray& bytes, QIODevice& out) {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const qint64 n = out.write(bytes.constData() + done, bytes.size() - done);
        if (n <= 0) return {false, out.errorString()};
        done += n;
    }
    return {};
}

}  // namespace

WriteOutcome WriteFixtureFile(const MainForm& f, const QString& path, QIODevice& out) {
    Lines w;
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
    return Send(w.bytes(), out);
}
