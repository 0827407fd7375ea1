// Rigwright: describe one DMX fixture and write its fixture definition file.
#include <QCoreApplication>
#include <cstdio>

#include "common/console.h"
#include "common/system_names.h"
#include "gui/application.h"
#include "input/command_line.h"
#include "wizard/library_commands.h"
#include "wizard/main_form.h"
#include "wizard/start.h"

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace {

void Print(std::FILE* stream, const QString& text) {
    std::fputs(common::ToSystemBytes(text).constData(), stream);
}

#ifdef Q_OS_WIN
// On Windows the program is a window program, so that opening a file from Explorer shows no
// console. Its answers on the command line go to the console it was started from, unless
// they already go to a file or a pipe.
void UseParentConsole() {
    const auto missing = [](DWORD stream) {
        return GetFileType(GetStdHandle(stream)) == FILE_TYPE_UNKNOWN;
    };
    const bool out = missing(STD_OUTPUT_HANDLE), err = missing(STD_ERROR_HANDLE);
    if ((!out && !err) || !AttachConsole(ATTACH_PARENT_PROCESS)) return;
    if (out) std::freopen("CONOUT$", "w", stdout);
    if (err) std::freopen("CONOUT$", "w", stderr);
}
#endif

}  // namespace

int main(int argc, char** argv) {
    // Help and version answer before the application exists, so they need no display.
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments.append(common::FromSystemBytes(argv[i]));
    const input::CommandLine line = input::ParseCommandLine(arguments);
    using Action = input::CommandLine::Action;
    if (line.action != Action::kRun) {
#ifdef Q_OS_WIN
        UseParentConsole();
#endif
        common::AnswerOnConsoleOnly();
    }
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
