#pragma once
// Merge and auto split of the range grid.

struct MainForm;

void rmerge_Click(MainForm& f);
void Command2_Click(MainForm& f);
void Command1_Click(MainForm& f);
void rgo_Click(MainForm& f);

// While the auto split frame shows, Return in its text boxes presses OK and Escape presses X.
// Harmless when installed twice: a press acts only while the frame shows.
void WireAutoSplitKeys(MainForm& f);
