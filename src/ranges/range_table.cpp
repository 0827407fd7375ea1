#include "ranges/range_table.h"

#include "common/number.h"
#include "ranges/range_picture.h"
#include "ranges/range_rules.h"
#include "wizard/main_form.h"

namespace {

constexpr int kFromCol = 1;
constexpr int kToCol = 2;
constexpr int kLabelCol = 3;

// Bounds and editor tags hold integer text; read them as the rest of the wizard reads numbers.
int NumberIn(const QString& text) {
    return common::LeadingInt16(text).value_or(0);
}

int Bound(const gui::Grid& range, int row, int col) {
    return NumberIn(range.TextMatrix(row, col));
}

QString NewRow(int from, int to) {
    return QStringLiteral("#\t%1\t%2").arg(from).arg(to);
}

// A bound typed into row `row`: accepted only within the row's neighbours, and then the
// range is cut in two. The new row holds the values that were freed.
void CommitBound(MainForm& f, int row, int col, int value) {
    gui::Grid& range = f.range;
    const int prevTo = row == 1 ? -1 : Bound(range, row - 1, kToCol);
    const int nextFrom = row == range.Rows() - 1 ? 256 : Bound(range, row + 1, kFromCol);
    if (col == kFromCol) {
        if (value > Bound(range, row, kToCol) || value <= prevTo) return;
        range.setTextMatrix(row, kFromCol, QString::number(value));
        if (value > prevTo + 1) range.AddItem(NewRow(prevTo + 1, value - 1), row);
    } else {
        if (value < Bound(range, row, kFromCol) || value >= nextFrom) return;
        range.setTextMatrix(row, kToCol, QString::number(value));
        if (value < nextFrom - 1) range.AddItem(NewRow(value + 1, nextFrom - 1), row + 1);
    }
}

}  // namespace

void rclear_Click(MainForm& f) {
    while (f.range.Rows() > 2) f.range.RemoveItem(1);
    f.range.setTextMatrix(1, 0, QStringLiteral("1"));
    f.range.setTextMatrix(1, kFromCol, QStringLiteral("0"));
    f.range.setTextMatrix(1, kToCol, QStringLiteral("255"));
    f.range.setTextMatrix(1, kLabelCol, QStringLiteral("label here"));
    DrawRangePicture(f);
}

void range_DblClick(MainForm& f) {
    const int row = f.range.Row();
    const int col = f.range.Col();
    // The editor is named and filled before it shows and takes the focus: a screen reader
    // says what has the focus as it gets it, here which bound of which row is edited.
    f.reditframe.setCaption(f.range.TextMatrix(0, col), QStringLiteral("row %1").arg(row));
    f.reditframe.setTag(QString::number(row));
    f.redittext.setTag(QString::number(col));
    f.redittext.setText(QString());
    f.redittext.setText(f.range.Text());
    f.reditframe.setLeft(f.range.Left() + f.range.ColPos(col));
    f.reditframe.setTop(f.range.Top() + f.range.RowPos(row));
    f.reditframe.setVisible(true);
    f.redittext.SetFocus();
}

void range_KeyPress(MainForm& f, int /*keyCode*/) {
    range_DblClick(f);
}

void redittext_KeyPress(MainForm& f, int keyCode) {
    if (keyCode != 13) return;
    f.range.SetFocus();
    range_Click(f);
}

void range_Click(MainForm& f) {
    const QString text = f.redittext.Text();
    const int row = NumberIn(f.reditframe.Tag());
    const int col = NumberIn(f.redittext.Tag());
    // A row that a clear or a merge removed while the editor stood open takes nothing.
    if (row > 0 && col > 0 && row < f.range.Rows()) {
        if (col == kFromCol || col == kToCol) {
            if (const auto value = BoundEntry(text)) CommitBound(f, row, col, *value);
        } else if (col == kLabelCol) {
            f.range.setTextMatrix(row, kLabelCol, text);
        }
    }
    f.reditframe.setVisible(false);
    f.reditframe.setTag(QStringLiteral("0"));
    DrawRangePicture(f);
}
