// The ready-made rows of the preset panel.
#include <QTest>

#include "channels/channel_table.h"
#include "channels/presets.h"
#include "channels_test.h"
#include "gui/testing.h"

using gui::testing::Click;

namespace {

const QString kBlankFirstRow = QStringLiteral("1;;0;;;;;;;;;;;;");

}  // namespace

void TestChannels::preset_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("rows");  // rows added to a new table, ";" between cells

    const auto row = [](const char* text) { return QStringList{QString::fromUtf8(text)}; };
    QTest::newRow("pan") << 0 << row("#;1;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;default");
    QTest::newRow("pan16") << 1 << row("#;1;2;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;default");
    QTest::newRow("tilt") << 2 << row("#;1;0;FADEABLE LTP;F>;3;1;Tilt;1;N;100;128;0;0;default");
    QTest::newRow("tilt16") << 3 << row("#;1;2;FADEABLE LTP;F>;3;1;Tilt;1;N;100;128;0;0;default");
    QTest::newRow("colour") << 4
                            << row("#;1;0;INDEXED LTP (not fadeable, such as "
                                   "gobo);A>;4;1;Color1;1;N;100;0;0;0;default");
    QTest::newRow("color2") << 5
                            << row("#;1;0;INDEXED LTP (not fadeable, such as "
                                   "gobo);A>;4;61;Color2;1;N;100;0;0;0;default");
    QTest::newRow("CMY") << 6
                         << QStringList{
                                "#;1;0;FADEABLE LTP;B>;10;1;Cyan;1;N;100;0;0;255;default",
                                "#;2;0;FADEABLE LTP;C>;10;61;Magenta;1;N;100;0;0;255;default",
                                "#;3;0;FADEABLE LTP;D>;9;61;Yellow;1;N;100;0;255;51;default"};
    QTest::newRow("RGB") << 7
                         << QStringList{
                                "#;1;0;FADEABLE LTP;T>;10;1;Red;1;N;100;255;255;0;default",
                                "#;2;0;FADEABLE LTP;U>;10;61;Green;1;N;100;255;255;0;default",
                                "#;3;0;FADEABLE LTP;V>;9;61;Blue;1;N;100;255;0;229;default"};
    QTest::newRow("CTO")
        << 8
        << row("#;1;0;INDEXED LTP (not fadeable, such as gobo);0>;9;1;CTO;1;N;100;0;0;0;default");
    QTest::newRow("iris") << 9 << row("#;1;0;FADEABLE LTP;G>;2;1;Iris;1;N;100;255;0;0;default");
    QTest::newRow("focus") << 10 << row("#;1;0;FADEABLE LTP;L>;5;61;Focus;1;N;100;128;0;0;default");
    QTest::newRow("zoom") << 11 << row("#;1;0;FADEABLE LTP;Q>;5;1;Zoom;1;N;100;127;0;0;default");
    QTest::newRow("dimmer")
        << 12 << row("#;1;0;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;default");
    QTest::newRow("shutter") << 13
                             << row("#;1;0;FADEABLE LTP;O>;2;61;Shutter;1;N;100;128;0;0;default");
    QTest::newRow("gobo1") << 14
                           << row("#;1;0;INDEXED LTP (not fadeable, such as "
                                  "gobo);I>;6;61;Gobo1;1;N;100;0;0;0;default");
    QTest::newRow("gobo2")
        << 15
        << row("#;1;0;INDEXED LTP (not fadeable, such as gobo);J>;6;1;Gobo2;1;N;100;0;0;0;default");
    QTest::newRow("g1.rot") << 16
                            << row("#;1;0;FADEABLE LTP;K>;7;61;Gobo1 Rot;1;N;100;0;0;0;default");
    QTest::newRow("g2.rot") << 17
                            << row("#;1;0;FADEABLE LTP;M>;7;1;Gobo2 Rot;1;N;100;0;0;0;default");
    QTest::newRow("speed") << 18 << row("#;1;0;FADEABLE LTP;0>;8;61;Speed;1;N;100;0;0;0;default");
    QTest::newRow("effect") << 19
                            << row("#;1;0;FADEABLE LTP;0>;19;61;Effect...;1;N;100;0;0;0;default");
    QTest::newRow("control") << 20
                             << row("#;1;0;INDEXED LTP (not fadeable, such as "
                                    "gobo);0>;18;61;Control;1;N;100;0;0;0;default");
    QTest::newRow("prism") << 21
                           << row("#;1;0;INDEXED LTP (not fadeable, such as "
                                  "gobo);P>;17;61;Prism;1;N;100;0;0;0;default");
    QTest::newRow("p. rot") << 22
                            << row("#;1;0;FADEABLE LTP;R>;17;1;Prism Rot;1;N;100;0;0;0;default");
    QTest::newRow("frost") << 23
                           << row("#;1;0;INDEXED LTP (not fadeable, such as "
                                  "gobo);S>;16;61;Frost;1;N;100;0;0;0;default");
    QTest::newRow("macro")
        << 24
        << row("#;1;0;INDEXED LTP (not fadeable, such as gobo);0>;8;1;Macro;1;N;100;0;0;0;default");
}

