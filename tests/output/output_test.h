#pragma once
// Tests of the fixture file output: the channel line encoder, the comment split, the code
// page, the whole file byte by byte, and the save flow with its failures.

#include <QByteArray>
#include <QString>

#include "support/form_fixture.h"

class TestOutput : public FormFixture {
    Q_OBJECT
  private:
    void putRow(const QString& tabbedCells);  // the table holds this one row, as row 1
    void prepareFile(const QString& setup);
    static QByteArray expectedFile(const QString& dataFile, const QString& path);

  private slots:
    // Encoder.
    void buildChannelLine_data();
    void buildChannelLine();
    void noLineWithoutNumberInDmx2_data();
    void noLineWithoutNumberInDmx2();
    void freshFirstRow();
    void leadingToken_data();
    void leadingToken();
    void quoteLabel_data();
    void quoteLabel();

    // Properties over random cells.
    void rowBytesMatchLineTexts();
    void channelLineShape();
    void quoteLabelShape();
    void leadingTokenShape();
    void commentLinesShape();
    void fileHoldsEveryRowLine();

    // Pure text.
    void commentLines_data();
    void commentLines();
    void codePage_data();
    void codePage();

    // The whole file.
    void wholeFile_data();
    void wholeFile();
    void writerStopsAtFailedWrite_data();
    void writerStopsAtFailedWrite();

    // The save flow.
    void proposedName_data();
    void proposedName();
    void noDecisionWritesNothing_data();
    void noDecisionWritesNothing();
    void secondSaveReplacesFirst();
    void finishedButtonRunsTheFlow();
    void failureKeepsOldFile_data();
    void failureKeepsOldFile();
};
