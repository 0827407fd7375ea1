#pragma once
// Finished: the save dialog, writing the fixture definition file, the closing message.

struct MainForm;

void finished_Click(MainForm& f);
