#pragma once
// Keeping the fixture pages up to date at each page change.

struct MainForm;

void ApplyDegreesDefaults(MainForm& f);
void ComposeComment(MainForm& f);
