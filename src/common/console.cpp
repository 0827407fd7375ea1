#include "common/console.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "common/system_names.h"

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace common {

namespace {

// Where Qt makes the messages of a kind fatal, as QT_FATAL_WARNINGS and QT_FATAL_CRITICALS
// say: unset, never; a number, at that message; anything else, at the first.
int FatalAt(const char* variable) {
    const QByteArray value = qgetenv(variable);
    if (value.isEmpty()) return 0;
    bool number = false;
    const int at = value.toInt(&number, 0);
    return number ? at : 1;
}

// Counts a message towards the fatal one, as Qt does; whether it is that one.
bool CountDown(std::atomic<int>& left) {
    int now = left.load();
    while (now > 1 && !left.compare_exchange_weak(now, now - 1)) {
    }
    return now == 1;
}

// Whether Qt aborts after this message. Counted on the safe side: a critical message counts
// towards both limits, so that Qt never aborts after a message this took for harmless.
bool EndsTheProgram(QtMsgType type) {
    static std::atomic<int> warnings{FatalAt("QT_FATAL_WARNINGS")};
    static std::atomic<int> criticals{FatalAt("QT_FATAL_CRITICALS")};
    switch (type) {
        case QtFatalMsg:
            return true;
        case QtCriticalMsg: {
            const bool critical = CountDown(criticals);
            return CountDown(warnings) || critical;
        }
        case QtWarningMsg:
            return CountDown(warnings);
        default:
            return false;
    }
}

void Say(const QString& line) {
    std::fputs(ToSystemBytes(line + u'\n').constData(), stderr);
    std::fflush(stderr);
}

// Ends the program at once, before anything can abort it.
[[noreturn]] void Stop(const QString& why) {
    std::fflush(stdout);
    Say(QStringLiteral("rigwright: ") + why);
    std::_Exit(kStoppedCode);
}

// Qt's notes (a runtime folder it looks for, a font it lacks) would only be noise among the
// refusals on standard error: only its critical messages are kept.
void OnQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (EndsTheProgram(type)) Stop(text);
    if (type == QtCriticalMsg) Say(text);
}

void OnTerminate() {
    QString why = QStringLiteral("stopped by an error nobody caught");
    if (const std::exception_ptr error = std::current_exception()) {
        try {
            std::rethrow_exception(error);
        } catch (const std::exception& e) {
            why = QString::fromLocal8Bit(e.what());
        } catch (...) {
        }
    }
    Stop(why);
}

}  // namespace

void AnswerOnConsoleOnly() {
#ifdef Q_OS_WIN
    // The system asks no question of its own either: a drive without its disk is an error
    // like any other, and a crash is no box that waits.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
#endif
    qInstallMessageHandler(OnQtMessage);
    std::set_terminate(OnTerminate);
}

}  // namespace common
