#pragma once
// The command line: one optional fixture file to open. --help and --version answer on
// standard output; anything else is a mistake that the usage explains.

#include <QString>
#include <QStringList>

namespace input {

struct CommandLine {
    enum class Action { kRun, kHelp, kVersion, kMistake };
    Action action = Action::kRun;
    QString file;  // the fixture file to open, empty for none
};

// `arguments` without the program's own name.
CommandLine ParseCommandLine(const QStringList& arguments);

QString UsageText();    // for --help and, on standard error, for a mistake
QString VersionText();  // for --version

}  // namespace input
