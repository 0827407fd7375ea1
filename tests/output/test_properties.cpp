// Properties of the channel lines over many rows of random cells: every line keeps its fixed
// shape whatever the cells hold, and a saved file holds the lines of its rows in grid order.
#include <QBuffer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include "common/number.h"
#include "output/channel_line.h"
#include "output/code_page.h"
#include "output/fixture_file.h"
#include "output_test.h"

namespace {

constexpr int kRandomRows = 2000;

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

// Rows of random cells, most with a whole number in dmx2 and one of the channel types: the
// two lines of a row keep their shape and differ only in their first four fields, and the
// file's DMX section is the lines of the rows that have a number in dmx2, in grid order.
void TestOutput::randomRows() {
    QRandomGenerator random(7031);
    gui::Grid& table = form().table;
    QByteArray section = "\r\nDMX\r\n";
    for (int row = 1; row <= kRandomRows; ++row) {
        if (row == table.Rows()) table.AddItem(QString());
        QStringList cells = {QString()};
        for (int column = 1; column < 15; ++column) cells.append(RandomCell(random));
        if (random.bounded(8)) cells[2] = kWholeNumbers[random.bounded(kWholeNumbers.size())];
        if (random.bounded(4)) cells[3] = kChannelTypes[random.bounded(kChannelTypes.size())];
        for (int column = 1; column < 15; ++column) table.setTextMatrix(row, column, cells[column]);

        const std::optional<double> dmx2 = common::WholeNumber(cells[2]);
        const auto first = BuildChannelLine(form(), static_cast<std::int16_t>(row), false);
        const auto low = BuildChannelLine(form(), static_cast<std::int16_t>(row), true);
        QVERIFY(first.has_value() == dmx2.has_value() && low.has_value() == dmx2.has_value());
        if (!first) continue;
        for (const QString& line : {*first, *low}) {
            const QString fault = ShapeFault(line, cells);
            QVERIFY2(fault.isEmpty(),
                     qPrintable(fault + ": " + Show(cells) + "\n line " + Show({line})));
        }
        QVERIFY2(low->startsWith(QLatin1String("0 0 ")) &&
                     first->section(u' ', 4) == low->section(u' ', 4),
                 qPrintable(Show({*first, *low})));
        section += ToFileBytes(*first) + "\r\n";
        if (*dmx2 > 0) section += ToFileBytes(*low) + "\r\n";
    }
    section += "END\r\n";
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QVERIFY(WriteFixtureFile(form(), QStringLiteral("/x/ALL.R20"), file).ok);
    QVERIFY(file.data().contains(section));
}