void TestChannels::preset() {
    QFETCH(int, index);
    QFETCH(QStringList, rows);
    watchModel();

    Click(form().adddef);
    QVERIFY(form().defaultsframe.Visible());
    Click(form().Command6[index]);

    // The rows go below the blank first row, which a preset never fills.
    QCOMPARE(bodyRows(), QStringList{kBlankFirstRow} + rows);
    QVERIFY(!form().defaultsframe.Visible());
}

void TestChannels::sixteenBitPresetTakesTwoOffsets() {
    Command6_Click(form(), 1);
    Command6_Click(form(), 0);
    Command6_Click(form(), 0);
    QCOMPARE(form().table.TextMatrix(2, 1), "1");
    QCOMPARE(form().table.TextMatrix(2, 2), "2");
    QCOMPARE(form().table.TextMatrix(3, 1), "3");
    QCOMPARE(form().table.TextMatrix(4, 1), "4");
    QCOMPARE(form().table.TextMatrix(4, 2), "0");
}

void TestChannels::colourMixTakesConsecutiveOffsets_data() {
    QTest::addColumn<int>("index");
    QTest::newRow("CMY") << 6;
    QTest::newRow("RGB") << 7;
}

void TestChannels::colourMixTakesConsecutiveOffsets() {
    QFETCH(int, index);
    setOffsets({"4;0"});
    Command6_Click(form(), static_cast<std::int16_t>(index));
    QCOMPARE(form().table.Rows(), 5);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(form().table.TextMatrix(2 + i, 1), QString::number(5 + i));
        QCOMPARE(form().table.TextMatrix(2 + i, 2), "0");
    }
}

void TestChannels::presetPassesHighestEditableOffset_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("dmx2");
    QTest::newRow("pan") << 0 << "0";
    QTest::newRow("pan16") << 1 << "513";
}

void TestChannels::presetPassesHighestEditableOffset() {
    QFETCH(int, index);
    QFETCH(QString, dmx2);
    setOffsets({"511;0"});
    Command6_Click(form(), static_cast<std::int16_t>(index));
    QCOMPARE(form().table.TextMatrix(2, 1), "512");
    QCOMPARE(form().table.TextMatrix(2, 2), dmx2);
}

void TestChannels::presetCommitsOpenEditFirst() {
    openCell(1, 1);
    replaceEntry("7");
    // The panel opens beside the edit and leaves it open.
    Click(form().adddef);
    QVERIFY(form().defaultsframe.Visible());
    QVERIFY(form().editframe.Visible());
    QCOMPARE(form().table.TextMatrix(1, 1), "");

    Click(form().Command6[9]);
    QCOMPARE(form().table.TextMatrix(1, 1), "7");
    QCOMPARE(form().table.TextMatrix(2, 1), "8");
    QVERIFY(!form().editframe.Visible());
    QVERIFY(!form().defaultsframe.Visible());
}

void TestChannels::presetIndexOutsideAddsNothing() {
    for (const std::int16_t index : {std::int16_t(-1), std::int16_t(25), std::int16_t(32767)}) {
        Click(form().adddef);
        Command6_Click(form(), index);
        QCOMPARE(form().table.Rows(), 2);
        QVERIFY(!form().defaultsframe.Visible());
    }
}

void TestChannels::semicolonsToTabs() {
    QCOMPARE(SemicolonsToTabs(";a;;b c;"), "\ta\t\tb c\t");
    QCOMPARE(SemicolonsToTabs("\\;"), "\\\t");  // no escape
}
