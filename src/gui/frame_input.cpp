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
    DialogKeys(Frame& frame, Button* defaultButton, Button* cancelButton)
        : QObject(frame.widget()),
          frame_(frame.widget()),
          hide_([&frame] { frame.setVisible(false); }),
          default_(defaultButton),
          cancel_(cancelButton) {
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
                if (!default_) return false;
                default_->Click();
                return true;
            case Qt::Key_Escape:
                if (cancel_)
                    cancel_->Click();
                else
                    hide_();
                return true;
            default:
                return false;
        }
    }

  private:
    QWidget* frame_;
    Handler hide_;
    Button* default_;  // none: Return does what it does elsewhere
    Button* cancel_;   // none: Escape hides the frame
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
    new DialogKeys(*this, &defaultButton, &cancelButton);
}

void Frame::HideOnEscape() {
    new DialogKeys(*this, nullptr, nullptr);
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
