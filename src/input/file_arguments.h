#pragma once
// The files that the arguments of --convert and --check stand for. A folder stands for every
// fixture file under it, so that a whole library fits on any command line; a name with "*" or
// "?" stands for the names it matches where no shell has matched them already (Windows).

#include <QList>
#include <QString>
#include <QStringList>

namespace input {

// Whether the program matches "*" and "?" itself: a Windows shell hands them over as they were
// typed, a POSIX shell has already matched them, and there a "*" left is part of a file's name.
#ifdef Q_OS_WIN
inline constexpr bool kMatchWildcards = true;
#else
inline constexpr bool kMatchWildcards = false;
#endif

// With `match`, the names that `argument` matches, "*" for any run of characters and "?" for
// one, in any of its parts ("fixtures/*/*.qxf"), by the case rule of the platform's file names,
// sorted part by part. A name starting with "." is matched only by a pattern that starts so.
// Without `match`, or where nothing matches, the argument itself: its reader then says that
// there is no such file.
QStringList MatchWildcards(const QString& argument, bool match);

// Every fixture file (".qxf" or ".R20", in any case) under `folder` and its folders, sorted
// part by part so that each run and each platform lists them alike. Names starting with "."
// are passed over, as "*" passes them over. A link to a folder is followed, but no folder is
// walked twice, so a link back up ends no loop.
QStringList FixtureFilesUnder(const QString& folder);

// One file to read, or an argument that stands for none.
struct NamedFile {
    QString path;
    QString error;  // why the argument gives no file: a folder with no fixture file
};

// What the arguments stand for, in their order: each name as it is, each folder as its fixture
// files, each pattern (with `match`) as its matches.
QList<NamedFile> FilesOfArguments(const QStringList& arguments, bool match);

}  // namespace input
