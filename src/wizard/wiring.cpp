#include "wizard/wiring.h"

#include <QKeySequence>

#include "channels/cell_editor.h"
#include "channels/channel_table.h"
#include "channels/presets.h"
#include "output/save_flow.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/engine.h"
#include "wizard/main_form.h"
#include "wizard/open_fixture.h"

void WireEvents(MainForm& f) {
    MainForm* m = &f;
    f.main.onQueryUnload([m](int& cancel, int& mode) { Form_QueryUnload(*m, cancel, mode); });

    f.nexts.onClick([m] { nexts_Click(*m); });
    f.previous.onClick([m] { previous_Click(*m); });
    f.cancel.onClick([m] { cancel_Click(*m); });
    f.main.onShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), [m] { m->finished.Click(); });
    f.main.onShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), [m] { cancel_Click(*m); });
    f.main.onShortcut(QKeySequence(Qt::Key_F1), [m] { ShowHelp(*m); });
    f.main.onShortcut(QKeySequence(Qt::CTRL | Qt::Key_O), [m] { openfixture_Click(*m); });
    f.goonrange.onClick([m] { goonrange_Click(*m); });
    f.finished.onClick([m] { finished_Click(*m); });
    f.openfixture.onClick([m] { openfixture_Click(*m); });
    f.main.onFileDrop([m](const QString& path) { OpenFixtureFile(*m, path); });

    f.add.onClick([m] { add_Click(*m); });
    f.delete_.onClick([m] { delete_Click(*m); });
    f.adddef.onClick([m] { adddef_Click(*m); });
    f.defaultsframe.HideOnEscape();
    for (int i = 0; i < static_cast<int>(f.Command6.size()); ++i)
        f.Command6[i].onClick([m, i] { Command6_Click(*m, static_cast<std::int16_t>(i)); });
    f.table.onClick([m] { table_Click(*m); });
    f.table.onDblClick([m] { table_DblClick(*m); });
    f.table.onKeyPress([m](int key) { table_KeyPress(*m, key); });
    f.editcombo.onKeyPress([m](int key) { editcombo_KeyPress(*m, key); });

    f.range.onClick([m] { range_Click(*m); });
    f.range.onDblClick([m] { range_DblClick(*m); });
    f.range.onKeyPress([m](int key) { range_KeyPress(*m, key); });
    f.redittext.onKeyPress([m](int key) { redittext_KeyPress(*m, key); });
    f.rclear.onClick([m] { rclear_Click(*m); });
    f.rmerge.onClick([m] { rmerge_Click(*m); });
    f.Command2.onClick([m] { Command2_Click(*m); });
    f.Command1.onClick([m] { Command1_Click(*m); });
    f.rgo.onClick([m] { rgo_Click(*m); });
    // While the split dialog shows, Return presses OK and Escape X, wherever the focus is.
    f.autoframe.setDialogButtons(f.rgo, f.Command1);
}
