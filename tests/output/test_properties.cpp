// Properties of the channel line encoder and the comment split over many random cells: the
// byte encoder a full grid is saved with gives what the line texts give through the code
// page, and every line keeps its fixed shape whatever the cells hold.
#include <QBuffer>
#include <QRandomGenerator>
#include <QTest>

#include "common/number.h"
#include "output/channel_line.h"
#include "output/code_page.h"
#include "output/comment_lines.h"
#include "output/fixture_file.h"
#include "output_test.h"

namespace {

const QString kChannelTypes[] = {
    QStringLiteral("HTP (usually dimmer)"),
    QStringLiteral("FADEABLE LTP"),
    QStringLiteral("INDEXED LTP (not fadeable, such as gobo)"),
    QStringLiteral("fadeable ltp"),
    QString(),
};

// What cells are made of: the characters the encoder looks for, number forms at their
// edges, and characters of the code page, beyond it and beyond 16 bits.
const QString kPieces[] = {
    QStringLiteral(" "),
    QStringLiteral("  "),
    QStringLiteral(">"),
    QStringLiteral(";"),
    QStringLiteral("\""),
    QStringLiteral("\r"),
    QStringLiteral("\n"),
    QStringLiteral("\r\n"),
    QStringLiteral("\t"),
    QStringLiteral("-"),
    QStringLiteral("+"),
    QStringLiteral("."),
    QStringLiteral("e"),
    QStringLiteral("0"),
    QStringLiteral("7"),
    QStringLiteral("128"),
    QStringLiteral("007"),
    QStringLiteral("1e3"),
    QStringLiteral("2.5"),
    QStringLiteral("12345678901234567"),
    QStringLiteral("Pan"),
    QStringLiteral("Gobo wheel rotation"),
    QStringLiteral("E>"),
    QStringLiteral("61> B (right)"),
    QStringLiteral("\u00E9"),
    QStringLiteral("\u20AC"),
    QStringLiteral("\u0081"),
    QStringLiteral("\u65E5\u672C"),
    QString::fromUtf8("\xF0\x9F\x98\x80"),
    QString(QChar(0xD83D)),  // a high surrogate without its partner
};

// Whole numbers in the forms a dmx2 cell may hold them.
const QString kWholeNumbers[] = {
    QStringLiteral("0"),
    QStringLiteral("1"),
    QStringLiteral(" 3 "),
    QStringLiteral("-2"),
    QStringLiteral("+7"),
    QStringLiteral("007"),
    QStringLiteral("-0"),
    QStringLiteral("512"),
    QStringLiteral("1e2"),
    QStringLiteral("\t4"),
    QStringLiteral("2.5"),
    QStringLiteral("5."),
    QStringLiteral("99999999999999999999"),
};

QString RandomCell(QRandomGenerator& random) {
    QString cell;
    const int pieces = random.bounded(6);
    for (int i = 0; i < pieces; ++i) cell += kPieces[random.bounded(int(std::size(kPieces)))];
    return cell;
}

// The cells of a row, column 0 to 14. Most rows have a whole number in dmx2 and one of the
// channel types; some have anything there.
QStringList RandomRow(QRandomGenerator& random) {
    QStringList cells;
    for (int column = 0; column < kChannelColumns; ++column) cells.append(RandomCell(random));
    if (random.bounded(8) != 0)
        cells[2] = kWholeNumbers[random.bounded(int(std::size(kWholeNumbers)))];
    if (random.bounded(4) != 0)
        cells[3] = kChannelTypes[random.bounded(int(std::size(kChannelTypes)))];
    if (random.bounded(2) == 0) {  // plain ASCII, as most rows are
        for (QString& cell : cells) {
            for (QChar& c : cell)
                if (c.unicode() >= 0x80) c = u'a';
        }
    }
    return cells;
}

ChannelCells ViewsOf(const QStringList& cells) {
    ChannelCells views;
    for (int column = 0; column < kChannelColumns; ++column) views[column] = cells[column];
    return views;
}

// The file bytes of a row the way of its text: each line through the code page.
QByteArray BytesThroughText(const QStringList& cells) {
    const std::optional<QString> first = ChannelLineOf(cells, false);
    if (!first) return {};
    QByteArray bytes = ToFileBytes(*first) + "\r\n";
    if (*common::WholeNumber(cells[2]) > 0)
        bytes += ToFileBytes(*ChannelLineOf(cells, true)) + "\r\n";
    return bytes;
}

QString Show(const QStringList& cells) {
    QStringList shown;
    for (const QString& cell : cells)
        shown.append(QString::fromLatin1(cell.toUtf8().toPercentEncoding()));
    return shown.join(u'|');
}

// A number as the line prints it: "-" for a negative value, digits, a fraction, an
// exponent ("1e+20"), or "inf".
bool IsNumberText(QStringView text) {
    qsizetype i = text.startsWith(u'-') ? 1 : 0;
    if (text.sliced(i) == QLatin1String("inf")) return true;
    auto digits = [&] {
        const qsizetype from = i;
        while (i < text.size() && text[i].isDigit()) ++i;
        return i > from;
    };
    if (!digits()) return false;
    if (i < text.size() && text[i] == u'.' && !(++i, digits())) return false;
    if (i < text.size() && text[i] == u'e') {
        ++i;
        if (i == text.size() || (text[i] != u'+' && text[i] != u'-')) return false;
        ++i;
        if (!digits()) return false;
    }
    return i == text.size();
}

// "f1 f2 f3 f4 f5 f6 f7 1 "label" n n n  ;comment": an empty field keeps its blank, the
// fields before the label hold neither blank nor ">". Read from the end, as the label and
// the comment may hold anything.
QString ShapeFault(const QString& line, const QStringList& cells) {
    const QString& comment = cells[14];
    if (!line.endsWith(comment)) return QStringLiteral("comment not at the end");
    QString rest = line.chopped(comment.size());
    if (!rest.endsWith(QLatin1String("  ;")))
        return QStringLiteral("no \"  ;\" before the comment");
    rest.chop(3);
    for (int n = 0; n < 3; ++n) {
        const qsizetype blank = rest.lastIndexOf(u' ');
        if (blank < 0 || !IsNumberText(QStringView(rest).sliced(blank + 1)))
            return QStringLiteral("not three numbers before \"  ;\"");
        rest.truncate(blank);
    }
    const QString label = QuoteLabel(cells[7]);
    if (!rest.endsWith(label)) return QStringLiteral("label not before the numbers");
    rest.chop(label.size());
    if (!rest.endsWith(QLatin1String(" 1 "))) return QStringLiteral("no \" 1 \" before the label");
    rest.chop(3);
    if (rest.count(u' ') != 6)
        return QStringLiteral("%1 blanks between the fields").arg(rest.count(u' '));
    if (rest.contains(u'>')) return QStringLiteral("\">\" in a field");
    return {};
}

constexpr int kRandomRows = 20000;

}  // namespace

