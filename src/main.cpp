// Rigwright: describe one DMX fixture and write its fixture definition file.
#include <QCoreApplication>
#include <cstdio>

#include "common/system_names.h"
#include "gui/application.h"
#include "input/command_line.h"
#include "wizard/library_commands.h"
#include "wizard/main_form.h"
#include "wizard/start.h"

namespace {

void Print(std::FILE* stream, const QString& text) {
    std::fputs(common::ToSystemBytes(text).constData(), stream);
}

// Standard error of the libraries' commands holds their refusals, line by line; Qt's own
// notes (a runtime folder it looks for, a font it lacks) would only be noise there.
void KeepErrorsOnly(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) Print(stderr, text + u'\n');
}

}  // namespace

int main(int argc, char** argv) {
    // Help and version answer before the application exists, so they need no display.
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments.append(common::FromSystemBytes(argv[i]));
    const input::CommandLine line = input::ParseCommandLine(arguments);
    using Action = input::CommandLine::Action;
    switch (line.action) {
        case Action::kHelp:
            Print(stdout, input::UsageText());
            return 0;
        case Action::kVersion:
            Print(stdout, input::VersionText());
            return 0;
        case Action::kMistake:
            Print(stderr, QStringLiteral("rigwright: ") + line.error + u'\n');
            Print(stderr, input::UsageText());
            return 2;
        case Action::kConvert:
        case Action::kCheck: {
            // The libraries' commands work on values: no widget, no display, no platform.
            qInstallMessageHandler(KeepErrorsOnly);
            QCoreApplication app(argc, argv);
            const LibraryStreams streams = LibraryStreams::Standard();
            return line.action == Action::kConvert ? ConvertFixtures(line, streams)
                                                   : CheckFixtures(line, streams);
        }
        case Action::kRun:
            break;
    }
    gui::Application app(argc, argv);
    MainForm form;
    StartWizard(form, line.file, line.mode);
    return app.Exec();
}
