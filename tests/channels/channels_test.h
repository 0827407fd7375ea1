#pragma once
// Tests of the channel table, its presets and its floating cell editor.

#include <QStringList>

#include "support/form_fixture.h"

class TestChannels : public FormFixture {
    Q_OBJECT
  private:
    QStringList bodyRows();  // the channel rows, each as its cells with ";" between them
    void openCell(int row, int col, const QString& text = {});  // then replaceEntry(text)
    void replaceEntry(const QString& text);  // select all in the edit box, then type

  private slots:
    void init();
    void commands();  // add, delete, the preset panel, Previous and Next
    void rowCap();
    void preset_data();
    void preset();
    void entry_data();
    void entry();
    void clickCommits_data();
    void clickCommits();
    void cutCellShowsItsTextInATip_data();
    void cutCellShowsItsTextInATip();
};
