#include "channels/presets.h"

#include <limits>

#include "channels/cell_editor.h"
#include "channels/channel_table.h"
#include "wizard/main_form.h"

namespace {

constexpr const char* kHtp = "HTP (usually dimmer)";
constexpr const char* kFadeable = "FADEABLE LTP";
constexpr const char* kIndexed = "INDEXED LTP (not fadeable, such as gobo)";

enum Width : bool { k8Bit = false, k16Bit = true };

// One ready-made row: the button that adds it, its width, its channel type and the fixed
// tail from the attribute type to the comment. A 16-bit row takes the offset after its own
// as its low byte. The colour mixes add three rows, in this order, each at the next free
// offset.
struct PresetRow {
    int index;
    Width width;
    const char* channelType;
    const char* tail;
};

constexpr int kPresetCount = 25;

constexpr PresetRow kPresetRows[] = {
    {0, k8Bit, kFadeable, ";E>;3;61;Pan;1;N;100;128;0;0;default"},
    {1, k16Bit, kFadeable, ";E>;3;61;Pan;1;N;100;128;0;0;default"},
    {2, k8Bit, kFadeable, ";F>;3;1;Tilt;1;N;100;128;0;0;default"},
    {3, k16Bit, kFadeable, ";F>;3;1;Tilt;1;N;100;128;0;0;default"},
    {4, k8Bit, kIndexed, ";A>;4;1;Color1;1;N;100;0;0;0;default"},
    {5, k8Bit, kIndexed, ";A>;4;61;Color2;1;N;100;0;0;0;default"},
    {6, k8Bit, kFadeable, ";B>;10;1;Cyan;1;N;100;0;0;255;default"},
    {6, k8Bit, kFadeable, ";C>;10;61;Magenta;1;N;100;0;0;255;default"},
    {6, k8Bit, kFadeable, ";D>;9;61;Yellow;1;N;100;0;255;51;default"},
    {7, k8Bit, kFadeable, ";T>;10;1;Red;1;N;100;255;255;0;default"},
    {7, k8Bit, kFadeable, ";U>;10;61;Green;1;N;100;255;255;0;default"},
    {7, k8Bit, kFadeable, ";V>;9;61;Blue;1;N;100;255;0;229;default"},
    {8, k8Bit, kIndexed, ";0>;9;1;CTO;1;N;100;0;0;0;default"},
    {9, k8Bit, kFadeable, ";G>;2;1;Iris;1;N;100;255;0;0;default"},
    {10, k8Bit, kFadeable, ";L>;5;61;Focus;1;N;100;128;0;0;default"},
    {11, k8Bit, kFadeable, ";Q>;5;1;Zoom;1;N;100;127;0;0;default"},
    {12, k8Bit, kHtp, ";H>;1;1;Dimmer;1;N;100;128;0;0;default"},
    {13, k8Bit, kFadeable, ";O>;2;61;Shutter;1;N;100;128;0;0;default"},
    {14, k8Bit, kIndexed, ";I>;6;61;Gobo1;1;N;100;0;0;0;default"},
    {15, k8Bit, kIndexed, ";J>;6;1;Gobo2;1;N;100;0;0;0;default"},
    {16, k8Bit, kFadeable, ";K>;7;61;Gobo1 Rot;1;N;100;0;0;0;default"},
    {17, k8Bit, kFadeable, ";M>;7;1;Gobo2 Rot;1;N;100;0;0;0;default"},
    {18, k8Bit, kFadeable, ";0>;8;61;Speed;1;N;100;0;0;0;default"},
    {19, k8Bit, kFadeable, ";0>;19;61;Effect...;1;N;100;0;0;0;default"},
    {20, k8Bit, kIndexed, ";0>;18;61;Control;1;N;100;0;0;0;default"},
    {21, k8Bit, kIndexed, ";P>;17;61;Prism;1;N;100;0;0;0;default"},
    {22, k8Bit, kFadeable, ";R>;17;1;Prism Rot;1;N;100;0;0;0;default"},
    {23, k8Bit, kIndexed, ";S>;16;61;Frost;1;N;100;0;0;0;default"},
    {24, k8Bit, kIndexed, ";0>;8;1;Macro;1;N;100;0;0;0;default"},
};

void AppendPresetRow(MainForm& f, const PresetRow& preset) {
    const int offset = NextFreeDmx(f);
    const int lowByte = preset.width == k16Bit ? offset + 1 : 0;
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
    for (const PresetRow& row : kPresetRows) {
        if (row.index != index) continue;
        ++rows;
        offsets += row.width == k16Bit ? 2 : 1;
    }
    const double lastOffset = channels::NextOffset(f) + offsets - 1;
    return f.table.Rows() - 1 + rows <= channels::kMaxChannelRows &&
           lastOffset <= std::numeric_limits<std::int16_t>::max();
}

}  // namespace

void Command6_Click(MainForm& f, std::int16_t Index) {
    // An open edit is committed first, so that the next free offset sees its value.
    table_Click(f);
    if (Index >= 0 && Index < kPresetCount && RoomForPreset(f, Index)) {
        for (const PresetRow& row : kPresetRows)
            if (row.index == Index) AppendPresetRow(f, row);
    }
    f.defaultsframe.setVisible(false);
}

QString SemicolonsToTabs(const QString& text) {
    QString tabbed = text;
    tabbed.replace(u';', u'\t');
    return tabbed;
}
