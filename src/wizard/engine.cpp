#include "wizard/engine.h"

#include "channels/cell_editor.h"
#include "gui/dialogs.h"
#include "gui/system.h"
#include "ranges/range_table.h"
#include "wizard/advice.h"
#include "wizard/fixture_pages.h"
#include "wizard/main_form.h"

namespace {

constexpr int kPageCount = 7;
constexpr int kFinishPage = 3;
const QString kQuitQuestion =
    QStringLiteral("Are you sure you want to quit? Any data collected will be lost!");

}  // namespace

void Form_Load(MainForm& f) {
    f.CurrentStep = 0;
    ShowStep(f);
    f.table.setTextMatrix(1, 0, QStringLiteral("1"));
    f.table.setTextMatrix(1, 2, QStringLiteral("0"));
    rclear_Click(f);
}

void ShowStep(MainForm& f) {
    f.CanFinish = f.CurrentStep == kFinishPage;
    for (int i = 0; i < static_cast<int>(f.stepf.size()); ++i) f.stepf[i].setVisible(false);
    gui::Frame& page = f.stepf[f.CurrentStep];
    page.setVisible(true);
    page.setTop(120);
    page.setLeft(120);
    f.errormessage[f.CurrentStep].setCaption(QString());
    f.cancel.setEnabled(true);
    f.finished.setEnabled(false);
    f.previous.setEnabled(true);
    if (f.CurrentStep == 0) f.previous.setEnabled(false);
    if (f.CanFinish) f.finished.setEnabled(true);
    f.nexts.setEnabled(!f.finished.Enabled());
    // There is no page after the last one: Next stays off there.
    if (f.CurrentStep == kPageCount - 1) f.nexts.setEnabled(false);
    ApplyDegreesDefaults(f);
    if (f.CurrentStep == kFinishPage) {
        ComposeComment(f);
        GiveAdvice(f);
    }
    // The focus must not stay on a button of the page before: a typed blank would press it.
    if (!page.FocusFirstInput()) (f.nexts.Enabled() ? f.nexts : f.finished).SetFocus();
}

void nexts_Click(MainForm& f) {
    table_Click(f);
    if (f.CurrentStep >= kPageCount - 1) return;
    f.CurrentStep += 1;
    ShowStep(f);
}

void previous_Click(MainForm& f) {
    if (f.CurrentStep <= 0) return;
    f.CurrentStep -= 1;
    ShowStep(f);
}

void cancel_Click(MainForm& f) {
    int cancel = 0;
    int unloadMode = 0;
    Form_QueryUnload(f, cancel, unloadMode);
}

void Form_QueryUnload(MainForm& f, int& Cancel, int& /*UnloadMode*/) {
    const QString caption = f.main.Caption();
    const int answer =
        gui::MsgBox(kQuitQuestion, gui::kYesNo | gui::kExclamation | gui::kDefaultButton2, caption);
    if (answer == gui::kAnswerYes) {
        gui::EndProgram();
        return;
    }
    Cancel = 1;
}

void goonrange_Click(MainForm& f) {
    UpdateContinueButtons(f);
}

void UpdateContinueButtons(MainForm& f) {
    const bool goOn =
        f.goonrange.Value() != 0 || f.goonmacros.Value() != 0 || f.goonpalettes.Value() != 0;
    f.nexts.setEnabled(goOn);
    f.finished.setEnabled(!goOn);
}
