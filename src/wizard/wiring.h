#pragma once

struct MainForm;

// Connects every control event of the form to its handler, in one place.
void WireEvents(MainForm& f);
