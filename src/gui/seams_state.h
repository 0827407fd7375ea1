#pragma once
// Inside gui/ only: what the test seams hold.

#include <QDateTime>
#include <deque>
#include <optional>
#include <vector>

#include "gui/seams.h"

namespace gui::detail {

struct SeamState {
    bool testMode = false;  // a test drives the program: ending it only records the request
    std::deque<MsgButton> msgBoxAnswers;
    std::deque<std::optional<QString>> saveAnswers;
    int realSaveDialogs = 0;  // save dialogs that a test lets come up for real, in turn
    std::vector<seams::MsgBoxCall> msgBoxCalls;
    std::vector<seams::SaveDialogCall> saveCalls;
    std::deque<std::optional<QString>> openAnswers;
    std::vector<seams::OpenDialogCall> openCalls;
    int realOpenDialogs = 0;
    std::optional<QDateTime> fixedClock;
    bool endRequested = false;
    int unanswered = 0;  // dialogs a test let come up without an answer
};

SeamState& Seams();

}  // namespace gui::detail
