// The channel line and the text forms of the file, by worked rows.
#include <QTest>

#include "common/code_page.h"
#include "gui/testing.h"
#include "output/channel_line.h"
#include "output/comment_lines.h"
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
    if (kind.endsWith(u"line")) gui::testing::SetRows(form().table, {"#|" + text}, u'|');
    const QString none = QStringLiteral("-");
    QCOMPARE(kind == u"token"           ? LeadingToken(text)
             : kind == u"label"         ? QuoteLabel(text)
             : kind == u"comment lines" ? CommentLines(text).join(u'|')
             : kind == u"bytes"         ? QString::fromLatin1(ToFileBytes(text))
             : kind == u"line"          ? BuildChannelLine(form(), 1, false).value_or(none)
                                        : BuildChannelLine(form(), 1, true).value_or(none),
             expected);
}

RIGWRIGHT_TEST_CLASS(TestOutput)
