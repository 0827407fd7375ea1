#include <QTest>

#include "output/channel_line.h"
#include "output_test.h"

void TestOutput::buildChannelLine_data() {
    QTest::addColumn<QString>("row");    // as the table's AddItem takes it
    QTest::addColumn<QString>("first");  // null: the row gives no line at all
    QTest::addColumn<QString>("low");    // null: not checked

    const struct {
        const char *name, *cells, *first, *low;  // cells: columns 1 to 14, ";" between them
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
        {"dmx2 with blanks around it", "2; 3 ;FADEABLE LTP;E>;3;61;x;1;N;100;0;0;0;",
         "3 61 s 2 100 1N E 1 \"x\" 0 0 0  ;", "0 0 L  100 1N E 1 \"x\" 0 0 0  ;"},
        {"fresh row", ";0;;;;;;;;;;;;", "       1 \"\" 0 0 0  ;", nullptr},
        {"no number in dmx2", "1;  ;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;d", nullptr, nullptr},
        {"dmx2 not only a number", "1;2x;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;d", nullptr,
         nullptr}};
    for (const auto& r : rows)
        QTest::newRow(r.name) << "#\t" + QString(r.cells).replace(u';', u'\t') << r.first << r.low;

    // Cells that hold what the ";" notation cannot show.
    QTest::newRow("comment with blanks, semicolons, quotes")
        << QStringLiteral("#\t2\t0\tFADEABLE LTP\tE>\t3\t61\tx\t1\tN\t100\t0\t0\t0\t a; \"b\" ")
        << QStringLiteral("3 61 L 2 100 1N E 1 \"x\" 0 0 0  ; a; \"b\" ") << QString();
    QTest::newRow("code cells that start with > or a blank")
        << QStringLiteral("#\t 2\t0\tFADEABLE LTP\t>E\t 3\t>61\tx\t 1\t>N\t 100\t0\t0\t0\t")
        << QStringLiteral("  L     1 \"x\" 0 0 0  ;") << QString();
}

void TestOutput::buildChannelLine() {
    QFETCH(QString, row);
    QFETCH(QString, first);
    QFETCH(QString, low);
    form().table.AddItem(row);
    form().table.RemoveItem(1);
    const auto line = [](const QString& text) {
        return text.isNull() ? std::optional<QString>() : std::optional<QString>(text);
    };
    QCOMPARE(BuildChannelLine(form(), 1, false), line(first));
    if (first.isNull() || !low.isNull()) QCOMPARE(BuildChannelLine(form(), 1, true), line(low));
}

void TestOutput::tokenAndLabel_data() {
    QTest::addColumn<bool>("label");  // else the leading token
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const char* const tokens[][2] = {
        {"61> B (right)", "61"}, {"1 - Linear", "1"}, {">61", ""}, {" 61", ""}, {"a b>c", "a"}};
    for (const auto& t : tokens) QTest::addRow("token '%s'", t[0]) << false << t[0] << t[1];
    const char* const labels[][2] = {{"   ", "\"\""},
                                     {"abc ", "\"abc \""},
                                     {"  Gobo wheel rotation", "\"Gobo wheel r\""},
                                     {"a\"b", "\"a\"b\""}};
    for (const auto& l : labels) QTest::addRow("label '%s'", l[0]) << true << l[0] << l[1];
    // A surrogate pair is one character and is never cut in two; a lone surrogate is one too.
    const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
    const QString lone(QChar(0xD83D));
    QTest::newRow("label with a pair at the cut")
        << true << "ABCDEFGHIJK" + smile + u'Z' << "\"ABCDEFGHIJK" + smile + u'"';
    QTest::newRow("label with a pair first") << true << " " + smile + "ABCDEFGHIJKLM"
                                             << "\"" + smile + "ABCDEFGHIJK\"";
    QTest::newRow("label with a lone surrogate") << true << lone + "ABCDEFGHIJKLM"
                                                 << "\"" + lone + "ABCDEFGHIJK\"";
}

void TestOutput::tokenAndLabel() {
    QFETCH(bool, label);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(label ? QuoteLabel(text) : LeadingToken(text), expected);
}

RIGWRIGHT_TEST_MAIN(TestOutput)
