// The main of every test program but the one without a window (see form_fixture.h).
#include <QTest>

#include "gui/application.h"
#include "support/form_fixture.h"

int main(int argc, char** argv) {
    gui::Application app(argc, argv);
    int failures = 0;
    for (const auto& make : test_support::Registry())
        failures += QTest::qExec(make().get(), argc, argv);
    return failures;
}
