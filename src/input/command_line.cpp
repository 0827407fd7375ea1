#include "input/command_line.h"

namespace input {

CommandLine ParseCommandLine(const QStringList& arguments) {
    using Action = CommandLine::Action;
    CommandLine line;
    bool filesOnly = false;  // behind "--" every argument is a file name
    for (const QString& argument : arguments) {
        if (!filesOnly && argument == u"--help") return {Action::kHelp, {}};
        if (!filesOnly && argument == u"--version") return {Action::kVersion, {}};
        if (!filesOnly && argument == u"--") {
            filesOnly = true;
            continue;
        }
        const bool option = !filesOnly && argument.startsWith(u'-') && argument != u"-";
        if (option || argument.isEmpty() || !line.file.isEmpty()) return {Action::kMistake, {}};
        line.file = argument;
    }
    return line;
}

QString UsageText() {
    return QStringLiteral(
        "Usage: rigwright [FILE.R20]\n"
        "Describe one DMX fixture and write its fixture definition file (.R20).\n"
        "\n"
        "With FILE, the wizard opens with the pages filled from that fixture file.\n"
        "\n"
        "  --help     show this help and exit\n"
        "  --version  show the version and exit\n");
}

QString VersionText() {
    return QStringLiteral("rigwright " RIGWRIGHT_VERSION "\n");
}

}  // namespace input
