#pragma once
// The window that the form's start is measured against, and the ways the bench paints a
// window and waits for its first paint.

#include <QStringList>
#include <functional>

#include "gui/control.h"

class QObject;
class QWidget;

namespace bench {

// The floor that the form's start is measured against: a plain Qt window holding the same
// kinds of Qt widgets as the form's controls, as many of each, with Qt's defaults and
// nothing of ours (no catalogue, fonts, colours, pictures or logic), shown.
class BareWindow {
  public:
    // Plain Qt's application object comes first, without the program's name, picture and font.
    BareWindow(int& argc, char** argv, const QStringList& kinds);
    ~BareWindow();
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;
    void PaintNow();
    void WaitUntilPainted(const std::function<void()>& painted = {});  // as the free function below

  private:
    QObject* app_;
    QWidget* window_;
};

QStringList ControlKinds(gui::Form& form);  // the Qt class of each named control on the form
void PaintNow(gui::Control& control);       // renders it in full at once
// Runs the event loop until the window has painted itself for the first time: on a real
// display, the moment a person first sees it. `painted` runs at that moment, before any
// work that the paint itself set going.
void WaitUntilPainted(gui::Control& window, const std::function<void()>& painted = {});

}  // namespace bench
