#pragma once
// Tests of the fixture file output: its lines, the whole file and the save with its failures.

#include <QFile>

#include "support/form_fixture.h"

class TestOutput : public FormFixture {
    Q_OBJECT
    // Adds the rows of one table of tests/data/output_tables.json: a row's first cell names it,
    // the others are its columns, all text.
    void addRows(const char* table);

  private slots:
    void text_data();
    void text();
    void wholeFile_data();
    void wholeFile();
    void proposedNameAndCancel_data();
    void proposedNameAndCancel();
    void dialogRefusesMissingFolder();
    void failureKeepsOldFile_data();
    void failureKeepsOldFile();
};
