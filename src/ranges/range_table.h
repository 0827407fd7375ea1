#pragma once
// The range grid `range`: clear, its floating editor and the commit that keeps the rows
// tiling 0 to 255.

struct MainForm;

void rclear_Click(MainForm& f);
void range_DblClick(MainForm& f);
void range_KeyPress(MainForm& f, int keyCode);
void redittext_KeyPress(MainForm& f, int keyCode);
void range_Click(MainForm& f);
