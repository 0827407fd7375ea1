#pragma once
// Finished: the save dialog, writing the fixture definition file, the closing message.

#include <QString>
#include <optional>

struct MainForm;

void finished_Click(MainForm& f);

// Writes the fixture file to `path` so that an existing file stays whole until the new one
// is complete. The reason when it could not be written, nothing on success.
std::optional<QString> SaveFixtureFile(const MainForm& f, const QString& path);
