#include "input/fixture_reader.h"

#include <cstring>

#include "common/code_page.h"
#include "input/channel_lines.h"
#include "input/file_bytes.h"

namespace input {

namespace {

// The lines of the file, one at a time, so that no list of them is kept: a file of many short
// lines costs no more than its bytes. CR LF ends a line; LF alone is taken as well, and the last
// line needs no end. A CR in front of another CR stays in the line. Every code page the file may
// be in writes CR, LF and the ASCII characters as the bytes of ASCII, and no other character
// takes one of those bytes: a line's text is the text of its bytes, and a word of ASCII stands
// in a line exactly where its bytes stand.
class LineCursor {
  public:
    explicit LineCursor(QByteArrayView bytes) : bytes_(bytes) { take(0); }

    bool atEnd() const { return start_ >= bytes_.size(); }
    QByteArrayView bytes() const { return bytes_.sliced(start_, length_); }
    // The whole file reads as text: so does each line of it.
    QString text() const { return FromFileBytes(bytes()).value_or(QString()); }
    int number() const { return number_; }  // counted from 1
    void next() {
        ++number_;
        take(next_);
    }

  private:
    void take(qsizetype from) {
        start_ = from;
        const void* found = std::memchr(bytes_.data() + from, '\n', bytes_.size() - from);
        qsizetype end = found ? static_cast<const char*>(found) - bytes_.data() : bytes_.size();
        next_ = found ? end + 1 : end;
        if (end > from && end < bytes_.size() && bytes_[end - 1] == '\r') --end;
        length_ = std::max<qsizetype>(0, end - from);
    }

    QByteArrayView bytes_;
    qsizetype start_ = 0, length_ = 0, next_ = 0;
    int number_ = 1;
};

// The number of the line that holds byte `at`, from 1.
int LineOfByte(const QByteArray& bytes, qsizetype at) {
    return static_cast<int>(QByteArrayView(bytes).first(at).count('\n')) + 1;
}

bool IsComment(QByteArrayView line) {
    return line.isEmpty() || line.startsWith(';');
}

bool IsWholeNumber(QStringView text) {
    if (text.isEmpty() || text.size() > 5) return false;
    for (const QChar c : text)
        if (c < u'0' || c > u'9') return false;
    return true;
}

class Reader {
  public:
    explicit Reader(QByteArrayView bytes) : lines_(bytes) {}

    ReadOutcome read() {
        common::Fixture file;
        const bool ok = readDevice(file) && readName(file) && readHead(file) &&
                        readChannels(file) && readPatchText(file);
        if (!ok) return {std::nullopt, error_};
        return {std::move(file), QString()};
    }

  private:
    bool fail(const QString& reason) {
        error_ = QStringLiteral("line %1: %2").arg(last()).arg(reason);
        return false;
    }
    // The line the cursor stands on, or the file's last line behind the end.
    int last() const { return lines_.atEnd() ? std::max(1, lines_.number() - 1) : lines_.number(); }
    QString line() const { return lines_.text(); }
    QByteArrayView bytes() const { return lines_.bytes(); }

    // Comment lines and empty lines stand between the sections.
    void skipComments() {
        while (!lines_.atEnd() && IsComment(bytes())) lines_.next();
    }

    bool readDevice(common::Fixture& file) {
        skipComments();
        const QString l = line();
        if (lines_.atEnd() || !(l.startsWith(u"DEVICE ") || l == u"DEVICE"))
            return fail(QStringLiteral("DEVICE expected"));
        // The box holds 11 characters: a longer name is cut as the box cuts it.
        if (l.size() > 7) file.nameOnDesk = l.sliced(7).left(common::kNameOnDeskLength);
        lines_.next();
        return true;
    }

