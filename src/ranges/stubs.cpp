// Placeholder handlers until the range table is built.
#include "ranges/range_operations.h"
#include "ranges/range_picture.h"
#include "ranges/range_table.h"

void rclear_Click(MainForm&) {}
void range_DblClick(MainForm&) {}
void range_KeyPress(MainForm&, int) {}
void redittext_KeyPress(MainForm&, int) {}
void range_Click(MainForm&) {}
void rmerge_Click(MainForm&) {}
void Command2_Click(MainForm&) {}
void Command1_Click(MainForm&) {}
void rgo_Click(MainForm&) {}
void DrawRangePicture(MainForm&) {}
std::int32_t RandomColour() {
    return 0;
}
