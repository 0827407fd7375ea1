#pragma once
// One mode of a QLC+ fixture turned into what the pages of the wizard hold, as if the user
// had typed it: names, fixture type, one row per channel with the cells of the preset it
// resembles, and the patch text that names the mode.

#include <QString>
#include <optional>

#include "input/fixture_reader.h"
#include "input/qxf_reader.h"

namespace input {

// The pages for mode `mode` (from 0) of `fixture`; refused, with the mode's name in the reason,
// when the mode has no channel at all or more than the table holds, names a channel the fixture
// does not define, or gives a channel no Number or one whose offset (Number + 1) lies beyond the
// offsets the grid takes.
ReadOutcome MapQxfMode(const QxfFixture& fixture, int mode);

// The mode that `choice` names: its exact name first, else its number counted from 1.
std::optional<int> FindQxfMode(const QxfFixture& fixture, const QString& choice);

// A name as one line: line breaks, tabs and the other control characters become blanks.
QString OneLine(QString text);

// The name on the desk for a mode: the model's letters and digits, and when the fixture has
// more than one mode, "-" and the mode's channel count (and a letter for modes of one count).
QString QxfNameOnDesk(const QxfFixture& fixture, int mode);

}  // namespace input
