#include "channels/channel_table.h"

#include <QString>
#include <algorithm>
#include <limits>

#include "channels/cell_editor.h"
#include "common/number.h"
#include "gui/grid_model.h"
#include "wizard/main_form.h"

namespace {

constexpr int kFirstChannelRow = 1;
constexpr int kDmx1Col = 1;
constexpr int kDmx2Col = 2;

}  // namespace

bool channels::RoomForChannelRow(const MainForm& f) {
    return f.table.Rows() - 1 < kMaxChannelRows;
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
}

void adddef_Click(MainForm& f) {
    f.defaultsframe.setVisible(true);
}

double channels::NextOffset(const MainForm& f) {
    const gui::GridModel& table = *f.table.model();
    const int rows = table.Rows();
    double candidate = 1;
    for (int row = kFirstChannelRow; row < rows; ++row) {
        for (const int col : {kDmx1Col, kDmx2Col}) {
            const double offset = common::LeadingNumber(table.Cell(row, col));
            // The next offset is rounded as it is stored.
            if (offset >= candidate) candidate = common::RoundHalfEven(offset + 1);
        }
    }
    return candidate;
}

std::int16_t NextFreeDmx(const MainForm& f) {
    // The result is a 16-bit integer: it cannot climb past the largest 16-bit value.
    constexpr double kMax = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(channels::NextOffset(f), kMax));
}
