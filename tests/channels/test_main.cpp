#include <QAbstractItemModelTester>
#include <QTest>

#include "channels_test.h"
#include "gui/testing.h"

void TestChannels::init() {
    FormFixture::init();
    if (!QTest::currentTestFailed()) goToPage(2);
}

QStringList TestChannels::bodyRows() {
    QStringList rows;
    for (int r = 1; r < form().table.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < form().table.Cols(); ++c) cells << form().table.TextMatrix(r, c);
        rows << cells.join(u';');
    }
    return rows;
}

void TestChannels::watchModel() {
    QAbstractItemModel* model = gui::testing::ModelOf(form().table);
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::QtTest,
                                 model);
}

void TestChannels::openCell(int row, int col) {
    gui::testing::DoubleClickCell(form().table, row, col);
    gui::testing::ReleaseCell(form().table, row, col);
}

void TestChannels::replaceEntry(const QString& text) {
    QTRY_VERIFY(gui::testing::HasFocus(form().editcombo));
    gui::testing::PressKey(Qt::Key_A, Qt::ControlModifier);
    gui::testing::PressKey(Qt::Key_Delete);  // an empty text types nothing over the selection
    gui::testing::TypeKeys(text);
}

RIGWRIGHT_TEST_MAIN(TestChannels)
