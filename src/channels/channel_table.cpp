#include "channels/channel_table.h"

#include <QString>

#include "channels/cell_editor.h"
#include "common/channel_grid.h"
#include "gui/grid_model.h"
#include "wizard/main_form.h"

bool channels::RoomForChannelRow(const MainForm& f) {
    return f.table.Rows() - 1 < common::kMaxChannelRows;
}

void add_Click(MainForm& f) {
    table_Click(f);
    if (!channels::RoomForChannelRow(f)) return;
    // The new row's index, before it exists, is its mark; all other cells stay empty.
    f.table.AddItem(QString::number(f.table.Rows()));
}

void delete_Click(MainForm& f) {
    table_Click(f);
    // One channel row always stands.
    if (f.table.Rows() > 2) f.table.RemoveItem(f.table.Row());
    // The focus stays on the button, so a screen reader hears nothing of the grid by itself.
    const int channels = NextFreeDmx(f) - 1;
    f.main.Announce(QStringLiteral("%1 channel%2").arg(channels).arg(channels == 1 ? "" : "s"));
}

void adddef_Click(MainForm& f) {
    f.defaultsframe.setVisible(true);
    // The focus stays on "add default": the panel that came is said.
    f.main.Announce(f.defaultsframe.Caption());
}

double channels::NextOffset(const MainForm& f) {
    return common::NextOffset(f.table.model()->Body());
}

std::int16_t NextFreeDmx(const MainForm& f) {
    return static_cast<std::int16_t>(common::ChannelCount(f.table.model()->Body()) + 1);
}
