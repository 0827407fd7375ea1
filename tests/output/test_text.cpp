#include <QTest>

#include "output/code_page.h"
#include "output/comment_lines.h"
#include "output_test.h"

void TestOutput::commentLines_data() {
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("empty") << QString() << QStringList{"; "};
    QTest::newRow("ends with CR LF") << QStringLiteral("a\r\n") << QStringList{"; a\r", "; "};
    QTest::newRow("three lines") << QStringLiteral("a\r\nb\r\nc")
                                 << QStringList{"; a\r", "; b\r", "; c"};
    QTest::newRow("CR without LF costs the next character")
        << QStringLiteral("a\rbc") << QStringList{"; a\r", "; c"};
    QTest::newRow("CR last") << QStringLiteral("a\r") << QStringList{"; a\r"};
    QTest::newRow("CR LF then CR last")
        << QStringLiteral("a\r\nb\r") << QStringList{"; a\r", "; b\r"};
    QTest::newRow("LF alone stays in the line") << QStringLiteral("a\nb") << QStringList{"; a\nb"};
    QTest::newRow("CR behind a CR is dropped unseen")
        << QStringLiteral("a\r\r\nb\r\rc") << QStringList{"; a\r", "; \nb\r", "; c"};
    const QString longLine(40000, u'x');
    QTest::newRow("CR beyond 16 bits")
        << longLine + QStringLiteral("\r\ny") << QStringList{"; " + longLine + u'\r', "; y"};
}

void TestOutput::commentLines() {
    QFETCH(QString, comment);
    QFETCH(QStringList, lines);
    QCOMPARE(CommentLines(comment), lines);
}

void TestOutput::codePage_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("ASCII and line ends")
        << QStringLiteral("a \"b\";\r\n") << QByteArray("a \"b\";\r\n");
    QTest::newRow("Latin-1") << QStringLiteral("\u00E9\u00FF\u00A0") << QByteArray("\xE9\xFF\xA0");
    QTest::newRow("euro, Y diaeresis, dagger, em dash, trade mark")
        << QStringLiteral("\u20AC\u0178\u2020\u2014\u2122") << QByteArray("\x80\x9F\x86\x97\x99");
    QTest::newRow("C1 control, CJK") << QStringLiteral("\u0081a\u65E5") << QByteArray("?a?");
    QTest::newRow("outside the basic plane is one character")
        << QString::fromUtf8("\xF0\x9F\x98\x80") << QByteArray("?");
    QTest::newRow("lone surrogate") << QString(QChar(0xD800)) << QByteArray("?");
}

void TestOutput::codePage() {
#ifdef Q_OS_WIN
    QSKIP("On Windows the file takes the system's ANSI code page, whatever it is");
#endif
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(ToFileBytes(text), bytes);
}
