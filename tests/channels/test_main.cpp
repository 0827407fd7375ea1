#include "channels_test.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include "gui/testing.h"

void TestChannels::init() {
    FormFixture::init();
    if (QTest::currentTestFailed()) return;
    goToPage(2);
}

QString TestChannels::rowText(int row) {
    QStringList cells;
    for (int c = 0; c < form().table.Cols(); ++c) cells << form().table.TextMatrix(row, c);
    return cells.join(u';');
}

QStringList TestChannels::bodyRows() {
    QStringList rows;
    for (int r = 1; r < form().table.Rows(); ++r) rows << rowText(r);
    return rows;
}

void TestChannels::setOffsets(const QStringList& rows) {
    gui::Grid& table = form().table;
    while (table.Rows() > 2) table.RemoveItem(table.Rows() - 1);
    for (int i = 0; i < rows.size(); ++i) {
        const QStringList cells = rows[i].split(u';');
        if (i == 0) {
            table.setTextMatrix(1, 1, cells.value(0));
            table.setTextMatrix(1, 2, cells.value(1));
        } else {
            table.AddItem(QStringLiteral("#\t") + cells.value(0) + u'\t' + cells.value(1));
        }
    }
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
    gui::testing::PressKey(form().editcombo, Qt::Key_A, Qt::ControlModifier);
    if (!text.isEmpty()) gui::testing::TypeText(form().editcombo, text);
    if (text.isEmpty()) gui::testing::PressKey(form().editcombo, Qt::Key_Delete);
}

void TestChannels::pressEnter() {
    gui::testing::PressKey(form().editcombo, Qt::Key_Return);
}

RIGWRIGHT_TEST_MAIN(TestChannels)
