#pragma once
// Finished: the save dialog, writing the fixture definition file, the closing message.

#include <QByteArray>
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

// A file of a fixture library on its way, written in two steps so that several can be on their
// way at once: the bytes go to the disk in a file made new for them beside the target, and
// that file then takes the target's name. Neither step writes through a link.
struct StagedFile {
    QString name;                  // the new file, complete and on the disk
    std::optional<QString> error;  // why it could not be written; no file is left then
};

// The first step: `bytes` in a new file beside `path`, on the disk. With `replace` the new file
// has the permissions of the file it is to replace. Calls on different threads do not meet.
StagedFile StageLibraryFile(const QByteArray& bytes, const QString& path, bool replace);

// The second step: the staged file takes the name `path`. Without `replace` nothing that holds
// the name is replaced; with it, what holds the name itself is, never where it leads. The
// reason when the file could not be written, and then the staged file is gone.
std::optional<QString> PlaceLibraryFile(const StagedFile& staged, const QString& path,
                                        bool replace);
