// Properties of the channel line encoder and the comment split over many random cells: the
// byte encoder a full grid is saved with gives what the line texts give through the code
// page, and every line keeps its fixed shape whatever the cells hold.
#include <QBuffer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <vector>

#include "common/number.h"
#include "output/channel_line.h"
#include "output/code_page.h"
#include "output/comment_lines.h"
#include "output/fixture_file.h"
#include "output_test.h"

namespace {

constexpr int kRandomRows = 10000;

// What cells are made of: the characters the encoder looks for, number forms at their
// edges, and characters of the code page, beyond it and beyond 16 bits.
const QStringList kPieces =
    QStringLiteral(
        " |  |>|;|\"|\r|\n|\r\n|\t|-|+|.|e|0|7|128|007|1e3|2.5|12345678901234567|Pan|"
        "Gobo wheel rotation|E>|61> B (right)|\u00E9|\u20AC|\u0081|\u65E5\u672C|"
        "\U0001F600")
        .split(u'|') +
    QStringList{QString(QChar(0xD83D))};  // a high surrogate without its partner
// Whole numbers in the forms a dmx2 cell may hold them, and the channel types.
const QStringList kWholeNumbers =
    QStringLiteral("0|1| 3 |-2|+7|007|-0|512|1e2|\t4|2.5|5.|99999999999999999999").split(u'|');
const QStringList kChannelTypes = {"HTP (usually dimmer)", "FADEABLE LTP",
                                   "INDEXED LTP (not fadeable, such as gobo)", "fadeable ltp", ""};

QString RandomCell(QRandomGenerator& random) {
    QString cell;
    for (int i = random.bounded(6); i > 0; --i) cell += kPieces[random.bounded(kPieces.size())];
    return cell;
}

// The cells of a row, column 0 to 14. Most rows have a whole number in dmx2 and one of the
// channel types, half of them are plain ASCII.
QStringList RandomRow(QRandomGenerator& random) {
    QStringList cells;
    for (int column = 0; column < kChannelColumns; ++column) cells.append(RandomCell(random));
    if (random.bounded(8)) cells[2] = kWholeNumbers[random.bounded(kWholeNumbers.size())];
    if (random.bounded(4)) cells[3] = kChannelTypes[random.bounded(kChannelTypes.size())];
    if (random.bounded(2))
        for (QString& cell : cells)
            for (QChar& c : cell)
                if (c.unicode() >= 0x80) c = u'a';
    return cells;
}

QString Show(const QStringList& cells) {
    return QString::fromLatin1(cells.join(u'|').toUtf8().toPercentEncoding());
}

// "f1 f2 f3 f4 f5 f6 f7 1 "label" n n n  ;comment": an empty field keeps its blank, the
// fields before the label hold neither blank nor ">". Read from the end, as the label and
// the comment may hold anything. Empty when the line has that shape.
QString ShapeFault(QString line, const QStringList& cells) {
    static const QRegularExpression number(
        QRegularExpression::anchoredPattern("-?([0-9]+(\\.[0-9]+)?(e[+-][0-9]+)?|inf)"));
    const QString tail = "  ;" + cells[14];
    if (!line.endsWith(tail)) return QStringLiteral("comment");
    line.chop(tail.size());
    QStringList words = line.split(u' ');
    for (int n = 0; n < 3; ++n)
        if (words.size() < 2 || !number.match(words.takeLast()).hasMatch())
            return QStringLiteral("numbers");
    line = words.join(u' ');
    const QString label = " 1 " + QuoteLabel(cells[7]);
    if (!line.endsWith(label)) return QStringLiteral("label");
    line.chop(label.size());
    return line.count(u' ') == 6 && !line.contains(u'>') ? QString() : QStringLiteral("fields");
}

}  // namespace

