#include "ranges/range_operations.h"

#include <algorithm>

#include "common/number.h"
#include "ranges/range_picture.h"
#include "ranges/range_rules.h"
#include "ranges/range_table.h"
#include "wizard/main_form.h"

namespace {

int NumberIn(const QString& text) {
    return common::LeadingInt16(text).value_or(0);
}

}  // namespace

void rmerge_Click(MainForm& f) {
    const int row = f.range.Row();
    const int rowSel = f.range.RowSel();
    if (row == rowSel) return;
    const int first = std::min(row, rowSel);
    const int last = std::max(row, rowSel);
    f.range.setTextMatrix(first, 2, f.range.TextMatrix(last, 2));
    for (int i = 0; i < last - first; ++i) f.range.RemoveItem(first + 1);
    DrawRangePicture(f);
}

void Command2_Click(MainForm& f) {
    const int row = f.range.Row();
    if (row <= 0 || row >= f.range.Rows()) return;
    const int from = NumberIn(f.range.TextMatrix(row, 1));
    const int to = NumberIn(f.range.TextMatrix(row, 2));
    if (from == to) return;
    const int width = to - from + 1;
    f.autoframe.setTag(QString::number(row));
    f.autoframe.setVisible(true);
    f.autolabel.setCaption(
        QStringLiteral("range # from %1 to %2 (width: %3)").arg(from).arg(to).arg(width));
    const QString count = QString::number(width);
    f.arno.setText(count);
    f.arno.SetFocus();
    f.arno.setSelStart(0);
    f.arno.setSelLength(static_cast<int>(count.size()));
}

void Command1_Click(MainForm& f) {
    f.autoframe.setVisible(false);
}

void rgo_Click(MainForm& f) {
    const double pieces = common::LeadingNumber(f.arno.Text());
    if (!(pieces >= 2)) return;
    const int row = NumberIn(f.autoframe.Tag());
    // The row the frame was opened on may have gone in a clear or a merge since.
    if (row <= 0 || row >= f.range.Rows()) {
        f.autoframe.setVisible(false);
        return;
    }
    const std::vector<SplitCut> cuts = SplitCutPoints(pieces, NumberIn(f.range.TextMatrix(row, 1)),
                                                      NumberIn(f.range.TextMatrix(row, 2)));
    if (cuts.empty()) return;
    // Each cut goes through the commit of the editor, as if typed into the row's `to` cell.
    const QString prefix = f.arpre.Text() + u' ';
    for (const SplitCut& cut : cuts) {
        f.reditframe.setTag(QString::number(row));
        f.redittext.setTag(QStringLiteral("2"));
        f.redittext.setText(QString::number(cut.point));
        range_Click(f);
        f.range.setTextMatrix(row, 3, prefix + QString::number(cut.index));
    }
    // The focus goes to the grid with the new ranges before the panel hides; a Return there
    // opens the editor and leaves the page no way. The focus does not tell the new count.
    f.range.SetFocus();
    f.autoframe.setVisible(false);
    const int ranges = f.range.Rows() - 1;
    f.main.Announce(QStringLiteral("%1 range%2").arg(ranges).arg(ranges == 1 ? "" : "s"));
}
