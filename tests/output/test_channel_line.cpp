#include <QTest>

#include "output/channel_line.h"
#include "output_test.h"

namespace {

// A row in the form of the table's AddItem, from its cells in columns 1 to 14 given with
// ";" between them (none of these cells holds a ";").
QString Tabbed(const QString& columns1to14) {
    return QStringLiteral("#\t") + QString(columns1to14).replace(u';', u'\t');
}

}  // namespace

void TestOutput::putRow(const QString& tabbedCells) {
    form().table.AddItem(tabbedCells);
    form().table.RemoveItem(1);
    QCOMPARE(form().table.Rows(), 2);
}

void TestOutput::buildChannelLine_data() {
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("low");  // null: the row has no low byte line

    const QString none;
    const struct {
        const char* name;
        const char* cells;
        const char* first;
        const char* low;
    } rows[] = {
        {"pan", "1;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;default",
         "3 61 L 1 100 1N E 1 \"Pan\" 128 0 0  ;default", nullptr},
        {"pan16", "1;2;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;default",
         "3 61 s 1 100 1N E 1 \"Pan\" 128 0 0  ;default",
         "0 0 L 2 100 1N E 1 \"Pan\" 128 0 0  ;default"},
        {"tilt", "3;0;FADEABLE LTP;F>;3;1;Tilt;1;N;100;128;0;0;default",
         "3 1 L 3 100 1N F 1 \"Tilt\" 128 0 0  ;default", nullptr},
        {"dimmer", "4;0;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;default",
         "1 1 H 4 100 1N H 1 \"Dimmer\" 128 0 0  ;default", nullptr},
        {"color",
         "6;0;INDEXED LTP (not fadeable, such as gobo);A>;4;1;Color1;1;N;100;0;0;0;default",
         "4 1 I 6 100 1N A 1 \"Color1\" 0 0 0  ;default", nullptr},
        {"cyan", "7;0;FADEABLE LTP;B>;10;1;Cyan;1;N;100;0;0;255;default",
         "10 1 L 7 100 1N B 1 \"Cyan\" 0 0 255  ;default", nullptr},
        {"yellow", "9;0;FADEABLE LTP;D>;9;61;Yellow;1;N;100;0;255;51;default",
         "9 61 L 9 100 1N D 1 \"Yellow\" 0 255 51  ;default", nullptr},
        {"gobo rot", "11;0;FADEABLE LTP;K>;7;61;Gobo1 Rot;1;N;100;0;0;0;default",
         "7 61 L 11 100 1N K 1 \"Gobo1 Rot\" 0 0 0  ;default", nullptr},
        {"effect", "13;0;FADEABLE LTP;0>;19;61;Effect...;1;N;100;0;0;0;default",
         "19 61 L 13 100 1N 0 1 \"Effect...\" 0 0 0  ;default", nullptr},
        {"indexed 16-bit",
         "14;15;INDEXED LTP (not fadeable, such as gobo);I>;6;61;Gobo1;1;N;100;0;0;0;default",
         "6 61 S 14 100 1N I 1 \"Gobo1\" 0 0 0  ;default",
         "0 0 I 15 100 1N I 1 \"Gobo1\" 0 0 0  ;default"},
        {"HTP 16-bit", "16;17;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;default",
         "1 1  16 100 1N H 1 \"Dimmer\" 128 0 0  ;default",
         "0 0 H 17 100 1N H 1 \"Dimmer\" 128 0 0  ;default"},
        {"long forms by hand",
         "18;0;FADEABLE LTP;T> R red;10;61> B (right);Gobo wheel rotation;2 - Square;"
         "C - inverted;75;-1;12;255;my note",
         "10 61 L 18 75 2C T 1 \"Gobo wheel r\" -1 12 255  ;my note", nullptr},
        // Beyond the presets.
        {"empty channel type", "4;5;;E>;3;61;Pan;1;N;100;128;0;0;c",
         "3 61  4 100 1N E 1 \"Pan\" 128 0 0  ;c", "0 0  5 100 1N E 1 \"Pan\" 128 0 0  ;c"},
        {"channel type compared with case", "4;0;fadeable ltp;E>;3;61;Pan;1;N;100;1;2;3;",
         "3 61  4 100 1N E 1 \"Pan\" 1 2 3  ;", nullptr},
        {"curve without inv", "2;0;FADEABLE LTP;E>;3;61;Pan;2 - Square;;100;0;0;0;",
         "3 61 L 2 100 2 E 1 \"Pan\" 0 0 0  ;", nullptr},
        {"numbers read from the start", "2;0;FADEABLE LTP;E>;3;61;x;1;N;100; 7 dB;12.5abc;abc;",
         "3 61 L 2 100 1N E 1 \"x\" 7 12.5 0  ;", nullptr},
        {"label with leading blanks",
         "2;0;FADEABLE LTP;E>;3;61;  Gobo wheel rotation;1;N;100;0;0;0;",
         "3 61 L 2 100 1N E 1 \"Gobo wheel r\" 0 0 0  ;", nullptr},
        {"dmx2 with blanks around it", "2; 3 ;FADEABLE LTP;E>;3;61;x;1;N;100;0;0;0;",
         "3 61 s 2 100 1N E 1 \"x\" 0 0 0  ;", "0 0 L  100 1N E 1 \"x\" 0 0 0  ;"},
    };
    for (const auto& r : rows)
        QTest::newRow(r.name) << Tabbed(QString::fromUtf8(r.cells)) << QString::fromUtf8(r.first)
                              << (r.low ? QString::fromUtf8(r.low) : none);

    // Cells that hold what the ";" notation cannot show.
    QTest::newRow("comment with blanks, semicolons, quotes")
        << QStringLiteral("#\t2\t0\tFADEABLE LTP\tE>\t3\t61\tx\t1\tN\t100\t0\t0\t0\t a; \"b\" ")
        << QStringLiteral("3 61 L 2 100 1N E 1 \"x\" 0 0 0  ; a; \"b\" ") << none;
    QTest::newRow("code cells that start with > or a blank")
        << QStringLiteral("#\t 2\t0\tFADEABLE LTP\t>E\t 3\t>61\tx\t 1\t>N\t 100\t0\t0\t0\t")
        << QStringLiteral("  L     1 \"x\" 0 0 0  ;") << none;
}

