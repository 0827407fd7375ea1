// The floating cell editor, driven as a user drives it: double click, type, Enter.
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
        {kDmx2, "0", "0"}, {kDmx2, "511", "511"}, {kDmx2, "512", "7"}, {kDmx2, "-1", "7"},
        {kKey, "0", "7"}, {kKey, "1", "1"}, {kKey, "20", "20"}, {kKey, "21", "7"},
        {kKey, "12x", "12"}, {kRatio, "0", "0"}, {kRatio, "-1", "7"}, {kRatio, "100.5", "100"},
        {kRatio, "101", "7"}, {kRatio, "050.0", "50"}, {kLocate, "-1", "-1"},
        {kLocate, "-1.5", "7"}, {kLocate, "-0.4", "0"}, {kHigh, "255", "255"}, {kLow, "256", "7"},
        // No leading number gives 0, stored where 0 is allowed; beyond 16 bits there is no
        // value at all, not even 0.
        {kDmx1, "abc", "7"}, {kDmx2, "abc", "0"}, {kKey, "abc", "7"}, {kHigh, "abc", "0"},
        {kDmx2, "40000", "7"},
        // Committed at once, as the cell stands (null typed).
        {kDmx2, nullptr, "0", ""}, {kDmx1, nullptr, "", ""}, {kLocate, nullptr, "-1", "-1"},
        // Free text is stored as typed.
        {kLabel, "  a b  ", "  a b  "}, {kLabel, "3.50", "3.50"}, {kComment, "", ""},
        {kComment, nullptr, "x", "x"}, {kComment, "40000", "40000"},
        // A choice column stores only a picked item.
        {6, "1> A (left)", "61", "61"}, {6, "61> B (right)", "", ""}, {4, nullptr, "E>", "E>"}, {4, "x", "E>", "E>", 2},
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
    form().table.setTextMatrix(1, col, old);
    openCell(1, col);
    QCOMPARE(form().editcombo.Text(), old);
    if (pick >= 0) PickItem(form().editcombo, pick);
    // Into a choice list the text is typed onto the old one.
    if (pick >= 0 || typed.isNull() || channels::EditClassOfColumn(col) == channels::kChoice)
        TypeText(form().editcombo, typed);
    else
        replaceEntry(typed);
    PressKey(form().editcombo, Qt::Key_Return);
    QCOMPARE(form().table.TextMatrix(1, col), expected);
    QVERIFY(!form().editframe.Visible());
    QCOMPARE(form().editframe.Tag(), "0");
    QCOMPARE(form().errormessage[2].Caption(), QString());
}

void TestChannels::frameAndKeys() {
    MainForm& f = form();
    Click(f.add);
    for (const int col : {4, 5, 14}) {
        f.table.setTextMatrix(2, col, QStringLiteral("old"));
        openCell(2, col);
        // Only the choice column has a list: the one from before must not linger.
        QCOMPARE(f.editcombo.ListCount(), col == 4 ? 23 : 0);
        QCOMPARE(f.editcombo.ListIndex(), -1);
        QCOMPARE(f.editframe.Caption(), f.table.TextMatrix(0, col));
        QCOMPARE(f.editframe.Left(), f.table.Left() + f.table.ColPos(col));
        QCOMPARE(f.editframe.Top(), f.table.Top() + f.table.RowPos(2));
        QCOMPARE(f.editframe.Tag(), QString::number(2 * 15 + col));
        QCOMPARE(f.editcombo.Text(), "old");
        QTRY_VERIFY(HasFocus(f.editcombo));
    }
    // By keys alone: a key on the grid opens the editor, but is not typed into it.
    PressKey(f.editcombo, Qt::Key_Return);
    ClickCell(f.table, 1, kRatio);
    PressKey(f.table, Qt::Key_5);
    QVERIFY(f.editframe.Visible());
    QCOMPARE(f.editcombo.Text(), "");
    TypeText(f.editcombo, "42");
    PressKey(f.editcombo, Qt::Key_Return);
    QCOMPARE(f.table.TextMatrix(1, kRatio), "42");
    QVERIFY(!f.editframe.Visible());
    QVERIFY(HasFocus(f.table));
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
    QCOMPARE(f.editframe.Tag(), QString::number(1 * 15 + kComment));

    // With no edit open, a click closes the preset panel and changes no cell, whatever the
    // edit box still holds.
    PressKey(f.editcombo, Qt::Key_Return);
    f.editcombo.setText(QStringLiteral("5"));
    Click(f.adddef);
    const QStringList before = bodyRows();
    ClickCell(f.table, 1, kDmx1);
    QVERIFY(!f.defaultsframe.Visible());
    QVERIFY(!f.editframe.Visible());
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

    openCell(1, kLabel);
    replaceEntry("now");
    Click(f.nexts);
    QCOMPARE(f.CurrentStep, std::int16_t(3));
    QCOMPARE(f.table.TextMatrix(1, kLabel), "now");
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