void TestOutput::rowBytesMatchLineTexts() {
    QRandomGenerator random(7031);
    for (int i = 0; i < kRandomRows; ++i) {
        const QStringList cells = RandomRow(random);
        QByteArray bytes("before");
        const bool written = AppendChannelRowBytes(ViewsOf(cells), bytes);
        const QByteArray expected = BytesThroughText(cells);
        if (written != !expected.isEmpty() || bytes != "before" + expected)
            QFAIL(qPrintable(QStringLiteral("row %1: %2\n got  %3\n want %4")
                                 .arg(i)
                                 .arg(Show(cells), QString::fromLatin1(bytes.toPercentEncoding()),
                                      QString::fromLatin1(expected.toPercentEncoding()))));
    }
}

void TestOutput::channelLineShape() {
    QRandomGenerator random(1187);
    int checked = 0;
    for (int i = 0; i < kRandomRows; ++i) {
        const QStringList cells = RandomRow(random);
        const std::optional<double> dmx2 = common::WholeNumber(cells[2]);
        for (const bool lowByte : {false, true}) {
            const std::optional<QString> line = ChannelLineOf(cells, lowByte);
            QCOMPARE(line.has_value(), dmx2.has_value());
            if (!line) continue;
            const QString fault = ShapeFault(*line, cells);
            if (!fault.isEmpty())
                QFAIL(qPrintable(fault + QStringLiteral(": ") + Show(cells) +
                                 QStringLiteral("\n line ") +
                                 QString::fromLatin1(line->toUtf8().toPercentEncoding())));
            ++checked;
        }
    }
    QVERIFY(checked > kRandomRows);  // most rows have a number in dmx2
}

