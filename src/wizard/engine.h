#pragma once
// The page engine: start-up, showing a page, the four bottom buttons, the quit question.

struct MainForm;

void Form_Load(MainForm& f);
void ShowStep(MainForm& f);
void nexts_Click(MainForm& f);
void previous_Click(MainForm& f);
void cancel_Click(MainForm& f);
void Form_QueryUnload(MainForm& f, int& Cancel, int& UnloadMode);
void goonrange_Click(MainForm& f);
void UpdateContinueButtons(MainForm& f);
