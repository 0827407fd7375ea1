#pragma once
// Tests of the channel definitions: the grid commands and the next free offset, the 25
// presets, and the floating cell editor driven through the real widgets.

#include <QString>
#include <QStringList>

#include "support/form_fixture.h"

class TestChannels : public FormFixture {
    Q_OBJECT
  private:
    // The channel rows of the table, each as its cells with ";" between them.
    QStringList bodyRows();
    // Replaces the body by rows given as dmx1 and dmx2, "dmx1;dmx2".
    void setOffsets(const QStringList& rows);
    void watchModel();  // QAbstractItemModelTester on the grid for this test
    void openCell(int row, int col);
    void replaceEntry(const QString& text);  // select all in the edit box, then type

  private slots:
    void init();

    // Grid commands.
    void nextFreeDmx_data();
    void nextFreeDmx();
    void addAndDelete();
    void commandsCommitTheOpenEditFirst();
    void rowCap();

    // Presets.
    void preset_data();
    void preset();
    void presetOffsets_data();
    void presetOffsets();

    // Cell editor.
    void entry_data();
    void entry();
    void frame();
    void clickCommits_data();
    void clickCommits();
    void nextCommitsPreviousDoesNot();
    void randomEntriesStayInBounds();

    // Readable cells.
    void cutCellShowsItsTextInATip_data();
    void cutCellShowsItsTextInATip();
    void headBordersDrag_data();
    void headBordersDrag();
};
