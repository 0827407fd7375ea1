// The channel line and the text forms of the file, by worked rows and random ones.
#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include "common/code_page.h"
#include "common/number.h"
#include "gui/testing.h"
#include "output/channel_line.h"
#include "output/comment_lines.h"
#include "output/fixture_file.h"
#include "output_test.h"

void TestOutput::addRows(const char* table) {
    addTextRows(dataEntry("output_tables.json", table));
}

void TestOutput::text_data() {
    // token, label, comment lines, bytes, line or low byte line (of the grid row with these cells)
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");      // cells 1 to 14 for a line, "|" between them
    QTest::addColumn<QString>("expected");  // comment lines with "|" between, bytes as Latin-1,
                                            // "-" for a row that gives no line at all
    addRows("text");
    const QString lone(QChar(0xD83D)), longLine(40000, u'x');  // a lone surrogate is one character
    QTest::newRow("label, lone surrogate") << QString("label") << lone + "ABCDEFGHIJKLM"
                                           << "\"" + lone + "ABCDEFGHIJK\"";
    QTest::newRow("bytes, lone surrogate") << QString("bytes") << lone << "?";
    QTest::newRow("CR beyond 16 bits") << QString("comment lines") << longLine + "\r\ny"
                                       << "; " + longLine + "\r|; y";
}

void TestOutput::text() {
    QFETCH(QString, kind);
    QFETCH(QString, text);
    QFETCH(QString, expected);
#ifdef Q_OS_WIN
    if (kind == u"bytes") QSKIP("On Windows the file takes the system's ANSI code page");
#endif
    if (kind.endsWith(u"line")) {
        gui::testing::SetRows(form().table, {"#|" + text}, u'|');
    }
    const QString none = QStringLiteral("-");
    QCOMPARE(kind == u"token"           ? LeadingToken(text)
             : kind == u"label"         ? QuoteLabel(text)
             : kind == u"comment lines" ? CommentLines(text).join(u'|')
             : kind == u"bytes"         ? QString::fromLatin1(ToFileBytes(text))
             : kind == u"line"          ? BuildChannelLine(form(), 1, false).value_or(none)
                                        : BuildChannelLine(form(), 1, true).value_or(none),
             expected);
}

// Rows of random cells, most with a whole number in dmx2 and one of the channel types: the two
// lines of a row keep their shape and differ only in their first four fields, and the file's
// DMX section is the lines of the rows that have a number in dmx2, in grid order.
void TestOutput::randomRows() {
    // What cells are made of: the characters the encoder looks for, number forms at their
    // edges, characters of the code page, beyond it, beyond 16 bits and a lone surrogate.
    const QJsonValue data = dataEntry("output_tables.json", "random cells");
    const auto list = [&](const char* name) { return data[name].toVariant().toStringList(); };
    const QStringList pieces = list("pieces") << QString(QChar(0xD83D)),
                      wholeNumbers = list("whole numbers"), types = list("channel types");
    // An empty field keeps its blank, the seven before the label hold neither blank nor ">",
    // three numbers follow the label.
    const QString number = QStringLiteral("-?([0-9]+(\\.[0-9]+)?(e[+-][0-9]+)?|inf)");
    // Matched as UTF-8 gives them back, a lone surrogate as "?": no pattern can match it.
    const auto plain = [](const QString& text) { return QString::fromUtf8(text.toUtf8()); };
    QRandomGenerator random(7031);
    const auto pick = [&](const QStringList& from) { return from[random.bounded(from.size())]; };
    gui::Grid& table = form().table;
    QByteArray section = "\r\nDMX\r\n";
    for (std::int16_t row = 1; row <= 2000; ++row) {
        if (row == table.Rows()) table.AddItem(QString());
        QStringList cells(15);
        for (int column = 1; column < 15; ++column)
            for (int i = random.bounded(6); i > 0; --i) cells[column] += pick(pieces);
        if (random.bounded(8)) cells[2] = pick(wholeNumbers);
        if (random.bounded(4)) cells[3] = pick(types);
        for (int column = 1; column < 15; ++column) table.setTextMatrix(row, column, cells[column]);

        const std::optional<double> dmx2 = common::WholeNumber(cells[2]);
        const auto first = BuildChannelLine(form(), row, false);
        const auto low = BuildChannelLine(form(), row, true);
        QVERIFY(first.has_value() == dmx2.has_value() && low.has_value() == dmx2.has_value());
        if (!first) continue;
        const QRegularExpression shape(QRegularExpression::anchoredPattern(
            "([^ >]* ){7}1 " + QRegularExpression::escape(plain(QuoteLabel(cells[7]))) + " " +
            number + " " + number + " " + number + "  ;" +
            QRegularExpression::escape(plain(cells[14]))));
        const QString shown = QString::fromLatin1(
            QStringList({*first, *low, cells.join(u'|')}).join(u'\n').toUtf8().toPercentEncoding());
        QVERIFY2(shape.match(plain(*first)).hasMatch() && shape.match(plain(*low)).hasMatch() &&
                     low->startsWith(QLatin1String("0 0 ")) &&
                     first->section(u' ', 4) == low->section(u' ', 4),
                 qPrintable(shown));
        section += ToFileBytes(*first) + "\r\n";
        if (*dmx2 > 0) section += ToFileBytes(*low) + "\r\n";
    }
    section += "END\r\n";
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QVERIFY(WriteFixtureFile(form(), QStringLiteral("/x/ALL.R20"), file).ok);
    QVERIFY(file.data().contains(section));
}

RIGWRIGHT_TEST_MAIN(TestOutput)
