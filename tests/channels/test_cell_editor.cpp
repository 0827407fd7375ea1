// The floating cell editor, driven as a user drives it: double click, type, Enter.
#include <QRandomGenerator>
#include <QTest>

#include "channels/edit_classes.h"
#include "channels_test.h"
#include "common/number.h"
#include "gui/testing.h"

using gui::testing::Click;
using gui::testing::ClickCell;
using gui::testing::HasFocus;
using gui::testing::PickItem;
using gui::testing::PressKey;

namespace {

// In an entry row, "typed" as this commits the old text without touching the edit box.
const QString kAsItStands = QStringLiteral("<as it stands>");

enum Col { kDmx1 = 1, kDmx2, kKey = 5, kLabel = 7, kRatio = 10, kLocate, kHigh, kLow, kComment };

void AddEntry(const char* name, int col, const QString& old, const QString& typed,
              const QString& expected) {
    QTest::newRow(name) << col << old << typed << expected;
}

void EntryColumns() {
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("old");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
}

}  // namespace

void TestChannels::numberEntry_data() {
    EntryColumns();
    // Rounding goes half to even, and the bounds apply after it.
    AddEntry("3.5 rounds up", kDmx1, "7", "3.5", "4");
    AddEntry("2.5 rounds down", kDmx1, "7", "2.5", "2");
    AddEntry("-0.4 is 0", kLocate, "7", "-0.4", "0");
    AddEntry("dmx1 refuses 0", kDmx1, "7", "0", "7");
    AddEntry("dmx1 refuses 512", kDmx1, "7", "512", "7");
    AddEntry("dmx1 refuses 0.5", kDmx1, "7", "0.5", "7");
    AddEntry("dmx1 takes 0.6", kDmx1, "7", "0.6", "1");
    AddEntry("dmx1 takes 511", kDmx1, "7", "511", "511");
    AddEntry("dmx1 refuses 511.5", kDmx1, "7", "511.5", "7");
    AddEntry("dmx2 takes 0", kDmx2, "7", "0", "0");
    AddEntry("dmx2 refuses 512", kDmx2, "7", "512", "7");
    AddEntry("key refuses 0", kKey, "7", "0", "7");
    AddEntry("key refuses 21", kKey, "7", "21", "7");
    AddEntry("key takes 20", kKey, "7", "20", "20");
    AddEntry("key stops at x", kKey, "7", "12x", "12");
    AddEntry("ratio takes 100.5", kRatio, "7", "100.5", "100");
    AddEntry("ratio takes 1e2", kRatio, "7", "1e2", "100");
    AddEntry("ratio refuses 101", kRatio, "7", "101", "7");
    AddEntry("ratio takes 0", kRatio, "7", "0", "0");
    AddEntry("locate takes -1", kLocate, "7", "-1", "-1");
    AddEntry("locate refuses -2", kLocate, "7", "-2", "7");
    AddEntry("locate refuses -1.5", kLocate, "7", "-1.5", "7");
    AddEntry("locate refuses 256", kLocate, "7", "256", "7");
    AddEntry("highlight takes 255", kHigh, "7", "255", "255");
    AddEntry("lowlight refuses 256", kLow, "7", "256", "7");
    AddEntry("blanks and sign", kDmx1, "7", "  +12", "12");
    AddEntry("stored normalised", kRatio, "7", "050.0", "50");

    // No leading number gives 0: stored where 0 is allowed.
    AddEntry("letters in dmx1", kDmx1, "7", "abc", "7");
    AddEntry("letters in dmx2", kDmx2, "7", "abc", "0");
    AddEntry("letters in key", kKey, "7", "abc", "7");
    AddEntry("letters in ratio", kRatio, "7", "abc", "0");
    AddEntry("letters in locate", kLocate, "7", "abc", "0");
    AddEntry("letters in highlight", kHigh, "7", "abc", "0");
    AddEntry("letters in lowlight", kLow, "7", "abc", "0");
    AddEntry("empty dmx2 committed at once", kDmx2, "", kAsItStands, "0");
    AddEntry("empty dmx1 committed at once", kDmx1, "", kAsItStands, "");
    AddEntry("empty ratio committed at once", kRatio, "", kAsItStands, "0");
    AddEntry("number committed at once", kLocate, "-1", kAsItStands, "-1");

    // Beyond 16 bits there is no value at all, not even 0.
    AddEntry("40000 in dmx2", kDmx2, "7", "40000", "7");
    AddEntry("-40000 in ratio", kRatio, "7", "-40000", "7");
}

void TestChannels::numberEntry() {
    QFETCH(int, col);
    QFETCH(QString, old);
    QFETCH(QString, typed);
    QFETCH(QString, expected);

    form().table.setTextMatrix(1, col, old);
    openCell(1, col);
    QCOMPARE(form().editcombo.Text(), old);
    if (typed != kAsItStands) replaceEntry(typed);
    pressEnter();

    QCOMPARE(form().table.TextMatrix(1, col), expected);
    QVERIFY(!form().editframe.Visible());
    QCOMPARE(form().editframe.Tag(), "0");
    QCOMPARE(form().errormessage[2].Caption(), QString());
}

