#include "input/fixture_reader.h"

#include "common/code_page.h"
#include "input/channel_lines.h"
#include "input/file_bytes.h"

namespace input {

namespace {

// The lines of the file without their ends. CR LF ends a line; LF alone is taken as well,
// and the last line needs no end. A CR in front of another CR stays in the line.
struct SplitOutcome {
    QStringList lines;
    QString error;
};

SplitOutcome SplitLines(const QByteArray& bytes) {
    SplitOutcome out;
    QList<QByteArray> raw = bytes.split('\n');
    if (raw.last().isEmpty()) raw.removeLast();
    for (int i = 0; i < raw.size(); ++i) {
        QByteArray line = raw[i];
        if (line.endsWith('\r')) line.chop(1);
        const std::optional<QString> text = FromFileBytes(line);
        if (!text) {
            out.error = QStringLiteral("line %1: unreadable bytes").arg(i + 1);
            return out;
        }
        out.lines.append(*text);
    }
    return out;
}

class Reader {
  public:
    explicit Reader(QStringList lines) : lines_(std::move(lines)) {}

    ReadOutcome read() {
        FixtureFile file;
        const bool ok = readDevice(file) && readName(file) && readMirror(file) &&
                        readChannels(file) && readPatchText(file);
        if (!ok) return {std::nullopt, error_};
        return {std::move(file), QString()};
    }

  private:
    bool fail(int index, const QString& reason) {
        error_ = QStringLiteral("line %1: %2").arg(index + 1).arg(reason);
        return false;
    }
    bool atEnd() const { return at_ >= lines_.size(); }
    const QString& line() const { return lines_[at_]; }

    // Comment lines and empty lines stand between the head lines.
    void skipComments() {
        while (!atEnd() && (line().isEmpty() || line().startsWith(u';'))) ++at_;
    }
    // Moves to the next line that `keyword` starts; the lines in between are not read. A
    // section met on the way means the line is missing.
    bool seek(const QString& keyword, bool whole) {
        for (; !atEnd(); ++at_) {
            if (whole ? line() == keyword : line().startsWith(keyword)) return true;
            if (line() == u"DMX" || line() == u"TEXT") break;
        }
        return fail(at_, QStringLiteral("%1 expected").arg(keyword.trimmed()));
    }

    bool readDevice(FixtureFile& file) {
        skipComments();
        if (atEnd() || !(line().startsWith(u"DEVICE ") || line() == u"DEVICE"))
            return fail(at_, QStringLiteral("DEVICE expected"));
        file.nameOnDesk = line().mid(7);
        ++at_;
        return true;
    }

    // NAME "{manufacturer}" "{model}": the quotes inside are not escaped, so the split is
    // chosen where both texts fit their boxes of 30 characters.
    bool readName(FixtureFile& file) {
        skipComments();
        const QString head = QStringLiteral("NAME \"");
        if (atEnd() || !line().startsWith(head)) return fail(at_, QStringLiteral("NAME expected"));
        if (line().size() < head.size() + 4 || !line().endsWith(u'"'))
            return fail(at_, QStringLiteral("NAME needs \"manufacturer\" \"model\""));
        const QString inner = line().mid(head.size()).chopped(1);
        const QString between = QStringLiteral("\" \"");
        qsizetype split = -1;
        for (qsizetype at = inner.indexOf(between); at >= 0; at = inner.indexOf(between, at + 1)) {
            if (split < 0) split = at;
            if (at <= kNameLength && inner.size() - at - between.size() <= kNameLength) {
                split = at;
                break;
            }
        }
        if (split < 0) return fail(at_, QStringLiteral("NAME needs \"manufacturer\" \"model\""));
        file.manufacturer = inner.left(split);
        file.model = inner.mid(split + between.size());
        ++at_;
        return true;
    }

    // MIRROR {kind} {pan} {tilt}
    bool readMirror(FixtureFile& file) {
        if (!seek(QStringLiteral("MIRROR "), false)) return false;
        const QString rest = line().mid(7);
        const qsizetype first = rest.indexOf(u' ');
        const qsizetype second = first < 0 ? -1 : rest.indexOf(u' ', first + 1);
        const QString kind = rest.left(first);
        if (second < 0 || (kind != u"0" && kind != u"1" && kind != u"2"))
            return fail(at_, QStringLiteral("MIRROR needs a kind of 0, 1 or 2, pan and tilt"));
        file.mirrorKind = kind.toInt();
        file.pan = rest.mid(first + 1, second - first - 1);
        file.tilt = rest.mid(second + 1);
        ++at_;
        return true;
    }

    bool readChannels(FixtureFile& file) {
        if (!seek(QStringLiteral("DMX"), true)) return false;
        ChannelRows rows;
        for (++at_; !atEnd() && line() != u"END"; ++at_) {
            const QString error = rows.add(line(), at_ + 1);
            if (!error.isEmpty()) {
                error_ = error;
                return false;
            }
        }
        if (atEnd()) return fail(at_, QStringLiteral("the DMX section has no END"));
        if (const QString error = rows.finish(); !error.isEmpty()) {
            error_ = error;
            return false;
        }
        file.channelRows = rows.rows();
        ++at_;
        return true;
    }

    // The patch text ends at the END that ATTR, obsolete and END follow at the end of the
    // file, so that a line END typed into the text stays part of it.
    bool readPatchText(FixtureFile& file) {
        while (!atEnd() && line() != u"TEXT") ++at_;
        if (atEnd()) return fail(at_, QStringLiteral("TEXT expected"));
        const int first = at_ + 1;
        int end = -1;
        for (int i = lines_.size() - 1; i >= first && end < 0; --i) {
            if (lines_[i] == u"END" && lines_.mid(i + 1, 3) == kClosing) end = i;
        }
        for (int i = lines_.size() - 1; i >= first && end < 0; --i)
            if (lines_[i] == u"END") end = i;
        if (end < 0) return fail(lines_.size(), QStringLiteral("the TEXT section has no END"));
        file.patchText = lines_.mid(first, end - first).join(QStringLiteral("\r\n"));
        return true;
    }

    static constexpr qsizetype kNameLength = 30;
    const QStringList kClosing = {QStringLiteral("ATTR"), QStringLiteral("obsolete"),
                                  QStringLiteral("END")};
    QStringList lines_;
    int at_ = 0;
    QString error_;
};

}  // namespace

ReadOutcome ReadFixtureBytes(const QByteArray& bytes) {
    SplitOutcome split = SplitLines(bytes);
    if (!split.error.isEmpty()) return {std::nullopt, split.error};
    return Reader(std::move(split.lines)).read();
}

ReadOutcome ReadFixtureFile(const QString& path) {
    const FileBytes file = ReadRegularFile(path);
    if (!file.bytes) return {std::nullopt, file.error};
    return ReadFixtureBytes(*file.bytes);
}

}  // namespace input
