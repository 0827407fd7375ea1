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
        const char* name;
        QStringList tails;
    } presets[] = {{"pan", {"1;0;F;E>;3;61;Pan;128;0;0"}},
                   {"pan16", {"1;2;F;E>;3;61;Pan;128;0;0"}},
                   {"tilt", {"1;0;F;F>;3;1;Tilt;128;0;0"}},
                   {"tilt16", {"1;2;F;F>;3;1;Tilt;128;0;0"}},
                   {"colour", {"1;0;I;A>;4;1;Color1;0;0;0"}},
                   {"color2", {"1;0;I;A>;4;61;Color2;0;0;0"}},
                   {"CMY",
                    {"1;0;F;B>;10;1;Cyan;0;0;255", "2;0;F;C>;10;61;Magenta;0;0;255",
                     "3;0;F;D>;9;61;Yellow;0;255;51"}},
                   {"RGB",
                    {"1;0;F;T>;10;1;Red;255;255;0", "2;0;F;U>;10;61;Green;255;255;0",
                     "3;0;F;V>;9;61;Blue;255;0;229"}},
                   {"CTO", {"1;0;I;0>;9;1;CTO;0;0;0"}},
                   {"iris", {"1;0;F;G>;2;1;Iris;255;0;0"}},
                   {"focus", {"1;0;F;L>;5;61;Focus;128;0;0"}},
                   {"zoom", {"1;0;F;Q>;5;1;Zoom;127;0;0"}},
                   {"dimmer", {"1;0;H;H>;1;1;Dimmer;128;0;0"}},
                   {"shutter", {"1;0;F;O>;2;61;Shutter;128;0;0"}},
                   {"gobo1", {"1;0;I;I>;6;61;Gobo1;0;0;0"}},
                   {"gobo2", {"1;0;I;J>;6;1;Gobo2;0;0;0"}},
                   {"g1.rot", {"1;0;F;K>;7;61;Gobo1 Rot;0;0;0"}},
                   {"g2.rot", {"1;0;F;M>;7;1;Gobo2 Rot;0;0;0"}},
                   {"speed", {"1;0;F;0>;8;61;Speed;0;0;0"}},
                   {"effect", {"1;0;F;0>;19;61;Effect...;0;0;0"}},
                   {"control", {"1;0;I;0>;18;61;Control;0;0;0"}},
                   {"prism", {"1;0;I;P>;17;61;Prism;0;0;0"}},
                   {"p. rot", {"1;0;F;R>;17;1;Prism Rot;0;0;0"}},
                   {"frost", {"1;0;I;S>;16;61;Frost;0;0;0"}},
                   {"macro", {"1;0;I;0>;8;1;Macro;0;0;0"}}};
    const QHash<QString, QString> types = {{"F", "FADEABLE LTP"},
                                           {"H", "HTP (usually dimmer)"},
                                           {"I", "INDEXED LTP (not fadeable, such as gobo)"}};
    for (int i = 0; i < 25; ++i) {
        QStringList rows;
        for (const QString& tail : presets[i].tails) {
            QStringList cells = tail.split(u';');
            cells[2] = types.value(cells[2]);
            rows << "#;" + cells.mid(0, 7).join(u';') + ";1;N;100;" + cells.mid(7).join(u';') +
                        ";default";
        }
        QTest::newRow(presets[i].name) << i << rows;
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
    QTest::newRow("RGB") << QStringList{"4;0"} << QList<int>{7} << QStringList{"5;0", "6;0", "7;0"};
    QTest::newRow("past 511") << QStringList{"511;0"} << QList<int>{0} << QStringList{"512;0"};
    QTest::newRow("16 bits past 511")
        << QStringList{"511;0"} << QList<int>{1} << QStringList{"512;513"};
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
