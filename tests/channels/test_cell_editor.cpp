// The floating cell editor, driven by keys to the focus and clicks where a mouse lands.
#include <QPoint>
#include <QTest>

#include "channels/edit_classes.h"
#include "channels_test.h"
#include "gui/testing.h"

using namespace gui::testing;

enum Col { kDmx1 = 1, kDmx2, kKey = 5, kLabel = 7, kRatio = 10, kLocate, kHigh, kLow, kComment };

// By keys alone: a key on the grid opens the editor without being typed; Enter stores the entry.
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
        {kDmx1, "3.5", "4"}, {kDmx1, "2.5", "2"}, {kDmx1, "0.5", "7"}, {kDmx1, "511", "511"},
        {kDmx1, "511.5", "7"}, {kDmx1, "  +12", "12"}, {kDmx2, "-1", "7"}, {kDmx2, "512", "7"},
        {kKey, "0", "7"}, {kKey, "20", "20"}, {kKey, "21", "7"}, {kKey, "12x", "12"},
        {kRatio, "-1", "7"}, {kRatio, "100.5", "100"}, {kRatio, "101", "7"}, {kRatio, "050.0", "50"},
        {kLocate, "-1", "-1"}, {kLocate, "-1.5", "7"}, {kLocate, "-0.4", "0"}, {kLow, "256", "7"},
        // No leading number gives 0; beyond 16 bits there is no value at all, not even 0.
        {kDmx1, "abc", "7"}, {kDmx2, "abc", "0"}, {kDmx2, "40000", "7"}, {kHigh, "255", "255"},
        // Committed at once, as the cell stands (null typed); free text is stored as typed.
        {kDmx2, nullptr, "0", ""}, {kDmx1, nullptr, "", ""}, {kLocate, nullptr, "-1", "-1"},
        {kLabel, "  a b  ", "  a b  "}, {kComment, "40000", "40000"},
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
    // The frame stands over its cell, titled by its column.
    QCOMPARE(f.editframe.Caption(), f.table.TextMatrix(0, col));
    QCOMPARE(f.editframe.Left(), f.table.Left() + f.table.ColPos(col));
    QCOMPARE(f.editframe.Top(), f.table.Top() + f.table.RowPos(1));
    if (pick >= 0) PickItem(f.editcombo, pick);
    // Into a choice list the text is typed onto the old one or the picked item.
    if (pick >= 0 || typed.isNull() || channels::EditClassOfColumn(col) == channels::kChoice)
        TypeKeys(typed);
    else
        replaceEntry(typed);
    PressKey(Qt::Key_Return);
    QCOMPARE(f.table.TextMatrix(1, col), expected);
    QVERIFY(!f.editframe.Visible() && HasFocus(f.table));
    // With no edit open, a click changes no cell, whatever the edit box still holds; the next
    // key opens the editor again, with no list left over from a choice column.
    f.editcombo.setText(QStringLiteral("5"));
    ClickCell(f.table, 1, kComment);
    QCOMPARE(f.table.TextMatrix(1, col), expected);
    TypeKeys("x");
    QTRY_VERIFY(HasFocus(f.editcombo));
    QCOMPARE(f.editcombo.ListCount(), 0);
}

// Every click on the grid commits the open edit into its own cell and closes the preset panel.
// A click on a cell, a head or a mark moves the current cell; a double click opens the editor.
void TestChannels::clickCommits_data() {
    QTest::addColumn<QString>("where");
    for (const char* where : {"cell", "head", "corner", "mark", "empty area",
                              "double click on a cell", "double click on the empty area"})
        QTest::newRow(where) << where;
}

void TestChannels::clickCommits() {
    QFETCH(QString, where);
    MainForm& f = form();
    Click(f.add);
    openCell(2, kLabel, "abc");
    Click(f.adddef);
    const int to = where.contains(u"cell") || where == u"head" ? kComment : kLabel;
    const int row = where.contains(u"cell") || where == u"mark" ? 1 : 2;
    if (where == u"cell") ClickCell(f.table, 1, kComment);
    if (where == u"head") ClickHead(f.table, kComment);
    if (where == u"corner") ClickHead(f.table, 0);
    if (where == u"mark") ClickMark(f.table, 1);
    if (where == u"empty area") ClickEmptyArea(f.table);
    if (where == u"double click on a cell") openCell(1, kComment);
    if (where == u"double click on the empty area") DoubleClickEmptyArea(f.table);
    QCOMPARE(f.table.TextMatrix(2, kLabel) + f.table.TextMatrix(1, kComment), "abc");
    QCOMPARE(QPoint(f.table.Col(), f.table.Row()), QPoint(to, row));
    QVERIFY(!f.defaultsframe.Visible());
    const bool open = where.startsWith(u"double");
    QCOMPARE(f.editframe.Visible(), open);
    if (open) QCOMPARE(f.editframe.Tag(), QString::number(f.table.Row() * 15 + to));
}
