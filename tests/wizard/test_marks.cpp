// The marks and heads of both grids select as the grid control does.
#include <QTest>

#include "gui/testing.h"
#include "support/form_fixture.h"

using namespace gui::testing;

class TestMarks : public FormFixture {
    Q_OBJECT

  private slots:
    // Mark 2, then Shift on mark 3: rows 2 to 3 are selected and "merge" joins them.
    void marksSelectRowsForMerge() {
        MainForm& f = form();
        goToPage(6);
        f.range.setTextMatrix(1, 2, QStringLiteral("9"));
        f.range.AddItem(QStringLiteral("#\t10\t19\tB"));
        f.range.AddItem(QStringLiteral("#\t20\t255\tC"));
        ClickMark(f.range, 2);
        ClickMark(f.range, 3, Qt::ShiftModifier);
        QCOMPARE(QPoint(f.range.Row(), f.range.RowSel()), QPoint(2, 3));
        Click(f.rmerge);
        QCOMPARE(f.range.Rows(), 3);
        QCOMPARE(f.range.TextMatrix(2, 2), QStringLiteral("255"));
    }

    // A double click on a head or a mark opens the editor on the cell it made current.
    void doubleClickOpensEditor_data() {
        QTest::addColumn<int>("col");  // a head's column, or 0 for the mark of row 2
        QTest::addColumn<int>("cell");
        QTest::newRow("head of column 4") << 4 << 1 * 15 + 4;
        QTest::newRow("mark of row 2") << 0 << 2 * 15 + 1;
    }
    void doubleClickOpensEditor() {
        QFETCH(int, col);
        QFETCH(int, cell);
        MainForm& f = form();
        goToPage(2);
        Click(f.add);
        ClickCell(f.table, 1, 1);
        DoubleClickHeadOrMark(f.table, col, 2);
        QVERIFY(f.editframe.Visible());
        QCOMPARE(f.editframe.Tag().toInt(), cell);
    }
};

RIGWRIGHT_TEST_CLASS(TestMarks)
#include "test_marks.moc"
