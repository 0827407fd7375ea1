#pragma once
// Tests of the range grid: its editor, merge, auto split and the bar strip.

#include "gui/grid.h"
#include "support/form_fixture.h"

// The rows of a range table written as "mark|from|to|label", with commas between rows.
QString RangeRows(const gui::Grid& range);
void SetRangeRows(MainForm& f, const QString& rows);

inline const QString kStart = QStringLiteral("1|0|255|label here");
// The middle row has a mark of its own, so that the tests see which part keeps it.
inline const QString kThree = QStringLiteral("1|0|9|A,M|10|19|L,#|20|255|C");

class TestRanges : public FormFixture {
    Q_OBJECT
  private slots:
    void edit_data();
    void edit();
    void editorWidgets();
    void mergeAndSplitByMouse();
    void splitDialogKeys_data();
    void splitDialogKeys();
    void randomOperationsKeepTiling();
    void colours();
};
