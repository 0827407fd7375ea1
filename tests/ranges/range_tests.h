#pragma once
// Tests of the range grid, its editor, merge, auto split and bar strip. One test class,
// its slots defined by topic in the files beside this one.

#include <QString>
#include <QStringList>

#include "support/form_fixture.h"

namespace gui {
class Grid;
}

// Range rows written as "mark|from|to|label", the form the expectations use.
QStringList RangeRows(const gui::Grid& range);
void SetRangeRows(MainForm& f, const QStringList& rows);
// Empty when the rows tile 0..255 and their count is in bounds, else what is wrong.
QString TilingFault(const gui::Grid& range);
// Opens the editor on a cell through the handlers, puts `text` in it and commits.
void EditCell(MainForm& f, int row, int col, const QString& text);

inline const QStringList kStart = {"1|0|255|label here"};
// The middle row has a mark of its own, so that the tests see which part keeps it.
inline const QStringList kThree = {"1|0|9|A", "M|10|19|L", "#|20|255|C"};

class TestRanges : public FormFixture {
    Q_OBJECT
  private slots:

    // Editor and commit.
    void commit_data();
    void commit();
    void editorWidgets();
    void commitOnGoneRow();

    // Merge and auto split.
    void operation_data();
    void operation();
    void mergeByDraggingRows();
    void splitDialog();
    void splitDialogKeys_data();
    void splitDialogKeys();
    void randomOperationsKeepTiling();

    // Bars.
    void randomColourAvoidsGreyBand();
    void greyBandEdges();
    void barsShowSplitAndVanishWithPage();
};
