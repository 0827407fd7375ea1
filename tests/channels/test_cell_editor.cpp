// The floating cell editor, driven as a user drives it: keys to the focus, clicks where a
// mouse lands.
#include <QRandomGenerator>
#include <QTest>

#include "channels/edit_classes.h"
#include "channels_test.h"
#include "common/number.h"
#include "gui/testing.h"

using namespace gui::testing;

namespace {

enum Col { kDmx1 = 1, kDmx2, kKey = 5, kLabel = 7, kRatio = 10, kLocate, kHigh, kLow, kComment };

}  // namespace

// By keys alone: a key on the grid opens the editor on the current cell without being typed
// into it; the entry is typed or picked, and Enter stores it and gives the grid the focus.
void TestChannels::entry_data() {
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("old");
    QTest::addColumn<int>("pick");  // the list item picked, -1: none
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    struct Row {
        int col;
        const char *typed, *expected, *old = "7";
        int pick = -1;
    };
    // clang-format off
    const Row rows[] = {
        // Each class at its bounds; rounding goes half to even, and the bounds apply after it.
        {kDmx1, "3.5", "4"}, {kDmx1, "2.5", "2"}, {kDmx1, "0.5", "7"}, {kDmx1, "0.6", "1"},
        {kDmx1, "511", "511"}, {kDmx1, "511.5", "7"}, {kDmx1, "  +12", "12"},
        {kDmx2, "0", "0"}, {kDmx2, "512", "7"}, {kDmx2, "-1", "7"},
        {kKey, "0", "7"}, {kKey, "20", "20"}, {kKey, "21", "7"}, {kKey, "12x", "12"},
        {kRatio, "-1", "7"}, {kRatio, "100.5", "100"}, {kRatio, "101", "7"},
        {kRatio, "050.0", "50"}, {kLocate, "-1", "-1"}, {kLocate, "-1.5", "7"},
        {kLocate, "-0.4", "0"}, {kHigh, "255", "255"}, {kLow, "256", "7"},
        // No leading number gives 0, stored where 0 is allowed; beyond 16 bits there is no
        // value at all, not even 0.
        {kDmx1, "abc", "7"}, {kDmx2, "abc", "0"}, {kHigh, "abc", "0"}, {kDmx2, "40000", "7"},
        // Committed at once, as the cell stands (null typed).
        {kDmx2, nullptr, "0", ""}, {kDmx1, nullptr, "", ""}, {kLocate, nullptr, "-1", "-1"},
        // Free text is stored as typed.
        {kLabel, "  a b  ", "  a b  "}, {kComment, "", ""}, {kComment, "40000", "40000"},
        // A choice column stores only a picked item; typing after the pick undoes it.
        {6, "1> A (left)", "61", "61"}, {4, nullptr, "E>", "E>"}, {4, "x", "E>", "E>", 2},
        {6, "", "61> B (right)", "1", 1}, {3, "", "INDEXED LTP (not fadeable, such as gobo)", "", 2},
        {4, "", "0> ---OTHER", "E>", 22}, {8, "", "4 - FD Square", "1", 3},
        {9, "", "C - inverted", "N", 1}};
    // clang-format on
    for (const Row& r : rows)
        QTest::addRow("col %d, '%s' over '%s'", r.col, r.typed ? r.typed : "-", r.old)
            << r.col << r.old << r.pick << (r.typed ? r.typed : QString()) << r.expected;
}

void TestChannels::entry() {
    QFETCH(int, col);
    QFETCH(QString, old);
    QFETCH(int, pick);
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    MainForm& f = form();
    f.table.setTextMatrix(1, col, old);
    ClickCell(f.table, 1, col);
    TypeKeys("9");
    QTRY_VERIFY(HasFocus(f.editcombo));
    QCOMPARE(f.editcombo.Text(), old);
    if (pick >= 0) PickItem(f.editcombo, pick);
    // Into a choice list the text is typed onto the old one or the picked item.
    if (pick >= 0 || typed.isNull() || channels::EditClassOfColumn(col) == channels::kChoice)
        TypeKeys(typed);
    else
        replaceEntry(typed);
    PressKey(Qt::Key_Return);
    QCOMPARE(f.table.TextMatrix(1, col), expected);
    QVERIFY(!f.editframe.Visible() && HasFocus(f.table));
    TypeKeys("x");  // the next key on the grid opens the editor again
    QTRY_VERIFY(HasFocus(f.editcombo));
}

