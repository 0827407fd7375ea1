#include "range_tests.h"

#include "common/number.h"
#include "gui/grid.h"
#include "ranges/range_table.h"

QString RangeRows(const gui::Grid& range) {
    QStringList rows;
    for (int r = 1; r < range.Rows(); ++r)
        rows << QStringList{range.TextMatrix(r, 0), range.TextMatrix(r, 1), range.TextMatrix(r, 2),
                            range.TextMatrix(r, 3)}
                    .join(u'|');
    return rows.join(u',');
}

void SetRangeRows(MainForm& f, const QString& rows) {
    rclear_Click(f);
    for (const QString& row : rows.split(u',')) f.range.AddItem(QString(row).replace(u'|', u'\t'));
    f.range.RemoveItem(1);
}

QString TilingFault(const gui::Grid& range) {
    if (range.Rows() < 2 || range.Rows() > 257) return QStringLiteral("%1 rows").arg(range.Rows());
    double next = 0;
    for (int r = 1; r < range.Rows(); ++r) {
        const auto from = common::WholeNumber(range.TextMatrix(r, 1));
        const auto to = common::WholeNumber(range.TextMatrix(r, 2));
        if (!from || !to || *from != next || *from > *to)
            return QStringLiteral("row %1 of %2").arg(r).arg(RangeRows(range));
        next = *to + 1;
    }
    return next == 256 ? QString() : QStringLiteral("last row ends at %1").arg(next - 1);
}

void EditCell(MainForm& f, int row, int col, const QString& text) {
    f.range.setRow(row);
    f.range.setCol(col);
    range_DblClick(f);
    f.redittext.setText(text);
    range_Click(f);
}

RIGWRIGHT_TEST_MAIN(TestRanges)
