// Rigwright: describe one DMX fixture and write its fixture definition file.
#include "gui/application.h"
#include "wizard/main_form.h"
#include "wizard/start.h"

int main(int argc, char** argv) {
    gui::Application app(argc, argv);
    MainForm form;
    StartWizard(form);
    return app.Exec();
}
