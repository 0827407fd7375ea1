#include "wizard/engine.h"

#include "channels/cell_editor.h"
#include "common/channel_grid.h"
#include "gui/dialogs.h"
#include "gui/system.h"
#include "input/command_line.h"
#include "ranges/range_table.h"
#include "wizard/advice.h"
#include "wizard/fixture_pages.h"
#include "wizard/main_form.h"

namespace {

constexpr int kPageCount = 7;
using common::kFinishPage;
const QString kQuitQuestion =
    QStringLiteral("Are you sure you want to quit? Any data collected will be lost!");

const QString kHelp = QStringLiteral(
    "Keys that work anywhere in the window:\n"
    "Ctrl+S  Finished! (save the fixture file), when it is enabled\n"
    "Ctrl+O  open a fixture file (.R20 or QLC+ .qxf)\n"
    "Ctrl+Q  quit, after the question\n"
    "F1  this help\n"
    "\n"
    "Tab and Shift+Tab move between the controls; Space or Return presses the button that "
    "has the focus. On a grid the cursor keys move, any key opens the cell editor, Return "
    "stores. Escape hides the preset panel.\n"
    "\n"
    "%1\n"
    "Every page is described in README.md, in the source and at https://rigwright.tolvane.org/");

}  // namespace

void ShowHelp(MainForm& f) {
    gui::MsgBox(kHelp.arg(input::VersionText().trimmed()), {.icon = gui::MsgIcon::Information},
                f.main.Caption());
}

void Form_Load(MainForm& f) {
    f.CurrentStep = 0;
    ShowStep(f);
    f.table.setTextMatrix(1, 0, QStringLiteral("1"));
    f.table.setTextMatrix(1, 2, QStringLiteral("0"));
    rclear_Click(f);
}

void ShowStep(MainForm& f, bool backwards) {
    f.CanFinish = f.CurrentStep == kFinishPage;
    gui::Frame& page = f.stepf[f.CurrentStep];
    page.setVisible(true);
    // The focus goes straight to its new place, before the page it is on hides or its button
    // is disabled: anywhere else in between, a screen reader would be told about it.
    const bool onInput = page.FocusFirstInput();
    for (int i = 0; i < static_cast<int>(f.stepf.size()); ++i)
        if (i != f.CurrentStep) f.stepf[i].setVisible(false);
    f.main.Announce(page.Caption());
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
    // A page without input hands it to the button that leads on the way the user went.
    if (onInput) return;
    gui::Button* const forwards[] = {&f.nexts, &f.finished, &f.previous};
    gui::Button* const back[] = {&f.previous, &f.nexts, &f.finished};
    for (gui::Button* b : backwards ? back : forwards) {
        if (b->Enabled()) {
            b->SetFocus();
            return;
        }
    }
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
    ShowStep(f, true);
}

void cancel_Click(MainForm& f) {
    int cancel = 0;
    int unloadMode = 0;
    Form_QueryUnload(f, cancel, unloadMode);
}

void Form_QueryUnload(MainForm& f, int& Cancel, int& /*UnloadMode*/) {
    const QString caption = f.main.Caption();
    const gui::MsgButton answer = gui::MsgBox(kQuitQuestion,
                                              {.buttons = gui::MsgButton::Yes | gui::MsgButton::No,
                                               .icon = gui::MsgIcon::Warning,
                                               .defaultButton = gui::MsgButton::No},
                                              caption);
    if (answer == gui::MsgButton::Yes) {
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
