#pragma once
// Tests of reading a written fixture file back: the channel lines, the whole file and its
// refusals, the command line, and the round trip through the wizard's own writer.

#include "support/form_fixture.h"

class TestInput : public FormFixture {
    Q_OBJECT
  private slots:
    void channelLines_data();
    void channelLines();
    void wholeFile_data();
    void wholeFile();
    void refused_data();
    void refused();
    void commandLine_data();
    void commandLine();

    void openAtStart_data();
    void openAtStart();
    void roundTrip();
};
