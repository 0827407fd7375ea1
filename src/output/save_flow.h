#pragma once
// Finished: the save dialog, writing the fixture definition file, the closing message.

#include <QDateTime>
#include <QString>
#include <optional>

#include "common/fixture.h"

struct MainForm;

void finished_Click(MainForm& f);

// Writes the file of `fixture` to `path`, saved at `saved`, so that an existing file stays
// whole until the new one is complete. The reason when it could not be written, nothing on
// success.
std::optional<QString> SaveFixtureFile(const common::Fixture& fixture, const QString& path,
                                       const QDateTime& saved);

// The same for a file of a fixture library, where the folder may hold links that someone else
// put there: the file is never written through a link. Without `replace` nothing that holds
// the name `path` is replaced; with it, what holds the name itself is, never where it leads.
std::optional<QString> SaveLibraryFile(const common::Fixture& fixture, const QString& path,
                                       const QDateTime& saved, bool replace);
