#pragma once
// The answers on the command line (--convert, --check, --help, --version) are read on a console
// or by a script, where nobody can click: nothing may wait for an answer. Qt's messages become
// lines on standard error, and whatever would end the program by an abort (a fatal message, a
// warning that QT_FATAL_WARNINGS makes fatal, an exception nobody caught) ends it with
// kStoppedCode, its reason on the last line. On Windows an abort can show a box and wait, and so
// can the system itself, for a drive without its disk or a program that crashed.

namespace common {

inline constexpr int kStoppedCode = 3;

// For the rest of the program's run; before the application object, so that its own messages
// are taken too.
void AnswerOnConsoleOnly();

}  // namespace common
