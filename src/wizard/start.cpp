#include "wizard/start.h"

#include "wizard/engine.h"
#include "wizard/main_form.h"
#include "wizard/wiring.h"

void StartWizard(MainForm& f) {
    WireEvents(f);
    Form_Load(f);
    f.main.Show();
}
