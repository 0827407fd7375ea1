#pragma once
// Advice on arrival at the page where the file is saved: the channel count follows the
// table, and the first thing in the entered data that a desk would stumble over is shown.
// It never blocks Next or Finished.

struct MainForm;

void GiveAdvice(MainForm& f);
