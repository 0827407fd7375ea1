#include "input/command_line.h"

#include <QCommandLineParser>

namespace input {

namespace {

// The options, with what the help says of each.
struct Options {
    QCommandLineOption mode{QStringLiteral("mode"),
                            QStringLiteral("of a fixture with several modes, the one to take, by "
                                           "its name or its number from 1; else the wizard asks, "
                                           "and --convert writes every mode"),
                            QStringLiteral("NAME|NUMBER")};
    QCommandLineOption convert{
        QStringLiteral("convert"),
        QStringLiteral("write, for every mode of every QLC+ fixture given (or only the mode --mode "
                       "names), the fixture file the wizard writes, into DIR as "
                       "MANUFACTURER-MODEL-MODE.R20; prints each written path")};
    QCommandLineOption to{QStringLiteral("to"),
                          QStringLiteral("where --convert writes; made when missing"),
                          QStringLiteral("DIR")};
    QCommandLineOption force{
        QStringLiteral("force"),
        QStringLiteral(
            "--convert replaces a file of the same fixture that exists (else it is skipped)")};
    QCommandLineOption check{
        QStringLiteral("check"),
        QStringLiteral("print \"FILE: ok\" or the advice the wizard gives before saving, for "
                       "fixture files and, mode by mode, for QLC+ fixtures")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("show this help and exit")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               QStringLiteral("show the version and exit")};
};

// The parser that reads the command line and writes the help, from the same options.
struct Parser {
    Parser() {
        parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
        parser.setApplicationDescription(QStringLiteral(
            "Describe one DMX fixture and write its fixture definition file (.R20).\n"
            "\n"
            "With FILE, the wizard opens with the pages filled from a fixture file (.R20) or\n"
            "from a QLC+ fixture definition (.qxf)."));
        parser.addOptions({o.mode, o.convert, o.to, o.force, o.check, o.help, o.version});
    }
    const Options o;
    QCommandLineParser parser;
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
    Parser p;
    const Options& o = p.o;
    QCommandLineParser& parser = p.parser;
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

// Where no shell matches "*" and "?", the program does; the examples name the system's paths.
#ifdef Q_OS_WIN
constexpr char kMatched[] = ",\nand a name with * or ? as the names it matches";
constexpr char kExamples[] =
    "  rigwright --convert --to C:\\fixtures C:\\qlcplus\\fixtures\n"
    "  rigwright --check C:\\fixtures\\Martin*.R20\n";
#else
constexpr char kMatched[] = "";
constexpr char kExamples[] =
    "  rigwright --convert --to ~/fixtures /usr/share/qlcplus/fixtures\n"
    "  rigwright --check ~/fixtures\n";
#endif

QString UsageText() {
    // Qt's first line names the program as it was started, or not at all before the
    // application exists: the three ways to call it stand in its place.
    const QString qtHelp = Parser().parser.helpText().section(u'\n', 1);
    return QStringLiteral(
               "Usage: rigwright [FILE.R20 | FILE.qxf [--mode NAME|NUMBER]]\n"
               "       rigwright --convert --to DIR [--mode NAME|NUMBER] [--force] FILE|FOLDER...\n"
               "       rigwright --check FILE|FOLDER...\n") +
           qtHelp +
           QStringLiteral(
               "\n--convert and --check take a folder as every .qxf and .R20 file under it") +
           QLatin1String(kMatched) +
           QStringLiteral(
               ".\nThey need no display. Exit status: 0 all went well, 1 a file was refused,\n"
               "skipped or has advice, 2 a mistake on the command line, 3 the program could not\n"
               "go on (the reason is on standard error).\n"
               "\n"
               "Examples:\n") +
           QLatin1String(kExamples);
}

QString VersionText() {
    return QStringLiteral("rigwright " RIGWRIGHT_VERSION "\n");
}

}  // namespace input
