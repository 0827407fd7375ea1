#pragma once
// The page engine: start-up, showing a page, the four bottom buttons, the quit question.

struct MainForm;

void Form_Load(MainForm& f);
// `backwards`: the user went back, so a page without input gives the focus to "< Previous".
void ShowStep(MainForm& f, bool backwards = false);
void nexts_Click(MainForm& f);
void previous_Click(MainForm& f);
void cancel_Click(MainForm& f);
void Form_QueryUnload(MainForm& f, int& Cancel, int& UnloadMode);
void goonrange_Click(MainForm& f);
void UpdateContinueButtons(MainForm& f);
// The short help of F1: the keys, the version, where the README is.
void ShowHelp(MainForm& f);