void TestChannels::textEntry_data() {
    EntryColumns();
    AddEntry("blanks kept", kLabel, "x", "  a b  ", "  a b  ");
    AddEntry("emptied", kComment, "note", "", "");
    AddEntry("committed at once", kComment, "note", kAsItStands, "note");
    AddEntry("number beyond 16 bits", kComment, "note", "40000", "40000");
    AddEntry("number text as typed", kLabel, "x", "3.50", "3.50");
    AddEntry("semicolon", kLabel, "x", "a;b", "a;b");
}

void TestChannels::textEntry() {
    numberEntry();
}

void TestChannels::choiceLists_data() {
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("list");
    QTest::addColumn<int>("editClass");

    QTest::newRow("dmx1") << 1 << "" << 4;
    QTest::newRow("dmx2") << 2 << "" << 5;
    QTest::newRow("channel type")
        << 3 << "HTP (usually dimmer);FADEABLE LTP;INDEXED LTP (not fadeable, such as gobo)" << 1;
    QTest::newRow("attribute type")
        << 4
        << "A> ColourWheel1;N> ColourWheel2;E> Pan;F> Tilt;G> Iris;H> Dimmer;I> Gobo1;J> Gobo2;"
           "K> Gobo1Rotate;M> Gobo2Rotate;L> Focus;O> Shutter;P> Prism;Q> Zoom;R> EffectRotate;"
           "S> Frost;T> R red;U> G green;V> B blue;B> C cyan;C> M magenta;D> Y yellow;"
           "0> ---OTHER"
        << 1;
    QTest::newRow("key") << 5 << "" << 6;
    QTest::newRow("wheel") << 6 << "1> A (left);61> B (right)" << 1;
    QTest::newRow("attribute label") << 7 << "" << 0;
    QTest::newRow("curve") << 8 << "1 - Linear;2 - Square;3 - On at 50%;4 - FD Square" << 1;
    QTest::newRow("inv") << 9 << "N - normal;C - inverted" << 1;
    QTest::newRow("ratio%") << 10 << "" << 2;
    QTest::newRow("locate") << 11 << "" << 3;
    QTest::newRow("highlight") << 12 << "" << 3;
    QTest::newRow("lowlight") << 13 << "" << 3;
    QTest::newRow("comment") << 14 << "" << 0;
}

void TestChannels::choiceLists() {
    QFETCH(int, col);
    QFETCH(QString, list);
    QFETCH(int, editClass);

    // A list from the column opened before must not linger.
    openCell(1, 4);
    openCell(1, col);
    QStringList items;
    for (int i = 0; i < form().editcombo.ListCount(); ++i) items << form().editcombo.List(i);
    QCOMPARE(items.join(u';'), list);
    QCOMPARE(form().editcombo.ListIndex(), -1);
    QCOMPARE(form().editcombo.Tag(), QString::number(editClass));
    QCOMPARE(form().editframe.Caption(), form().table.TextMatrix(0, col));
}

void TestChannels::choiceNeedsPickedItem_data() {
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("old");
    QTest::addColumn<int>("pick");  // -1: no item picked
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");

    QTest::newRow("typed item text") << 6 << "61" << -1 << "1> A (left)"
                                     << "61";
    QTest::newRow("short form at once") << 4 << "E>" << -1 << ""
                                        << "E>";
    QTest::newRow("old text equals an item") << 9 << "N - normal" << -1 << ""
                                             << "N - normal";
    QTest::newRow("wheel picked") << 6 << "1" << 1 << ""
                                  << "61> B (right)";
    QTest::newRow("channel type picked") << 3 << "" << 2 << ""
                                         << "INDEXED LTP (not fadeable, such as gobo)";
    QTest::newRow("attribute picked") << 4 << "E>" << 22 << ""
                                      << "0> ---OTHER";
    QTest::newRow("curve picked") << 8 << "1" << 3 << ""
                                  << "4 - FD Square";
    QTest::newRow("inv picked") << 9 << "N" << 1 << ""
                                << "C - inverted";
    QTest::newRow("typed over a pick") << 4 << "E>" << 2 << "x"
                                       << "E>";
}

void TestChannels::choiceNeedsPickedItem() {
    QFETCH(int, col);
    QFETCH(QString, old);
    QFETCH(int, pick);
    QFETCH(QString, typed);
    QFETCH(QString, expected);

    form().table.setTextMatrix(1, col, old);
    openCell(1, col);
    QCOMPARE(form().editcombo.Text(), old);
    if (pick >= 0) PickItem(form().editcombo, pick);
    if (!typed.isEmpty()) gui::testing::TypeText(form().editcombo, typed);
    pressEnter();
    QCOMPARE(form().table.TextMatrix(1, col), expected);
}

