#pragma once
// Tests of the fixture file output: the channel line, the comment split, the code page, the
// whole file byte by byte, and the save flow with its failures.

#include <QString>

#include "support/form_fixture.h"

class TestOutput : public FormFixture {
    Q_OBJECT
  private:
    void prepareFile(const QString& setup);

  private slots:
    // The channel line and pure text.
    void buildChannelLine_data();
    void buildChannelLine();
    void tokenAndLabel_data();
    void tokenAndLabel();
    void commentLines_data();
    void commentLines();
    void codePage_data();
    void codePage();

    // Properties over random cells.
    void randomRows();

    // The whole file and the save flow.
    void wholeFile_data();
    void wholeFile();
    void proposedNameAndCancel_data();
    void proposedNameAndCancel();
    void dialogRefusesMissingFolder();
    void failureKeepsOldFile_data();
    void failureKeepsOldFile();
};
