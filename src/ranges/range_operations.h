#pragma once
// Merge and auto split of the range grid.

struct MainForm;

void rmerge_Click(MainForm& f);
void Command2_Click(MainForm& f);
void Command1_Click(MainForm& f);
void rgo_Click(MainForm& f);

// While the auto split frame shows, Return presses OK and Escape presses X, wherever the
// focus stands on the form. Installed once, by the form's wiring.
void WireAutoSplitKeys(MainForm& f);
