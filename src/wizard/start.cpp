#include "wizard/start.h"

#include "wizard/engine.h"
#include "wizard/main_form.h"
#include "wizard/open_fixture.h"
#include "wizard/wiring.h"

void StartWizard(MainForm& f, const QString& fixturePath, const QString& mode) {
    WireEvents(f);
    Form_Load(f);
    if (!fixturePath.isEmpty()) OpenFixtureFile(f, fixturePath, mode);
    f.main.Show();
}