// The frame stands over its cell, titled by its column; only a choice column has a list.
void TestChannels::frame() {
    MainForm& f = form();
    Click(f.add);
    for (const int col : {4, 5, 14}) {
        openCell(2, col);
        QCOMPARE(f.editcombo.ListCount(), col == 4 ? 23 : 0);
        QCOMPARE(f.editcombo.ListIndex(), -1);
        QCOMPARE(f.editframe.Caption(), f.table.TextMatrix(0, col));
        QCOMPARE(f.editframe.Left(), f.table.Left() + f.table.ColPos(col));
        QCOMPARE(f.editframe.Top(), f.table.Top() + f.table.RowPos(2));
    }
}

void TestChannels::clickCommits_data() {
    QTest::addColumn<QString>("where");
    QTest::addColumn<bool>("open");  // the editor is open again afterwards
    for (const char* where : {"cell", "head", "corner", "mark", "empty area"})
        QTest::newRow(where) << where << false;
    QTest::newRow("double click on a cell") << "double click on a cell" << true;
    QTest::newRow("double click on the empty area") << "double click on the empty area" << true;
}

void TestChannels::clickCommits() {
    QFETCH(QString, where);
    QFETCH(bool, open);
    MainForm& f = form();
    Click(f.add);
    openCell(2, kLabel);
    replaceEntry("abc");
    Click(f.adddef);
    const int to = where.contains(u"cell") ? kComment : kLabel;
    if (where == u"cell") ClickCell(f.table, 1, kComment);
    if (where == u"head") ClickHead(f.table, kComment);
    if (where == u"corner") ClickHead(f.table, 0);
    if (where == u"mark") ClickMark(f.table, 1);
    if (where == u"empty area") ClickEmptyArea(f.table);
    if (where == u"double click on a cell") openCell(1, kComment);
    if (where == u"double click on the empty area") DoubleClickEmptyArea(f.table);
    QCOMPARE(f.table.TextMatrix(2, kLabel), "abc");
    QCOMPARE(f.table.TextMatrix(1, kComment), "");
    QCOMPARE(f.table.Col(), to);
    QCOMPARE(f.table.Row(), to == kLabel ? 2 : 1);
    QVERIFY(!f.defaultsframe.Visible());
    QCOMPARE(f.editframe.Visible(), open);
    if (open) QCOMPARE(f.editframe.Tag(), QString::number(f.table.Row() * 15 + to));

    // With no edit open, a click changes no cell, whatever the edit box still holds.
    if (open) PressKey(Qt::Key_Return);
    f.editcombo.setText(QStringLiteral("5"));
    const QStringList before = bodyRows();
    ClickCell(f.table, 1, kDmx1);
    QCOMPARE(bodyRows(), before);
}

void TestChannels::nextCommitsPreviousDoesNot() {
    MainForm& f = form();
    openCell(1, kComment);
    replaceEntry("later");
    Click(f.previous);
    QCOMPARE(f.CurrentStep, std::int16_t(1));
    QCOMPARE(f.table.TextMatrix(1, kComment), "");
    // The Next that comes back commits the edit left open.
    Click(f.nexts);
    QCOMPARE(f.CurrentStep, std::int16_t(2));
    QCOMPARE(f.table.TextMatrix(1, kComment), "later");
    QVERIFY(!f.editframe.Visible());
}

void TestChannels::randomEntriesStayInBounds() {
    const int bounds[][3] = {{2, 0, 100}, {3, -1, 255}, {4, 1, 511}, {5, 0, 511}, {6, 1, 20}};
    const QString alphabet = QStringLiteral("0123456789.-+eE x5");
    QRandomGenerator random(20240611);
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (int k = random.bounded(1, 9); k > 0; --k) text += alphabet[random.bounded(18)];
        for (const auto& [editClass, low, high] : bounds) {
            const std::optional<QString> stored =
                channels::CommittedText(editClass, text, common::LeadingInt16(text), 0);
            if (!stored) continue;
            bool ok = false;
            const int n = stored->toInt(&ok);
            QVERIFY2(ok && n >= low && n <= high && *stored == QString::number(n),
                     qPrintable(text));
        }
    }
}
