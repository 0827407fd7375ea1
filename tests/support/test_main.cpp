// The main of every test program but the one without a window (see form_fixture.h).
#include <QFile>
#include <QTest>
#include <vector>

#include "gui/application.h"
#include "support/form_fixture.h"

namespace {

// Each class's run writes the file of "-o FILE,FORMAT" anew. Where the output is read from that
// file alone (under Wine, whose programs have no standard output to read), each class writes a
// part of its own, and the file gets the parts in turn: the whole program's results.
struct Output {
    int at = -1;  // the argument that names the file, -1 when none does
    QString file, format;
};

Output OutputOf(const std::vector<char*>& arguments) {
    for (std::size_t i = 1; i + 1 < arguments.size(); ++i) {
        if (qstrcmp(arguments[i], "-o") != 0) continue;
        const QString value = QString::fromLocal8Bit(arguments[i + 1]);
        const qsizetype comma = value.lastIndexOf(u',');
        if (value == u"-") return {};
        return {int(i + 1), comma < 0 ? value : value.left(comma),
                comma < 0 ? QString() : value.mid(comma)};
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    gui::Application app(argc, argv);
    std::vector<char*> arguments(argv, argv + argc);
    const Output output = OutputOf(arguments);
    const QByteArray part =
        QFile::encodeName(output.file + QStringLiteral(".part")) + output.format.toLocal8Bit();
    QFile whole(output.file);
    if (output.at > 0) {
        arguments[output.at] = const_cast<char*>(part.constData());
        if (!whole.open(QIODevice::WriteOnly)) qFatal("Cannot write %s", qPrintable(output.file));
    }
    int failures = 0;
    for (const auto& make : test_support::Registry()) {
        failures += QTest::qExec(make().get(), int(arguments.size()), arguments.data());
        if (output.at < 0) continue;
        QFile written(output.file + QStringLiteral(".part"));
        if (!written.open(QIODevice::ReadOnly)) return failures + 1;  // a class that wrote nothing
        whole.write(written.readAll());
        whole.flush();
        written.remove();
    }
    return failures;
}
