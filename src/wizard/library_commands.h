#pragma once
// For fixture libraries: converting QLC+ fixtures into fixture files and checking fixture
// files, many in one run, with no window and no widget. Both take each fixture as the
// wizard holds it on the page where the file is saved after opening it, and there write it
// or give its advice, so that a converted file is the file the wizard writes.

#include <cstdio>

namespace input {
struct CommandLine;
}

struct LibraryStreams {
    std::FILE* out;  // one line per written file or checked fixture
    std::FILE* err;  // one line per refusal, and the progress
    bool progress;   // show "12 of 1,358" on `err`, for a terminal

    // The program's own streams; progress when standard error is a terminal.
    static LibraryStreams Standard();
};

// --convert --to DIR [--mode M] [--force] FILE...: 0 when every mode was written, 1 when
// anything was refused or skipped.
int ConvertFixtures(const input::CommandLine& line, const LibraryStreams& streams);

// --check FILE...: 0 when every file (every mode of a QLC+ fixture) is without advice.
int CheckFixtures(const input::CommandLine& line, const LibraryStreams& streams);
