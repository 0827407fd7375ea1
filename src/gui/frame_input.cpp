// What a frame does with the keyboard: the buttons that Return and Escape press while it
// shows, and where the focus goes when it comes on screen and when it hides.
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

#include "gui/control.h"

namespace gui {
namespace detail {

// Remembers where the focus came from when it entered the frame. A frame that hides while it
// holds the focus gives it back there; left to itself, Qt would pass it on along the tab chain
// to whatever comes next, on the channel page "Next >", which a Space would then press.
class FocusReturn : public QObject {
  public:
    explicit FocusReturn(QWidget* frame) : QObject(frame), frame_(frame) {
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
            if (inside(now) && !inside(old)) cameFrom_ = old;
        });
    }
    void giveBack() {
        if (inside(QApplication::focusWidget()) && cameFrom_ && cameFrom_->isVisible() &&
            cameFrom_->isEnabled())
            cameFrom_->setFocus(Qt::OtherFocusReason);
    }

  private:
    bool inside(const QWidget* w) const { return w && frame_->isAncestorOf(w); }
    QWidget* frame_;
    QPointer<QWidget> cameFrom_;
};

}  // namespace detail

namespace {

// Watches every key of the application: a plain push button acts on Return only inside a
// dialog, and the frame is no dialog, so its keys are caught before any control sees them.
class DialogKeys : public QObject {
  public:
    DialogKeys(QWidget* frame, Button& defaultButton, Button& cancelButton)
        : QObject(frame), frame_(frame), default_(defaultButton), cancel_(cancelButton) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !frame_->isVisible()) return false;
        auto* target = qobject_cast<QWidget*>(watched);
        if (!target || target->window() != frame_->window()) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & ~Qt::KeypadModifier) return false;
        switch (key->key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
                default_.Click();
                return true;
            case Qt::Key_Escape:
                cancel_.Click();
                return true;
            default:
                return false;
        }
    }

  private:
    QWidget* frame_;
    Button& default_;
    Button& cancel_;
};

bool TakesInput(const QWidget* w) {
    return (w->focusPolicy() & Qt::TabFocus) && !w->focusProxy() &&
           !qobject_cast<const QPushButton*>(w);
}

}  // namespace

void Frame::setVisible(bool visible) {
    if (visible && !focusReturn_) focusReturn_ = new detail::FocusReturn(widget_);
    if (!visible && focusReturn_) focusReturn_->giveBack();
    widget_->setVisible(visible);
}

void Frame::setDialogButtons(Button& defaultButton, Button& cancelButton) {
    new DialogKeys(widget_, defaultButton, cancelButton);
}

bool Frame::FocusFirstInput() {
    // The window's focus chain is its tab order, whatever order the controls were made in.
    QWidget* window = widget_->window();
    for (QWidget* w = window->nextInFocusChain(); w && w != window; w = w->nextInFocusChain()) {
        if (widget_->isAncestorOf(w) && TakesInput(w) && w->isEnabled() &&
            w->isVisibleTo(widget_)) {
            w->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return false;
}

}  // namespace gui