void TestOutput::randomRows() {
    QRandomGenerator random(7031);
    for (int i = 0; i < kRandomRows; ++i) {
        const QStringList cells = RandomRow(random);
        const std::optional<double> dmx2 = common::WholeNumber(cells[2]);
        const std::optional<QString> first = ChannelLineOf(cells, false);
        const std::optional<QString> low = ChannelLineOf(cells, true);
        QVERIFY(first.has_value() == dmx2.has_value() && low.has_value() == dmx2.has_value());
        if (!first) continue;
        for (const QString& line : {*first, *low}) {
            const QString fault = ShapeFault(line, cells);
            QVERIFY2(fault.isEmpty(),
                     qPrintable(fault + ": " + Show(cells) + "\n line " + Show({line})));
        }
        // What a save writes of the row: its lines through the code page.
        QByteArray expected = "before" + ToFileBytes(*first) + "\r\n";
        if (*dmx2 > 0) expected += ToFileBytes(*low) + "\r\n";
        ChannelCells views;
        for (int column = 0; column < kChannelColumns; ++column) views[column] = cells[column];
        QByteArray bytes("before");
        QVERIFY(AppendChannelRowBytes(views, bytes));
        QVERIFY2(bytes == expected, qPrintable(Show(cells)));
    }
}

void TestOutput::tokenAndLabelShape() {
    QRandomGenerator random(4242);
    for (int i = 0; i < kRandomRows; ++i) {
        const QString text = RandomCell(random) + RandomCell(random);
        // The token: the text up to its first blank or ">".
        const QString token = LeadingToken(text);
        QVERIFY(text.startsWith(token) && !token.contains(u' ') && !token.contains(u'>'));
        QVERIFY(token.size() == text.size() || text[token.size()] == u' ' ||
                text[token.size()] == u'>');
        // The label: its beginning after blanks, cut to 12 characters (a surrogate pair is
        // one), never inside a pair, in quotes.
        const QString quoted = QuoteLabel(text);
        QVERIFY(quoted.size() >= 2 && quoted.startsWith(u'"') && quoted.endsWith(u'"'));
        const QString inner = quoted.mid(1, quoted.size() - 2);
        qsizetype start = 0;
        while (start < text.size() && text[start] == u' ') ++start;
        const QString stripped = text.mid(start);
        QVERIFY2(stripped.left(inner.size()) == inner, qPrintable(Show({text, quoted})));
        QCOMPARE(inner.toUcs4().size(), std::min<qsizetype>(12, stripped.toUcs4().size()));
        QVERIFY(inner.isEmpty() || !inner.back().isHighSurrogate() ||
                stripped.size() == inner.size() || !stripped[inner.size()].isLowSurrogate());
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
            if (text[k] != u'\r') continue;
            ++crs;
            crLast = ++k == text.size();
        }
        QCOMPARE(lines.size(), crLast ? crs : crs + 1);
        QString joined;
        for (qsizetype k = 0; k < lines.size(); ++k) {
            QVERIFY(lines[k].startsWith(QLatin1String("; ")));
            const QString body = lines[k].mid(2);
            // A CR only as the last character of a line, and in every line but the last.
            QVERIFY(!body.chopped(body.endsWith(u'\r') ? 1 : 0).contains(u'\r'));
            QVERIFY(k + 1 == lines.size() || body.endsWith(u'\r'));
            joined += body;
        }
        QCOMPARE(joined, kept);
    }
}

// The writer copies what it wrote for a kind of row (the cells but the two offsets) when the
// kind comes again: the DMX section of a whole file is still the lines of the rows one after
// another. Kinds come back at random, more of them than the writer keeps at once, some with
// a comment too long to keep, with offsets of every form.
void TestOutput::fileHoldsEveryRowLine() {
    QRandomGenerator random(31337);
    std::vector<QStringList> kinds;
    for (int i = 0; i < 400; ++i) kinds.push_back(RandomRow(random));
    kinds[0][14] = QString(300, u'c');
    kinds[1][14] = QString(300, u'\u00E9');
    gui::Grid& table = form().table;
    while (table.Rows() <= 2000) table.AddItem(QString::number(table.Rows()));
    QByteArray expected = "\r\nDMX\r\n";
    for (int row = 1; row < table.Rows(); ++row) {
        QStringList cells =
            random.bounded(8) ? kinds[random.bounded(int(kinds.size()))] : RandomRow(random);
        cells[1] = random.bounded(4) ? QString::number(row) : RandomCell(random);
        cells[2] = random.bounded(8) ? kWholeNumbers[random.bounded(kWholeNumbers.size())]
                                     : RandomCell(random);
        for (int column = 1; column < kChannelColumns; ++column)
            table.setTextMatrix(row, column, cells[column]);
        for (const bool lowByte : {false, true}) {
            const std::optional<QString> line = BuildChannelLine(form(), row, lowByte);
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
