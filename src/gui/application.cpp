#include "gui/application.h"

#include <QApplication>
#include <QIcon>

#include "gui/widgets.h"

namespace gui {

struct Application::Impl {
    Impl(int& argc, char** argv) : app(argc, argv) {}
    QApplication app;
};

Application::Application(int& argc, char** argv) : impl_(std::make_unique<Impl>(argc, argv)) {
    QApplication::setApplicationName(QStringLiteral("Rigwright"));
    QApplication::setDesktopFileName(QStringLiteral("rigwright"));
    // Whatever Qt draws on its own (headers, tips, menus) uses the form's font too, so that
    // start loads one family instead of two.
    QApplication::setFont(detail::FontFor(Look{}));
    // The window icon follows once the form has painted (gui::Form).
}

Application::~Application() = default;

int Application::Exec() {
    return QApplication::exec();
}

}  // namespace gui
