#pragma once
// Merge and auto split of the range grid.

struct MainForm;

void rmerge_Click(MainForm& f);
void Command2_Click(MainForm& f);
void Command1_Click(MainForm& f);
void rgo_Click(MainForm& f);
