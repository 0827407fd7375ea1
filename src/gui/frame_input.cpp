// What a frame does with the keyboard: the buttons that Return and Escape press while it
// shows, and where the focus goes when it comes on screen and when it hides.
#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>

#include "gui/control.h"

namespace gui {
namespace detail {

// Remembers where the focus came from when it entered the frame. A frame that hides while it
// holds the focus gives it back there; left to itself, Qt would pass it on along the tab chain
// to whatever comes next, on the channel page "Next >", which a Space would then press.
class FocusReturn : public QObject {
  public:
    explicit FocusReturn(QWidget* frame) : QObject(frame), frame_(frame) {
        // When the window comes back from another one, the focus comes from nowhere: the
        // place it came from before still stands.
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
            if (inside(now) && old && !inside(old)) cameFrom_ = old;
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

// A plain push button takes Return only inside a dialog, and the frame is no dialog: the frame
// has shortcuts of its own. Qt lets a shortcut act only while the widget it belongs to shows,
// so these follow the frame's visibility, with the focus anywhere in its window.
void Frame::setDialogButtons(Button& defaultButton, Button& cancelButton) {
    auto* enter = new QShortcut(widget_);
    enter->setKeys({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    QObject::connect(enter, &QShortcut::activated, enter,
                     [&defaultButton] { defaultButton.Click(); });
    new QShortcut(QKeySequence(Qt::Key_Escape), widget_, [&cancelButton] { cancelButton.Click(); });
}

void Frame::HideOnEscape() {
    new QShortcut(QKeySequence(Qt::Key_Escape), widget_, [this] { setVisible(false); });
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