void TestChannels::frameLiesOnCell() {
    MainForm& f = form();
    Click(f.add);
    for (const int col : {5, 14, 1}) {
        f.table.setTextMatrix(2, col, QStringLiteral("old"));
        openCell(2, col);
        QVERIFY(f.editframe.Visible());
        QCOMPARE(f.editframe.Caption(), f.table.TextMatrix(0, col));
        QCOMPARE(f.editframe.Left(), f.table.Left() + f.table.ColPos(col));
        QCOMPARE(f.editframe.Top(), f.table.Top() + f.table.RowPos(2));
        QCOMPARE(f.editframe.Tag(), QString::number(2 * 15 + col));
        QCOMPARE(f.editcombo.Text(), "old");
        QTRY_VERIFY(HasFocus(f.editcombo));
    }
}

void TestChannels::clickElsewhereCommitsFirstCellOnly() {
    MainForm& f = form();
    openCell(1, kLabel);
    replaceEntry("abc");
    ClickCell(f.table, 1, kComment);
    QCOMPARE(f.table.TextMatrix(1, kLabel), "abc");
    QCOMPARE(f.table.TextMatrix(1, kComment), "");
    QVERIFY(!f.editframe.Visible());

    // A double click commits the open edit, then opens on the new cell.
    openCell(1, kLabel);
    replaceEntry("def");
    openCell(1, kComment);
    QCOMPARE(f.table.TextMatrix(1, kLabel), "def");
    QCOMPARE(f.table.TextMatrix(1, kComment), "");
    QVERIFY(f.editframe.Visible());
    QCOMPARE(f.editframe.Tag(), QString::number(1 * 15 + kComment));
}

void TestChannels::clickWithoutEditClosesPanelOnly() {
    MainForm& f = form();
    f.editcombo.setText(QStringLiteral("5"));  // left over from an earlier edit
    Click(f.adddef);
    const QStringList before = bodyRows();
    ClickCell(f.table, 1, kDmx1);
    QVERIFY(!f.defaultsframe.Visible());
    QVERIFY(!f.editframe.Visible());
    QCOMPARE(bodyRows(), before);
}

void TestChannels::keyboardOnly() {
    MainForm& f = form();
    ClickCell(f.table, 1, kRatio);
    PressKey(f.table, Qt::Key_5);
    QVERIFY(f.editframe.Visible());
    QCOMPARE(f.editframe.Caption(), "ratio%");
    QCOMPARE(f.editcombo.Text(), "");  // the key opens, it does not type
    gui::testing::TypeText(f.editcombo, "42");
    pressEnter();
    QCOMPARE(f.table.TextMatrix(1, kRatio), "42");
    QVERIFY(!f.editframe.Visible());
    QVERIFY(HasFocus(f.table));

    PressKey(f.table, Qt::Key_X);
    QVERIFY(f.editframe.Visible());
    QCOMPARE(f.editcombo.Text(), "42");
    QTRY_VERIFY(HasFocus(f.editcombo));
}

void TestChannels::nextCommitsPreviousDoesNot() {
    MainForm& f = form();
    openCell(1, kComment);
    replaceEntry("later");
    Click(f.previous);
    QCOMPARE(f.CurrentStep, std::int16_t(1));
    QCOMPARE(f.table.TextMatrix(1, kComment), "");
    QCOMPARE(f.editframe.Tag(), QString::number(1 * 15 + kComment));

    // The Next that comes back commits the edit left open.
    Click(f.nexts);
    QCOMPARE(f.CurrentStep, std::int16_t(2));
    QCOMPARE(f.table.TextMatrix(1, kComment), "later");
    QVERIFY(!f.editframe.Visible());

    openCell(1, kLabel);
    replaceEntry("now");
    Click(f.nexts);
    QCOMPARE(f.CurrentStep, std::int16_t(3));
    QCOMPARE(f.table.TextMatrix(1, kLabel), "now");
}

void TestChannels::randomEntriesStayInBounds() {
    struct Bounds {
        int editClass, low, high;
    };
    const Bounds classes[] = {{2, 0, 100}, {3, -1, 255}, {4, 1, 511}, {5, 0, 511}, {6, 1, 20}};
    const QString alphabet = QStringLiteral("0123456789.-+eE x5");
    QRandomGenerator random(20240611);
    for (int i = 0; i < 20000; ++i) {
        QString text;
        const int length = random.bounded(1, 9);
        for (int k = 0; k < length; ++k) text += alphabet[random.bounded(alphabet.size())];
        const std::optional<std::int16_t> value = common::LeadingInt16(text);
        for (const Bounds& b : classes) {
            const std::optional<QString> stored =
                channels::CommittedText(b.editClass, text, value, 0);
            if (!stored) continue;
            bool ok = false;
            const int n = stored->toInt(&ok);
            QVERIFY2(ok && n >= b.low && n <= b.high, qPrintable(text));
            QCOMPARE(*stored, QString::number(n));
        }
    }
}
