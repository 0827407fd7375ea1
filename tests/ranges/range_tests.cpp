#include "range_tests.h"

#include "common/number.h"
#include "gui/grid.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"

QStringList RangeRows(const gui::Grid& range) {
    QStringList rows;
    for (int r = 1; r < range.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < 4; ++c) cells << range.TextMatrix(r, c);
        rows << cells.join(u'|');
    }
    return rows;
}

void SetRangeRows(MainForm& f, const QStringList& rows) {
    rclear_Click(f);
    for (const QString& row : rows) f.range.AddItem(QString(row).replace(u'|', u'\t'));
    f.range.RemoveItem(1);
}

QString TilingFault(const gui::Grid& range) {
    const int rows = range.Rows();
    if (rows < 2 || rows > 257) return QStringLiteral("row count %1").arg(rows);
    int expectedFrom = 0;
    for (int r = 1; r < rows; ++r) {
        const auto from = common::WholeNumber(range.TextMatrix(r, 1));
        const auto to = common::WholeNumber(range.TextMatrix(r, 2));
        if (!from || !to) return QStringLiteral("row %1 holds no numbers").arg(r);
        if (*from != expectedFrom) return QStringLiteral("row %1 starts at %2").arg(r).arg(*from);
        if (*from > *to) return QStringLiteral("row %1 runs backwards").arg(r);
        expectedFrom = static_cast<int>(*to) + 1;
    }
    if (expectedFrom != 256) return QStringLiteral("last row ends at %1").arg(expectedFrom - 1);
    return {};
}

void EditCell(MainForm& f, int row, int col, const QString& text) {
    f.range.setRow(row);
    f.range.setCol(col);
    range_DblClick(f);
    f.redittext.setText(text);
    range_Click(f);
}

void TestRanges::init() {
    FormFixture::init();
    // Idempotent, so it does no harm where the form's wiring installs it already.
    WireAutoSplitKeys(form());
}

RIGWRIGHT_TEST_MAIN(TestRanges)
