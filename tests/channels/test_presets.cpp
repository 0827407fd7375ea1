// The ready-made rows of the preset panel, at the next free offset.
#include <QTest>

#include "channels/presets.h"
#include "channels_test.h"
#include "gui/testing.h"

void TestChannels::preset_data() {
    QTest::addColumn<QStringList>("offsets");  // the table before, "dmx1;dmx2" a row
    QTest::addColumn<QList<int>>("presets");
    QTest::addColumn<QStringList>("added");  // the rows added, from dmx1 as far as written
    const auto add = [](const char* name, const QStringList& offsets, const QList<int>& presets,
                        const QStringList& added) {
        QTest::newRow(name) << offsets << presets << added;
    };
    const QString fade = "%1;0;FADEABLE LTP;%2;1;N;100;%3;default";
    add("pan", {";0"}, {0}, {fade.arg(1).arg("E>;3;61;Pan", "128;0;0")});
    add("CMY", {"4;0"}, {6},
        {fade.arg(5).arg("B>;10;1;Cyan", "0;0;255"), fade.arg(6).arg("C>;10;61;Magenta", "0;0;255"),
         fade.arg(7).arg("D>;9;61;Yellow", "0;255;51")});
    add("dimmer", {";0"}, {12}, {"1;0;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;default"});
    add("macro", {";0"}, {24},
        {"1;0;INDEXED LTP (not fadeable, such as gobo);0>;8;1;Macro;1;N;100;0;0;0;default"});
    // The next free offset: one past the largest dmx1 or dmx2 of any row.
    add("gap stays free", {"1;0", "2;0", "5;0"}, {0}, {"6;0"});
    add("dmx2 counts like dmx1", {"3;9"}, {0}, {"10;0"});
    add("equal to the candidate", {"1;"}, {0}, {"2;0"});
    add("zero and negatives never count", {"-5;0", "0;-1"}, {0}, {"1;0"});
    add("leading number of the text", {" 12x;0"}, {0}, {"13;0"});
    add("16 bits take two, then one each", {";0"}, {1, 0, 0}, {"1;2", "3;0", "4;0"});
    add("16 bits past 511", {"511;0"}, {1}, {"512;513"});
    // Every offset a preset takes, a 16-bit low byte too, is a 16-bit value of its own.
    add("last offset", {"32766;0"}, {0, 0, 1, 6}, {"32767;0"});
    add("16 bits at the last offset", {"32765;0"}, {1, 1}, {"32766;32767"});
    add("three rows or none", {"32765;0"}, {7, 6}, {});
    add("three rows up to the last offset", {"32764;0"}, {7}, {"32765;0", "32766;0", "32767;0"});
    add("index outside", {";0"}, {-1, 25, 32767}, {});
}

void TestChannels::preset() {
    QFETCH(QStringList, offsets);
    QFETCH(QList<int>, presets);
    QFETCH(QStringList, added);
    watchModel();
    setOffsets(offsets);
    const QStringList before = bodyRows();
    for (const int i : presets) {
        gui::testing::Click(form().adddef);
        QVERIFY(form().defaultsframe.Visible());
        i >= 0 && i < 25 ? gui::testing::Click(form().Command6[i])
                         : Command6_Click(form(), std::int16_t(i));
        QVERIFY(!form().defaultsframe.Visible());
    }
    QStringList got = bodyRows();
    QCOMPARE(got.mid(0, before.size()), before);  // a preset never fills the rows there were
    got = got.mid(before.size());
    for (int i = 0; i < got.size() && i < added.size(); ++i)
        got[i] = got[i].section(u';', 1, 1 + int(added[i].count(u';')));
    QCOMPARE(got, added);
}
