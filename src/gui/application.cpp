#include "gui/application.h"

#include <QApplication>
#include <QIcon>

namespace gui {

struct Application::Impl {
    Impl(int& argc, char** argv) : app(argc, argv) {}
    QApplication app;
};

Application::Application(int& argc, char** argv) : impl_(std::make_unique<Impl>(argc, argv)) {
    QApplication::setApplicationName(QStringLiteral("Rigwright"));
    QApplication::setDesktopFileName(QStringLiteral("rigwright"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/rigwright.xpm")));
}

Application::~Application() = default;

int Application::Exec() {
    return QApplication::exec();
}

}  // namespace gui
