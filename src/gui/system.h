#pragma once
// What the wizard needs of the system besides its window: the clock and ending the program.

#include <QDateTime>

namespace gui {

QDateTime Now();    // the system clock, or the fixed time a test has set
void EndProgram();  // ends at once; a test sees it without the process exiting

}  // namespace gui
