#pragma once
// Inside gui/ only: the Qt widgets that stand behind the control handles, and what they
// share (fonts, colours, key filtering).

#include <QFont>
#include <QIcon>
#include <QLabel>
#include <QObject>
#include <QPixmap>
#include <QPushButton>
#include <QWidget>

#include "gui/control.h"
#include "gui/look.h"

namespace gui::detail {

QFont FontFor(const Look& look);

// The window icon: every PNG in the resource folder `folder`, one size each, so that the
// desktop picks the size it shows instead of scaling one.
QIcon IconSetOf(const QString& drawing);  // the window icon from its SVG drawing
// The drawing (.svg) in `resource` at its own size in device-independent pixels, drawn for a
// screen of `pixelRatio` device pixels per pixel, so that it stays sharp. Each picture is drawn
// once per ratio.
QPixmap PictureAt(const QString& resource, qreal pixelRatio);
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

// A button with its picture above the caption. The picture is read when the button is first
// drawn, so that the buttons of pages not on show cost nothing at start.
class PictureButton : public QPushButton {
  public:
    explicit PictureButton(QWidget* parent);
    QSize sizeHint() const override;
    void setPicture(const QString& resource);
    const QString& picture() const { return resource_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    // Return presses the button that has the focus, as Space does; Qt's button takes Return
    // only inside a dialog.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QString resource_;
};

// An image control: its picture at the top left, drawn for the screen the control is on.
class PictureLabel : public QLabel {
  public:
    PictureLabel() = default;
    void setPicture(const QString& resource);
    const QString& picture() const { return resource_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString resource_;
};

}  // namespace gui::detail
