// Placeholder handlers until the channel table is built.
#include "channels/cell_editor.h"
#include "channels/channel_table.h"
#include "channels/presets.h"

void add_Click(MainForm&) {}
void delete_Click(MainForm&) {}
void adddef_Click(MainForm&) {}
std::int16_t NextFreeDmx(const MainForm&) {
    return 1;
}
void table_Click(MainForm&) {}
void table_DblClick(MainForm&) {}
void table_KeyPress(MainForm&, int) {}
void editcombo_KeyPress(MainForm&, int) {}
void FillEditCombo(MainForm&, const QString&) {}
void Command6_Click(MainForm&, std::int16_t) {}
QString SemicolonsToTabs(const QString& text) {
    return text;
}
