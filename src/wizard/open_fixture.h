#pragma once
// Opening a fixture: a written fixture file or a QLC+ fixture definition fills the pages as
// if the user had typed them. Every way in (the command line, the Open button, Ctrl+O, a
// dropped file) comes here.

#include <QString>

#include "common/fixture.h"

struct MainForm;

// Fills the pages from `fixture`: names, fixture type and degrees, the channel table (whose
// rows are replaced by the fixture's rows) and the patch text.
void FillFromFixture(MainForm& f, common::Fixture fixture);

// Fills the pages from `fixture` and shows the first page with the buttons as at the start;
// an open cell edit is finished first, on the table it was opened on.
void ShowOpenedFixture(MainForm& f, common::Fixture fixture);

// Reads the file at `path` whole and fills the pages from it, then shows the first page as
// at the start. Of a QLC+ fixture, `mode` picks the mode by name or number; without it a
// fixture of several modes asks which. Pages that hold something typed are replaced only
// after a Yes. A file that cannot be read fills nothing and says why in a critical message
// under the form's caption. True when the pages were filled.
bool OpenFixtureFile(MainForm& f, const QString& path, const QString& mode = {});

// The open dialog, from the Open button or Ctrl+O.
void openfixture_Click(MainForm& f);
