#pragma once
// Tests of the range grid, its editor, merge, auto split and bar strip. One test class,
// its slots defined by topic in the files beside this one.

#include <QString>
#include <QStringList>

#include "support/form_fixture.h"

namespace gui {
class Grid;
}

// A range row written as "mark|from|to|label", the form the expectations use.
QStringList RangeRows(const gui::Grid& range);
// Replaces the table by the given rows (same form as RangeRows).
void SetRangeRows(MainForm& f, const QStringList& rows);
// Empty when the rows tile 0..255 and their count is in bounds, else what is wrong.
QString TilingFault(const gui::Grid& range);
// Opens the editor on a cell through the handlers, puts `text` in it and commits.
void EditCell(MainForm& f, int row, int col, const QString& text);

class TestRanges : public FormFixture {
    Q_OBJECT
  private slots:
    void init();

    // Editor and commit.
    void commitOnThreeRanges_data();
    void commitOnThreeRanges();
    void commitOnThreeRangesByKeyboard_data();
    void commitOnThreeRangesByKeyboard();
    void commitOnStartTable_data();
    void commitOnStartTable();
    void labelStoredAsTyped_data();
    void labelStoredAsTyped();
    void editorOpensOverCell();
    void keyOnGridOpensEditorWithoutTheKey();
    void clickCommitsIntoOpenedCell();
    void clickWithoutEditChangesNothing();
    void clearRestoresStart();
    void commitOnGoneRowChangesNothing();

    // Merge and auto split.
    void merge_data();
    void merge();
    void mergeByDraggingRows();
    void split_data();
    void split();
    void splitRefusedKeepsDialogOpen_data();
    void splitRefusedKeepsDialogOpen();
    void splitDialogOpening();
    void splitAtOnceGivesOneValueRanges();
    void splitByKeyboard();
    void splitOfGoneRowChangesNothing();
    void randomOperationsKeepTiling();

    // Bars.
    void randomColourAvoidsGreyBand();
    void greyBandEdges_data();
    void greyBandEdges();
    void refusedDrawsAreDrawnAgain();
    void barsShowSplitAndVanishWithPage();
};