void TestOutput::quoteLabelShape() {
    QRandomGenerator random(4242);
    for (int i = 0; i < kRandomRows; ++i) {
        const QString text = RandomCell(random) + RandomCell(random);
        const QString quoted = QuoteLabel(text);
        QVERIFY(quoted.size() >= 2 && quoted.startsWith(u'"') && quoted.endsWith(u'"'));
        const QString inner = quoted.mid(1, quoted.size() - 2);
        qsizetype start = 0;
        while (start < text.size() && text[start] == u' ') ++start;
        const QString stripped = text.mid(start);
        // The label's beginning, cut to 12 characters (a surrogate pair is one), never
        // inside a pair.
        QVERIFY2(stripped.left(inner.size()) == inner, qPrintable(Show({text, quoted})));
        const qsizetype characters = inner.toUcs4().size();
        QVERIFY2(characters == std::min<qsizetype>(12, stripped.toUcs4().size()), qPrintable(text));
        if (!inner.isEmpty())
            QVERIFY(!(inner.back().isHighSurrogate() && stripped.size() > inner.size() &&
                      stripped[inner.size()].isLowSurrogate()));
    }
}

void TestOutput::leadingTokenShape() {
    QRandomGenerator random(99);
    for (int i = 0; i < kRandomRows; ++i) {
        const QString text = RandomCell(random);
        const QString token = LeadingToken(text);
        QVERIFY(text.startsWith(token));
        QVERIFY(!token.contains(u' ') && !token.contains(u'>'));
        QVERIFY(token.size() == text.size() || text[token.size()] == u' ' ||
                text[token.size()] == u'>');
    }
}

void TestOutput::commentLinesShape() {
    QRandomGenerator random(5);
    for (int i = 0; i < kRandomRows; ++i) {
        const QString text = RandomCell(random) + RandomCell(random) + RandomCell(random);
        const QStringList lines = CommentLines(text);
        // What the split keeps: everything but the character behind each CR that is not last.
        QString kept;
        int crs = 0;
        bool crLast = false;  // the text ends with a CR that is read, not dropped
        for (qsizetype k = 0; k < text.size(); ++k) {
            kept += text[k];
            if (text[k] == u'\r') {
                ++crs;
                crLast = k + 1 == text.size();
                ++k;
            }
        }
        QCOMPARE(lines.size(), crLast ? crs : crs + 1);
        QString joined;
        for (qsizetype k = 0; k < lines.size(); ++k) {
            const QString& line = lines[k];
            QVERIFY(line.startsWith(QLatin1String("; ")));
            const QString body = line.mid(2);
            // A CR only as the last character of a line, and in every line but the last.
            QVERIFY(!body.chopped(body.endsWith(u'\r') ? 1 : 0).contains(u'\r'));
            if (k + 1 < lines.size()) QVERIFY(body.endsWith(u'\r'));
            joined += body;
        }
        QCOMPARE(joined, kept);
    }
}

// The writer reads the grid itself, a few rows ahead: the DMX section of a whole file is the
// lines of the rows one after another, from the first to the last row.
void TestOutput::fileHoldsEveryRowLine() {
    QRandomGenerator random(31337);
    gui::Grid& table = form().table;
    constexpr int kRows = 300;
    while (table.Rows() - 1 < kRows) table.AddItem(QString::number(table.Rows()));
    QByteArray expected = "\r\nDMX\r\n";
    for (int row = 1; row < table.Rows(); ++row) {
        const QStringList cells = RandomRow(random);
        for (int column = 1; column < kChannelColumns; ++column)
            table.setTextMatrix(row, column, cells[column]);
        for (const bool lowByte : {false, true}) {
            const std::optional<QString> line =
                BuildChannelLine(form(), std::int16_t(row), lowByte);
            if (line && (!lowByte || *common::WholeNumber(cells[2]) > 0))
                expected += ToFileBytes(*line) + "\r\n";
        }
    }
    expected += "END\r\n; \r\n; \r\nTEXT\r\n";
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QVERIFY(WriteFixtureFile(form(), QStringLiteral("/x/ALL.R20"), file).ok);
    QVERIFY(file.data().contains(expected));
}