void TestOutput::buildChannelLine() {
    QFETCH(QString, row);
    QFETCH(QString, first);
    QFETCH(QString, low);
    putRow(row);
    QCOMPARE(BuildChannelLine(form(), 1, false), std::optional<QString>(first));
    if (!low.isNull()) QCOMPARE(BuildChannelLine(form(), 1, true), std::optional<QString>(low));
}

void TestOutput::noLineWithoutNumberInDmx2_data() {
    QTest::addColumn<QString>("dmx2");
    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << QStringLiteral("  ");
    QTest::newRow("text") << QStringLiteral("abc");
    QTest::newRow("number and text") << QStringLiteral("2x");
}

void TestOutput::noLineWithoutNumberInDmx2() {
    QFETCH(QString, dmx2);
    putRow(QStringLiteral("#\t1\t%1\tFADEABLE LTP\tE>\t3\t61\tPan\t1\tN\t100\t128\t0\t0\td")
               .arg(dmx2));
    QCOMPARE(BuildChannelLine(form(), 1, false), std::nullopt);
    QCOMPARE(BuildChannelLine(form(), 1, true), std::nullopt);
}

void TestOutput::freshFirstRow() {
    QCOMPARE(BuildChannelLine(form(), 1, false),
             std::optional<QString>(QStringLiteral("       1 \"\" 0 0 0  ;")));
}

void TestOutput::leadingToken_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("token");
    const char* const cases[][2] = {
        {"61> B (right)", "61"},
        {"61", "61"},
        {"1 - Linear", "1"},
        {"N - normal", "N"},
        {"E>", "E"},
        {"0> ---OTHER", "0"},
        {"100", "100"},
        {">61", ""},
        {" 61", ""},
        {"", ""},
        {"a>b c", "a"},
        {"a b>c", "a"},
        {"\t1", "\t1"},
    };
    for (const auto& c : cases)
        QTest::newRow(c[0]) << QString::fromUtf8(c[0]) << QString::fromUtf8(c[1]);
}

void TestOutput::leadingToken() {
    QFETCH(QString, text);
    QFETCH(QString, token);
    QCOMPARE(LeadingToken(text), token);
}

void TestOutput::quoteLabel_data() {
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("quoted");
    const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
    QTest::newRow("empty") << QString() << QStringLiteral("\"\"");
    QTest::newRow("trailing blank stays") << QStringLiteral("abc ") << QStringLiteral("\"abc \"");
    QTest::newRow("leading blanks do not count")
        << QStringLiteral("  Gobo wheel rotation") << QStringLiteral("\"Gobo wheel r\"");
    QTest::newRow("exactly 12") << QStringLiteral("ABCDEFGHIJKL")
                                << QStringLiteral("\"ABCDEFGHIJKL\"");
    QTest::newRow("13 cut") << QStringLiteral("ABCDEFGHIJKLM")
                            << QStringLiteral("\"ABCDEFGHIJKL\"");
    QTest::newRow("blank at the cut")
        << QStringLiteral("Gobo  wheel rot") << QStringLiteral("\"Gobo  wheel \"");
    QTest::newRow("quote not doubled") << QStringLiteral("a\"b") << QStringLiteral("\"a\"b\"");
    QTest::newRow("only blanks") << QStringLiteral("   ") << QStringLiteral("\"\"");
    QTest::newRow("pair counts as one") << QStringLiteral("ABCDEFGHIJK") + smile + u'Z'
                                        << u'"' + QStringLiteral("ABCDEFGHIJK") + smile + u'"';
}

void TestOutput::quoteLabel() {
    QFETCH(QString, label);
    QFETCH(QString, quoted);
    QCOMPARE(QuoteLabel(label), quoted);
}
