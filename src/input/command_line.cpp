#include "input/command_line.h"

#include <QCommandLineParser>

namespace input {

namespace {

struct Options {
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")}};
    QCommandLineOption mode{QStringLiteral("mode"), {}, QStringLiteral("NAME")};
    QCommandLineOption convert{QStringLiteral("convert")};
    QCommandLineOption to{QStringLiteral("to"), {}, QStringLiteral("DIR")};
    QCommandLineOption force{QStringLiteral("force")};
    QCommandLineOption check{QStringLiteral("check")};
};

CommandLine Only(CommandLine::Action action, const QString& error = {}) {
    CommandLine line;
    line.action = action;
    line.error = error;
    return line;
}

CommandLine Mistake(const QString& error) {
    return Only(CommandLine::Action::kMistake, error);
}

}  // namespace

CommandLine ParseCommandLine(const QStringList& arguments) {
    using Action = CommandLine::Action;
    const Options o;
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({o.help, o.version, o.mode, o.convert, o.to, o.force, o.check});
    if (!parser.parse(QStringList(QStringLiteral("rigwright")) + arguments))
        return Mistake(parser.errorText());
    if (parser.isSet(o.help)) return Only(Action::kHelp);
    if (parser.isSet(o.version)) return Only(Action::kVersion);

    CommandLine line;
    line.files = parser.positionalArguments();
    line.mode = parser.value(o.mode);
    line.targetDir = parser.value(o.to);
    line.force = parser.isSet(o.force);
    for (const QString& file : line.files)
        if (file.isEmpty()) return Mistake(QStringLiteral("An empty file name."));
    if (parser.isSet(o.mode) && line.mode.isEmpty())
        return Mistake(QStringLiteral("--mode needs a name or a number."));
    const bool convert = parser.isSet(o.convert), check = parser.isSet(o.check);
    if (convert && check) return Mistake(QStringLiteral("--convert and --check go one at a time."));
    if (!convert && (parser.isSet(o.to) || line.force))
        return Mistake(QStringLiteral("--to and --force belong to --convert."));
    if (convert || check) {
        if (line.files.isEmpty()) return Mistake(QStringLiteral("No file named."));
        if (convert && line.targetDir.isEmpty())
            return Mistake(QStringLiteral("--convert needs --to DIR."));
        line.action = convert ? Action::kConvert : Action::kCheck;
        return line;
    }
    if (line.files.size() > 1) return Mistake(QStringLiteral("The wizard opens one file."));
    if (parser.isSet(o.mode) && line.files.isEmpty())
        return Mistake(QStringLiteral("--mode needs a QLC+ fixture to open."));
    line.file = line.files.value(0);
    return line;
}

QString UsageText() {
    return QStringLiteral(
        "Usage: rigwright [FILE.R20 | FILE.qxf [--mode NAME|NUMBER]]\n"
        "       rigwright --convert --to DIR [--mode NAME|NUMBER] [--force] FILE.qxf...\n"
        "       rigwright --check FILE...\n"
        "Describe one DMX fixture and write its fixture definition file (.R20).\n"
        "\n"
        "With FILE, the wizard opens with the pages filled from a fixture file (.R20) or\n"
        "from a QLC+ fixture definition (.qxf); of a fixture with several modes, --mode\n"
        "picks one by its name or its number from 1, else the wizard asks.\n"
        "\n"
        "  --convert     write, for every mode of every QLC+ fixture given (or only the\n"
        "                mode --mode names), the fixture file the wizard writes, into DIR\n"
        "                as MANUFACTURER-MODEL-MODE.R20; prints each written path\n"
        "  --to DIR      where --convert writes; made when missing\n"
        "  --force       --convert replaces files that exist (else they are skipped)\n"
        "  --check       print \"FILE: ok\" or the advice the wizard gives before saving,\n"
        "                for fixture files and, mode by mode, for QLC+ fixtures\n"
        "  -h, --help    show this help and exit\n"
        "  -v, --version show the version and exit\n"
        "\n"
        "--convert and --check need no display. Exit status: 0 all went well, 1 a file\n"
        "was refused, skipped or has advice, 2 a mistake on the command line.\n"
        "\n"
        "Examples:\n"
        "  rigwright --convert --to ~/fixtures /usr/share/qlcplus/fixtures/Martin/*.qxf\n"
        "  rigwright --check ~/fixtures/*.R20\n");
}

QString VersionText() {
    return QStringLiteral("rigwright " RIGWRIGHT_VERSION "\n");
}

}  // namespace input
