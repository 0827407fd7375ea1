#include "channels/cell_editor.h"

#include <QStringList>

#include "channels/edit_classes.h"
#include "common/number.h"
#include "wizard/main_form.h"

namespace {

constexpr int kEnter = 13;

// The open edit's target cell as a linear index, row * Cols + col; 0 when none is open.
int EditTarget(const MainForm& f) {
    return f.editframe.Tag().toInt();
}

}  // namespace

void table_DblClick(MainForm& f) {
    gui::Grid& table = f.table;
    const int row = table.Row();
    const int col = table.Col();

    // The frame lies on the current cell, corner on corner, wherever that takes it.
    f.editframe.setVisible(true);
    f.editframe.setLeft(table.Left() + table.ColPos(col));
    f.editframe.setTop(table.Top() + table.RowPos(row));
    f.editframe.setCaption(table.TextMatrix(0, col));
    f.editframe.setTag(QString::number(row * table.Cols() + col));

    f.editcombo.Clear();
    const int editClass = channels::EditClassOfColumn(col);
    const QString list = channels::ChoiceListOfColumn(col);
    if (!list.isEmpty()) FillEditCombo(f, list);
    f.editcombo.setTag(QString::number(editClass));

    if (f.editframe.Visible()) {
        f.editcombo.setSelText(table.Text());
        f.editcombo.SetFocus();
    }
}

void table_KeyPress(MainForm& f, int /*keyCode*/) {
    // Any key that gives a character opens the editor; the key itself goes nowhere.
    table_DblClick(f);
}

void table_Click(MainForm& f) {
    const QString text = f.editcombo.Text();
    // A leading number that does not fit into 16 bits gives no value at all.
    const std::optional<std::int16_t> entryValue = common::LeadingInt16(text);
    const int target = EditTarget(f);
    gui::Grid& table = f.table;
    // A target whose row has gone since the edit opened is dropped.
    if (target > 0 && target / table.Cols() < table.Rows()) {
        const int editClass = f.editcombo.Tag().toInt();
        const std::optional<QString> stored =
            channels::CommittedText(editClass, text, entryValue, f.editcombo.ListIndex());
        if (stored) table.setTextArray(target, *stored);
    }
    f.editframe.setVisible(false);
    f.editframe.setTag(QStringLiteral("0"));
    f.defaultsframe.setVisible(false);
}

void editcombo_KeyPress(MainForm& f, int keyCode) {
    if (keyCode != kEnter) return;
    f.table.SetFocus();
    table_Click(f);
}

void FillEditCombo(MainForm& f, const QString& list) {
    if (list.isEmpty()) return;
    // Every ";" ends an item; what follows the last one is the last item, even when empty.
    for (const QString& item : list.split(u';')) f.editcombo.AddItem(item);
}
