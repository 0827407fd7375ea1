// Rigwright: describe one DMX fixture and write its fixture definition file.
#include <cstdio>

#include "gui/application.h"
#include "input/command_line.h"
#include "wizard/main_form.h"
#include "wizard/start.h"

namespace {

void Print(std::FILE* stream, const QString& text) {
    std::fputs(text.toLocal8Bit().constData(), stream);
}

}  // namespace

int main(int argc, char** argv) {
    // Help and version answer before the application exists, so they need no display.
    QStringList arguments;
    for (int i = 1; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
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
            Print(stderr, input::UsageText());
            return 2;
        case Action::kRun:
            break;
    }
    gui::Application app(argc, argv);
    MainForm form;
    StartWizard(form, line.file);
    return app.Exec();
}
