// The ready-made rows of the preset panel.
#include <QTest>

#include "channels/presets.h"
#include "channels_test.h"
#include "gui/testing.h"

using gui::testing::Click;

void TestChannels::preset_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("rows");  // rows added to a new table, ";" between cells

    // Each row from dmx1 to label, then locate, highlight and lowlight. Every preset has
    // curve 1, inv N, ratio 100 and the comment "default"; F, H and I stand for the
    // channel types.
    const struct {
        int index;
        const char* name;
        QStringList tails;
    } presets[] = {{0, "pan", {"1;0;F;E>;3;61;Pan;128;0;0"}},
                   {6,
                    "CMY",
                    {"1;0;F;B>;10;1;Cyan;0;0;255", "2;0;F;C>;10;61;Magenta;0;0;255",
                     "3;0;F;D>;9;61;Yellow;0;255;51"}},
                   {12, "dimmer", {"1;0;H;H>;1;1;Dimmer;128;0;0"}},
                   {24, "macro", {"1;0;I;0>;8;1;Macro;0;0;0"}}};
    const QHash<QString, QString> types = {{"F", "FADEABLE LTP"},
                                           {"H", "HTP (usually dimmer)"},
                                           {"I", "INDEXED LTP (not fadeable, such as gobo)"}};
    for (const auto& preset : presets) {
        QStringList rows;
        for (const QString& tail : preset.tails) {
            QStringList cells = tail.split(u';');
            cells[2] = types.value(cells[2]);
            rows << "#;" + cells.mid(0, 7).join(u';') + ";1;N;100;" + cells.mid(7).join(u';') +
                        ";default";
        }
        QTest::newRow(preset.name) << preset.index << rows;
    }
}

void TestChannels::preset() {
    QFETCH(int, index);
    QFETCH(QStringList, rows);
    watchModel();
    Click(form().adddef);
    QVERIFY(form().defaultsframe.Visible());
    Click(form().Command6[index]);
    // The rows go below the blank first row, which a preset never fills.
    QCOMPARE(bodyRows(), QStringList{"1;;0;;;;;;;;;;;;"} + rows);
    QVERIFY(!form().defaultsframe.Visible());
}

void TestChannels::presetOffsets_data() {
    QTest::addColumn<QStringList>("offsets");  // the table before, "dmx1;dmx2" a row
    QTest::addColumn<QList<int>>("presets");
    QTest::addColumn<QStringList>("added");  // "dmx1;dmx2" of each row added
    QTest::newRow("16 bits take two, then one each")
        << QStringList{";0"} << QList<int>{1, 0, 0} << QStringList{"1;2", "3;0", "4;0"};
    QTest::newRow("CMY") << QStringList{"4;0"} << QList<int>{6} << QStringList{"5;0", "6;0", "7;0"};
    QTest::newRow("16 bits past 511")
        << QStringList{"511;0"} << QList<int>{1} << QStringList{"512;513"};
    // Every offset a preset takes, a 16-bit low byte too, is a 16-bit value of its own.
    QTest::newRow("last offset") << QStringList{"32766;0"} << QList<int>{0, 0, 1, 6}
                                 << QStringList{"32767;0"};
    QTest::newRow("16 bits at the last offset")
        << QStringList{"32765;0"} << QList<int>{1, 1} << QStringList{"32766;32767"};
    QTest::newRow("three rows or none")
        << QStringList{"32765;0"} << QList<int>{7, 6} << QStringList{};
    QTest::newRow("three rows up to the last offset")
        << QStringList{"32764;0"} << QList<int>{7} << QStringList{"32765;0", "32766;0", "32767;0"};
    QTest::newRow("index outside")
        << QStringList{";0"} << QList<int>{-1, 25, 32767} << QStringList{};
}

void TestChannels::presetOffsets() {
    QFETCH(QStringList, offsets);
    QFETCH(QList<int>, presets);
    QFETCH(QStringList, added);
    setOffsets(offsets);
    for (const int index : presets) {
        Click(form().adddef);
        Command6_Click(form(), std::int16_t(index));
        QVERIFY(!form().defaultsframe.Visible());
    }
    QStringList got;
    for (const QString& row : bodyRows().mid(offsets.size())) got << row.section(u';', 1, 2);
    QCOMPARE(got, added);
}
