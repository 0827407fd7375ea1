#pragma once
// The command line: the wizard with one optional fixture file to open, or, for fixture
// libraries, converting QLC+ fixtures and checking fixture files with no window at all.

#include <QString>
#include <QStringList>

#include "input/file_arguments.h"

namespace input {

struct CommandLine {
    enum class Action { kRun, kHelp, kVersion, kMistake, kConvert, kCheck };
    Action action = Action::kRun;
    QString file;        // the fixture file the wizard opens, empty for none
    QStringList files;   // every file named, in order
    QString mode;        // --mode: the mode of a QLC+ fixture, by name or number
    QString targetDir;   // --to: where --convert writes
    bool force = false;  // --force: --convert replaces files that exist
    // Whether --convert and --check match "*" and "?" in the files named themselves.
    bool matchWildcards = kMatchWildcards;
    QString error;  // what was wrong, for a mistake
};

// `arguments` without the program's own name.
CommandLine ParseCommandLine(const QStringList& arguments);

QString UsageText();    // for --help and, on standard error, for a mistake
QString VersionText();  // for --version

}  // namespace input
