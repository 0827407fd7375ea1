// A program set up as the command-line answers are, which then does what its arguments say,
// in turn: "warning", "critical", "fatal" give Qt messages of that kind, "throw" an exception
// nobody catches. Tests run it to see how each one ends it.
#include <QCoreApplication>
#include <stdexcept>

#include "common/console.h"

int main(int argc, char** argv) {
    common::AnswerOnConsoleOnly();
    QCoreApplication app(argc, argv);
    for (const QString& step : app.arguments().mid(1)) {
        if (step == u"warning") qWarning("a warning");
        if (step == u"critical") qCritical("a critical message");
        if (step == u"fatal") qFatal("could not load the platform plugin");
        if (step == u"throw") throw std::runtime_error("out of memory");
    }
    return 0;
}
