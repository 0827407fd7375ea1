#pragma once
// Inside gui/ only: the Qt widgets that stand behind the control handles, and what they
// share (fonts, colours, key filtering).

#include <QFont>
#include <QObject>
#include <QPushButton>
#include <QWidget>

#include "gui/control.h"
#include "gui/look.h"

namespace gui::detail {

QFont FontFor(const Look& look);
QColor ColourOf(int rgb);  // 0xRRGGBB
void ApplyColours(QWidget* widget, const Look& look, QPalette::ColorRole foreRole,
                  QPalette::ColorRole backRole);
int KeyCodeOf(const QKeyEvent& event);  // the character code of a key, 0 for none

// Hands the keys that give a character to a key-press handler. Enter is code 13 and is
// kept from the widget, so that a box never acts on it by itself.
class KeyFilter : public QObject {
  public:
    KeyFilter(QObject* parent, KeyHandler handler);
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    KeyHandler handler_;
};

// A push button that shows its picture above its caption and wraps the caption.
class PictureButton : public QPushButton {
  public:
    explicit PictureButton(QWidget* parent);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace gui::detail
