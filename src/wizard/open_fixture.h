#pragma once
// Opening a written fixture file: its values go into the form's controls as if the user
// had typed them, before the window shows.

#include <QString>

struct MainForm;
namespace input {
struct FixtureFile;
}

// Fills the pages from `file`: names, fixture type and degrees, the channel table (whose
// rows are replaced by the file's rows) and the patch text.
void FillFromFixture(MainForm& f, const input::FixtureFile& file);

// Reads the file at `path` whole and fills the pages from it; a file that cannot be read
// fills nothing and says why in a critical message under the form's caption.
void OpenFixtureFile(MainForm& f, const QString& path);
