#pragma once
// Inside gui/ only: the Qt widgets that stand behind the control handles, and what they
// share (fonts, colours, key filtering).

#include <QFont>
#include <QIcon>
#include <QObject>
#include <QPushButton>
#include <QWidget>

#include "gui/control.h"
#include "gui/look.h"

namespace gui::detail {

QFont FontFor(const Look& look);

// The picture in `resource`, read once however many controls show it.
QIcon PictureOf(const QString& resource);
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
// A button with its picture above the caption. The picture is read when the button is first
// drawn, so that the buttons of pages not on show cost nothing at start.
class PictureButton : public QPushButton {
  public:
    explicit PictureButton(QWidget* parent);
    QSize sizeHint() const override;
    void setPicture(const QString& resource);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString resource_;
    QIcon picture_;
};

}  // namespace gui::detail