    // NAME "{manufacturer}" "{model}": the quotes inside are not escaped, so the split is
    // chosen where both texts fit their boxes of 30 characters.
    bool readName(common::Fixture& file) {
        skipComments();
        const QLatin1String head("NAME \"");
        const QString l = line();
        if (lines_.atEnd() || !l.startsWith(head)) return fail(QStringLiteral("NAME expected"));
        if (l.size() < head.size() + 4 || !l.endsWith(u'"'))
            return fail(QStringLiteral("NAME needs \"manufacturer\" \"model\""));
        const QStringView inner = QStringView(l).sliced(head.size()).chopped(1);
        const QLatin1String between("\" \"");
        qsizetype split = -1;
        for (qsizetype at = inner.indexOf(between); at >= 0; at = inner.indexOf(between, at + 1)) {
            if (split < 0) split = at;
            if (at <= common::kNameLength &&
                inner.size() - at - between.size() <= common::kNameLength) {
                split = at;
                break;
            }
        }
        if (split < 0) return fail(QStringLiteral("NAME needs \"manufacturer\" \"model\""));
        file.manufacturer = inner.first(split).left(common::kNameLength).toString();
        file.model = inner.sliced(split + between.size()).left(common::kNameLength).toString();
        lines_.next();
        return true;
    }

    // From NAME to DMX only the lines the wizard writes there may stand: comments, TYPE with
    // the channel count, MIRROR with the kind and degrees (which must come), the patching
    // block from DEVICEADDRESS to DAEND, and the three limits.
    bool readHead(common::Fixture& file) {
        bool mirror = false;
        bool inAddress = false;
        for (; !lines_.atEnd() && bytes() != "DMX"; lines_.next()) {
            const QString l = line();
            if (inAddress) {
                if (l == u"DAEND")
                    inAddress = false;
                else if (!l.startsWith(u'"'))
                    return fail(QStringLiteral("DAEND expected"));
            } else if (l == u"DEVICEADDRESS") {
                inAddress = true;
            } else if (l.startsWith(u"TYPE ")) {
                if (!readType(l)) return false;
            } else if (l.startsWith(u"MIRROR ")) {
                if (mirror) return fail(QStringLiteral("a second MIRROR"));
                if (!readMirror(l, file)) return false;
                mirror = true;
            } else if (!IsComment(bytes()) && !IsLimit(l)) {
                return fail(mirror ? QStringLiteral("DMX expected")
                                   : QStringLiteral("MIRROR expected"));
            }
        }
        if (inAddress) return fail(QStringLiteral("DAEND expected"));
        if (!mirror) return fail(QStringLiteral("MIRROR expected"));
        if (lines_.atEnd()) return fail(QStringLiteral("DMX expected"));
        return true;
    }

    static bool IsLimit(QStringView l) {
        for (const char* name : {"MINDMX=", "MAXDMX=", "DIVBY="}) {
            const QLatin1String head(name);
            if (!l.startsWith(head)) continue;
            const QStringView value = l.sliced(head.size());
            return IsWholeNumber(value.startsWith(u'-') ? value.sliced(1) : value);
        }
        return false;
    }

    // TYPE 1 {channel count} M
    bool readType(QStringView l) {
        if (!l.startsWith(u"TYPE 1 ") || !l.endsWith(u" M"))
            return fail(QStringLiteral("TYPE needs 1, the channel count and M"));
        const QStringView count = l.sliced(7).chopped(2);
        if (!IsWholeNumber(count) || count.toInt() > common::kMaxChannelRows)
            return fail(QStringLiteral("TYPE needs 1, the channel count and M"));
        channelCount_ = count.toInt();
        return true;
    }

    // MIRROR {kind} {pan} {tilt}; the degrees are written as typed.
    bool readMirror(QStringView l, common::Fixture& file) {
        const QStringView rest = l.sliced(7);
        const qsizetype first = rest.indexOf(u' ');
        const qsizetype second = first < 0 ? -1 : rest.indexOf(u' ', first + 1);
        const QStringView kind = first < 0 ? rest : rest.first(first);
        if (second < 0 || (kind != u"0" && kind != u"1" && kind != u"2"))
            return fail(QStringLiteral("MIRROR needs a kind of 0, 1 or 2, pan and tilt"));
        file.pan = rest.sliced(first + 1, second - first - 1).toString();
        file.tilt = rest.sliced(second + 1).toString();
        using common::FixtureType;
        // Kind 0 with no degrees is what the other kind writes; any other kind 0 is a
        // fixture with no type chosen and the degrees typed by hand.
        if (kind == u"1")
            file.type = FixtureType::kMirror;
        else if (kind == u"2")
            file.type = FixtureType::kMovingHead;
        else if (file.pan == u"0" && file.tilt == u"0")
            file.type = FixtureType::kOther;
        return true;
    }

