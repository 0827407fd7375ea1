#include "channels/presets.h"

#include <limits>

#include "channels/cell_editor.h"
#include "channels/channel_table.h"
#include "common/channel_presets.h"
#include "wizard/main_form.h"

namespace {

using common::PresetRow;

void AppendPresetRow(MainForm& f, const PresetRow& preset) {
    const int offset = NextFreeDmx(f);
    const int lowByte = preset.sixteenBit ? offset + 1 : 0;
    const QString row = QStringLiteral("#;") + QString::number(offset) + u';' +
                        QString::number(lowByte) + u';' + QLatin1String(preset.channelType) +
                        QLatin1String(preset.tail);
    f.table.AddItem(SemicolonsToTabs(row));
}

// A preset comes whole or not at all: every row it adds needs a place below the row cap,
// and every offset it takes, the low byte of a 16-bit row too, a 16-bit value of its own.
bool RoomForPreset(const MainForm& f, int index) {
    int rows = 0;
    int offsets = 0;
    for (const PresetRow& row : common::PresetRows()) {
        if (row.index != index) continue;
        ++rows;
        offsets += row.sixteenBit ? 2 : 1;
    }
    const double lastOffset = channels::NextOffset(f) + offsets - 1;
    return f.table.Rows() - 1 + rows <= common::kMaxChannelRows &&
           lastOffset <= std::numeric_limits<std::int16_t>::max();
}

}  // namespace

void Command6_Click(MainForm& f, std::int16_t Index) {
    // An open edit is committed first, so that the next free offset sees its value.
    table_Click(f);
    if (Index >= 0 && Index < common::kPresetCount && RoomForPreset(f, Index)) {
        for (const PresetRow& row : common::PresetRows())
            if (row.index == Index) AppendPresetRow(f, row);
    }
    f.defaultsframe.setVisible(false);
}

QString SemicolonsToTabs(const QString& text) {
    QString tabbed = text;
    tabbed.replace(u';', u'\t');
    return tabbed;
}
