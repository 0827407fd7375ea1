// The channel line and the text forms of the file, by worked rows and over many rows of random
// cells.
#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include "common/number.h"
#include "output/channel_line.h"
#include "output/code_page.h"
#include "output/comment_lines.h"
#include "output/fixture_file.h"
#include "output_test.h"

void TestOutput::channelLine_data() {
    QTest::addColumn<QStringList>("fields");  // name, cells 1 to 14, the line, the low byte line
    for (const QString& line :
         QString::fromUtf8(ReadBytes(dataPath("channel_lines.txt"))).split(u'\n'))
        if (!line.isEmpty() && !line.startsWith(u'#'))
            QTest::newRow(qPrintable(line.section(u'|', 0, 0))) << line.split(u'|');
}

void TestOutput::channelLine() {
    QFETCH(QStringList, fields);
    QCOMPARE(fields.size(), 17);
    form().table.AddItem("#\t" + fields.mid(1, 14).join(u'\t'));
    form().table.RemoveItem(1);
    const auto line = [](const QString& t) { return t == u"-" ? std::nullopt : std::optional(t); };
    QCOMPARE(BuildChannelLine(form(), 1, false), line(fields[15]));
    if (!fields[16].isEmpty()) QCOMPARE(BuildChannelLine(form(), 1, true), line(fields[16]));
}

void TestOutput::text_data() {
    QTest::addColumn<QString>("form");  // token, label, comment lines ("|" between) or bytes
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");  // bytes as Latin-1
    for (const QJsonValue& v :
         QJsonDocument::fromJson(ReadBytes(dataPath("output_text.json"))).array()) {
        const QJsonArray r = v.toArray();
        QTest::newRow(qPrintable(r[0].toString()))
            << r[1].toString() << r[2].toString() << r[3].toString();
    }
    const QString lone(QChar(0xD83D)), longLine(40000, u'x');  // a lone surrogate is one character
    QTest::newRow("label, lone surrogate") << "label" << lone + "ABCDEFGHIJKLM"
                                           << "\"" + lone + "ABCDEFGHIJK\"";
    QTest::newRow("bytes, lone surrogate") << "bytes" << lone << "?";
    QTest::newRow("CR beyond 16 bits") << "lines" << longLine + "\r\ny"
                                       << "; " + longLine + "\r|; y";
}

void TestOutput::text() {
    QFETCH(QString, form);
    QFETCH(QString, text);
    QFETCH(QString, expected);
#ifdef Q_OS_WIN
    if (form == u"bytes") QSKIP("On Windows the file takes the system's ANSI code page");
#endif
    QCOMPARE(form == u"token"   ? LeadingToken(text)
             : form == u"label" ? QuoteLabel(text)
             : form == u"lines" ? CommentLines(text).join(u'|')
                                : QString::fromLatin1(ToFileBytes(text)),
             expected);
}

// Rows of random cells, most with a whole number in dmx2 and one of the channel types: the two
// lines of a row keep their shape and differ only in their first four fields, and the file's
// DMX section is the lines of the rows that have a number in dmx2, in grid order.
void TestOutput::randomRows() {
    // What cells are made of: the characters the encoder looks for, number forms at their
    // edges, characters of the code page, beyond it, beyond 16 bits and a lone surrogate.
    const QStringList pieces =
        QStringLiteral(
            " |  |>|;|\"|\r|\n|\r\n|\t|-|+|.|e|0|7|128|007|1e3|2.5|12345678901234567|"
            "Pan|Gobo wheel rotation|E>|61> B (right)|\u00E9|\u20AC|\u0081|\u65E5\u672C|"
            "\U0001F600")
            .split(u'|')
        << QString(QChar(0xD83D));
    const QStringList wholeNumbers =
        QStringLiteral("0|1| 3 |-2|+7|007|-0|512|1e2|\t4|2.5|5.|99999999999999999999").split(u'|');
    const QStringList types = {"HTP (usually dimmer)", "FADEABLE LTP",
                               "INDEXED LTP (not fadeable, such as gobo)", "fadeable ltp", ""};
    // An empty field keeps its blank, the seven before the label hold neither blank nor ">",
    // three numbers follow the label.
    const QString number = QStringLiteral("-?([0-9]+(\\.[0-9]+)?(e[+-][0-9]+)?|inf)");
    // Matched with every surrogate as "#": a lone one is no text a pattern can match.
    const auto plain = [](QString text) {
        for (QChar& c : text)
            if (c.isSurrogate()) c = u'#';
        return text;
    };
    QRandomGenerator random(7031);
    const auto pick = [&](const QStringList& from) { return from[random.bounded(from.size())]; };
    gui::Grid& table = form().table;
    QByteArray section = "\r\nDMX\r\n";
    for (int row = 1; row <= 2000; ++row) {
        if (row == table.Rows()) table.AddItem(QString());
        QStringList cells(15);
        for (int column = 1; column < 15; ++column)
            for (int i = random.bounded(6); i > 0; --i) cells[column] += pick(pieces);
        if (random.bounded(8)) cells[2] = pick(wholeNumbers);
        if (random.bounded(4)) cells[3] = pick(types);
        for (int column = 1; column < 15; ++column) table.setTextMatrix(row, column, cells[column]);

        const std::optional<double> dmx2 = common::WholeNumber(cells[2]);
        const auto first = BuildChannelLine(form(), static_cast<std::int16_t>(row), false);
        const auto low = BuildChannelLine(form(), static_cast<std::int16_t>(row), true);
        QVERIFY(first.has_value() == dmx2.has_value() && low.has_value() == dmx2.has_value());
        if (!first) continue;
        const QRegularExpression shape(QRegularExpression::anchoredPattern(
            "([^ >]* ){7}1 " + QRegularExpression::escape(plain(QuoteLabel(cells[7]))) + " " +
            number + " " + number + " " + number + "  ;" +
            QRegularExpression::escape(plain(cells[14]))));
        const QString shown = QString::fromLatin1(
            QStringList({*first, *low, cells.join(u'|')}).join(u'\n').toUtf8().toPercentEncoding());
        QVERIFY2(shape.match(plain(*first)).hasMatch() && shape.match(plain(*low)).hasMatch(),
                 qPrintable(shown));
        QVERIFY2(low->startsWith(QLatin1String("0 0 ")) &&
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
