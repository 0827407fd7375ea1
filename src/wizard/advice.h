#pragma once
// Advice on arrival at the page where the file is saved: the channel count follows the
// table, and the first thing in the entered data that a desk would stumble over is shown.
// It never blocks Next or Finished.

#include <QString>

#include "common/fixture.h"

struct MainForm;

// The first thing in `fixture` that a desk would stumble over, with its grid line; empty
// when there is none.
QString FirstFault(const common::Fixture& fixture);

void GiveAdvice(MainForm& f);
