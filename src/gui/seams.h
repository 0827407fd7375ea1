#pragma once
// Seams for tests: answers for modal dialogs, a fixed clock, and the record of
// "end the program". A test fills the queues before it acts, and checks afterwards that
// every answer was used.

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "gui/dialogs.h"

namespace gui::seams {

struct MsgBoxCall {
    QString text;
    MsgStyle style;
    QString title;
};

struct SaveDialogCall {
    QString title;
    QString filter;
    QString presetName;
    bool overwritePrompt = false;
};

struct OpenDialogCall {
    QString title;
    QStringList filters;
    QString initDir;
    QString selectedFilter;
};

// Message box: the next button pressed.
void QueueMsgBoxAnswer(MsgButton answer);
// Save dialog: the chosen path, or nothing for a cancel.
void QueueSaveAnswer(std::optional<QString> path);
// Save dialog: the real one comes up, for a test that drives it itself (see
// gui::testing::ActiveDialog). Taken before any queued answer.
void RunRealSaveDialog();

const std::vector<MsgBoxCall>& MsgBoxCalls();
const std::vector<SaveDialogCall>& SaveDialogCalls();
// Open dialog: the chosen path, or nothing for a cancel.
void QueueOpenAnswer(std::optional<QString> path);
// Open dialog: the real one comes up, as RunRealSaveDialog does for the save dialog.
void RunRealOpenDialog();
const std::vector<OpenDialogCall>& OpenDialogCalls();
int PendingAnswers();   // answers queued and not used yet
int UnansweredCalls();  // dialogs that came up in a test with no answer queued

void FixClock(const QDateTime& when);

bool EndRequested();

// Empties the queues and records, frees the clock and forgets an end request.
void Reset();

}  // namespace gui::seams
