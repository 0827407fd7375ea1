#include "gui/seams.h"

#include <QCoreApplication>
#include <deque>

#include "gui/dialogs.h"
#include "gui/seams_state.h"
#include "gui/system.h"

namespace gui {
namespace detail {

SeamState& Seams() {
    static SeamState state;
    return state;
}

}  // namespace detail

QDateTime Now() {
    const auto& s = detail::Seams();
    return s.fixedClock ? *s.fixedClock : QDateTime::currentDateTime();
}

void EndProgram() {
    auto& s = detail::Seams();
    s.endRequested = true;
    if (!s.testMode) QCoreApplication::exit(0);
}

}  // namespace gui

namespace gui::seams {

using detail::Seams;

void QueueMsgBoxAnswer(MsgButton answer) {
    Seams().testMode = true;
    Seams().msgBoxAnswers.push_back(answer);
}

void QueueSaveAnswer(std::optional<QString> path) {
    Seams().testMode = true;
    Seams().saveAnswers.push_back(std::move(path));
}

void RunRealSaveDialog() {
    Seams().testMode = true;
    ++Seams().realSaveDialogs;
}

const std::vector<MsgBoxCall>& MsgBoxCalls() {
    return Seams().msgBoxCalls;
}
const std::vector<SaveDialogCall>& SaveDialogCalls() {
    return Seams().saveCalls;
}

void QueueOpenAnswer(std::optional<QString> path) {
    Seams().testMode = true;
    Seams().openAnswers.push_back(std::move(path));
}
void RunRealOpenDialog() {
    Seams().testMode = true;
    ++Seams().realOpenDialogs;
}
const std::vector<OpenDialogCall>& OpenDialogCalls() {
    return Seams().openCalls;
}

int PendingAnswers() {
    return static_cast<int>(Seams().msgBoxAnswers.size() + Seams().saveAnswers.size() +
                            Seams().openAnswers.size()) +
           Seams().realSaveDialogs + Seams().realOpenDialogs;
}

int UnansweredCalls() {
    return Seams().unanswered;
}

void FixClock(const QDateTime& when) {
    Seams().fixedClock = when;
}
bool EndRequested() {
    return Seams().endRequested;
}

void Reset() {
    auto& s = Seams();
    s.msgBoxAnswers.clear();
    s.saveAnswers.clear();
    s.realSaveDialogs = 0;
    s.msgBoxCalls.clear();
    s.saveCalls.clear();
    s.openAnswers.clear();
    s.openCalls.clear();
    s.realOpenDialogs = 0;
    s.fixedClock.reset();
    s.endRequested = false;
    s.unanswered = 0;
    s.testMode = true;
}

}  // namespace gui::seams
