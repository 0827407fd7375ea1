#include "floor_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEventLoop>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTextEdit>
#include <algorithm>

namespace bench {
namespace {

// The Qt classes that stand behind our own widget classes, each as the floor makes one.
using MakeWidget = QWidget* (*)(QWidget*);
const std::pair<const char*, MakeWidget> kKinds[] = {
    {"QGroupBox", [](QWidget* p) -> QWidget* { return new QGroupBox("frame", p); }},
    {"QLineEdit", [](QWidget* p) -> QWidget* { return new QLineEdit("text", p); }},
    {"QTextEdit", [](QWidget* p) -> QWidget* { return new QTextEdit("text", p); }},
    {"QComboBox", [](QWidget* p) -> QWidget* { return new QComboBox(p); }},
    {"QRadioButton", [](QWidget* p) -> QWidget* { return new QRadioButton("option", p); }},
    {"QCheckBox", [](QWidget* p) -> QWidget* { return new QCheckBox("check", p); }},
    {"QPushButton", [](QWidget* p) -> QWidget* { return new QPushButton("button", p); }},
    {"QListWidget", [](QWidget* p) -> QWidget* { return new QListWidget(p); }},
    {"QTableView", [](QWidget* p) -> QWidget* { return new QTableView(p); }},
    {"QLabel", [](QWidget* p) -> QWidget* { return new QLabel("label", p); }},
    {"QFrame", [](QWidget* p) -> QWidget* { return new QFrame(p); }}};

void RunUntilPainted(QWidget* window, const std::function<void()>& painted) {
    class PaintSeen : public QObject {
      public:
        PaintSeen(QEventLoop& loop, const std::function<void()>& painted)
            : loop_(loop), painted_(painted) {}
        bool eventFilter(QObject*, QEvent* event) override {
            // Once this paint is done and on screen, before whatever the paint itself set
            // going: says so and ends the loop.
            if (event->type() == QEvent::Paint)
                QMetaObject::invokeMethod(
                    &loop_,
                    [this] {
                        if (painted_) painted_();
                        loop_.quit();
                    },
                    Qt::QueuedConnection);
            return false;
        }

      private:
        QEventLoop& loop_;
        const std::function<void()>& painted_;
    };
    QEventLoop loop;
    PaintSeen filter(loop, painted);
    window->installEventFilter(&filter);
    loop.exec();
    window->removeEventFilter(&filter);
}

}  // namespace

BareWindow::BareWindow(int& argc, char** argv, const QStringList& kinds)
    : app_(new QApplication(argc, argv)), window_(new QWidget) {
    window_->resize(650, 484);
    int i = 0;
    for (const QString& kind : kinds) {
        const auto* k = std::find_if(std::begin(kKinds), std::end(kKinds),
                                     [&](const auto& k) { return kind == QLatin1String(k.first); });
        if (k == std::end(kKinds)) continue;  // none of ours: the floor has none either
        QWidget* w = k->second(window_);
        w->setGeometry((i % 10) * 64, (i / 10) * 24 % 460, 60, 20);
        ++i;
    }
    window_->show();
}

BareWindow::~BareWindow() {
    delete window_;
    delete app_;
}
void BareWindow::PaintNow() {
    window_->grab();
}

void BareWindow::WaitUntilPainted(const std::function<void()>& painted) {
    RunUntilPainted(window_, painted);
}

QStringList ControlKinds(gui::Form& form) {
    QStringList kinds;
    for (QWidget* w : form.widget()->findChildren<QWidget*>()) {
        if (w->objectName().isEmpty() || w->objectName().startsWith(u"qt_")) continue;
        for (const auto& [kind, make] : kKinds) {
            if (w->inherits(kind)) {
                kinds << QString::fromLatin1(kind);
                break;
            }
        }
    }
    return kinds;
}

void PaintNow(gui::Control& control) {
    control.widget()->grab();
}

void WaitUntilPainted(gui::Control& window, const std::function<void()>& painted) {
    RunUntilPainted(window.widget(), painted);
}

}  // namespace bench
