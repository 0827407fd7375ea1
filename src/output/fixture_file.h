#pragma once
// The fixture definition file: every line in its order, read from the form's controls at
// the moment it is written.

#include <QString>

class QIODevice;
struct MainForm;

struct WriteOutcome {
    bool ok = true;
    QString error;  // the device's reason when a write failed
};

// Writes the whole file for `path` (which line 4 names) into `out`, each line followed by
// CR LF. The lines are composed first and then handed to `out` together.
WriteOutcome WriteFixtureFile(const MainForm& f, const QString& path, QIODevice& out);