    bool readChannels(common::Fixture& file) {
        ChannelRows rows;
        for (lines_.next(); !lines_.atEnd() && bytes() != "END"; lines_.next()) {
            const QString error = rows.add(bytes(), lines_.number());
            if (!error.isEmpty()) {
                error_ = error;
                return false;
            }
        }
        if (lines_.atEnd()) return fail(QStringLiteral("the DMX section has no END"));
        if (const QString error = rows.finish(); !error.isEmpty()) {
            error_ = error;
            return false;
        }
        const int highest = rows.highestOffset();
        file.channels = rows.takeRows();
        // A row whose dmx2 was left empty writes no line, yet its offset counts: the count
        // of the file brings it back, as one such row behind the others.
        if (channelCount_ > highest) {
            const int row = file.channels.rows();
            file.channels.appendRow();
            file.channels.setCell(row, common::kMark, u"#");
            file.channels.setCell(row, common::kDmx1, QString::number(channelCount_));
        }
        lines_.next();
        return true;
    }

    // The patch text ends at the END that ATTR, obsolete and END follow, the last such END in
    // the file, so that a line END typed into the text stays part of it; behind the closing
    // END only comments may stand.
    bool readPatchText(common::Fixture& file) {
        skipComments();
        if (lines_.atEnd() || bytes() != "TEXT") return fail(QStringLiteral("TEXT expected"));
        lines_.next();
        const LineCursor first = lines_;
        int end = -1;      // the number of the line END that closes the text
        int lastEnd = -1;  // the last line END of all, should no closing block follow
        int junk = -1;     // the first line behind the closing block that is no comment
        for (LineCursor at = first; !at.atEnd(); at.next()) {
            if (junk < 0 && end > 0 && at.number() > end + 3 && !IsComment(at.bytes()))
                junk = at.number();
            if (at.bytes() != "END") continue;
            lastEnd = at.number();
            if (ClosingBlockAt(at)) {
                end = at.number();
                junk = -1;
            }
        }
        if (end < 0) end = lastEnd;
        if (end < 0) return fail(QStringLiteral("the TEXT section has no END"));
        if (junk > 0) {
            error_ =
                QStringLiteral("line %1: only comments may follow the END of the file").arg(junk);
            return false;
        }
        QByteArray text;
        for (LineCursor at = first; at.number() < end; at.next()) {
            if (at.number() > first.number()) text += "\r\n";
            text += at.bytes();
        }
        if (!text.isEmpty()) file.patchText = FromFileBytes(text).value_or(QString());
        return true;
    }

    // Whether ATTR, obsolete and END follow the line END at `at`.
    static bool ClosingBlockAt(LineCursor at) {
        for (const char* expected : {"ATTR", "obsolete", "END"}) {
            at.next();
            if (at.atEnd() || at.bytes() != expected) return false;
        }
        return true;
    }

    LineCursor lines_;
    int channelCount_ = 0;
    QString error_;
};

}  // namespace

ReadOutcome ReadFixtureBytes(const QByteArray& bytes) {
    if (bytes.isEmpty()) return {std::nullopt, QStringLiteral("the file is empty")};
    if (const qsizetype nul = bytes.indexOf('\0'); nul >= 0)
        return {std::nullopt, QStringLiteral("line %1: a NUL byte").arg(LineOfByte(bytes, nul))};
    if (!ReadsAsText(bytes)) {
        // Only on the way out: the line that holds the byte the code page lacks.
        qsizetype start = 0;
        for (int number = 1;; ++number) {
            const qsizetype end = bytes.indexOf('\n', start);
            const QByteArrayView line =
                QByteArrayView(bytes).sliced(start, (end < 0 ? bytes.size() : end) - start);
            if (!FromFileBytes(line) || end < 0)
                return {std::nullopt, QStringLiteral("line %1: unreadable bytes").arg(number)};
            start = end + 1;
        }
    }
    return Reader(bytes).read();
}

ReadOutcome ReadFixtureFile(const QString& path) {
    const FileBytes file = ReadRegularFile(path);
    if (!file.bytes) return {std::nullopt, file.error};
    return ReadFixtureBytes(*file.bytes);
}

}  // namespace input
