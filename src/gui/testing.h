#pragma once
// For tests: drives the real widgets behind the control handles as a user does, and reads
// back what a user would see. Tests use these instead of Qt's widget classes.

#include <QImage>
#include <QRect>
#include <QString>
#include <QStringList>
#include <Qt>

#include "gui/control.h"
#include "gui/grid.h"
#include "gui/picture.h"

class QAbstractItemModel;
class QObject;
class QWidget;

namespace gui::testing {

void ClickCell(Grid& grid, int row, int col);
void DoubleClickCell(Grid& grid, int row, int col);
void DragRows(Grid& grid, int fromRow, int toRow, int col);  // press, move, release
void ClickEmptyArea(Grid& grid);                             // below the last row
QAbstractItemModel* ModelOf(Grid& grid);

void Click(Control& control);  // a left click in the middle of the control
void TypeText(Control& control, const QString& text);
void PressKey(Control& control, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void PickItem(ComboBox& box, int index);  // as the user choosing from the list
void CloseBox(Form& form);                // the window's close box
bool WaitForShown(Form& form);            // until the window is on screen

QImage Grab(Control& control);
bool ShownOnScreen(const Control& control);  // visible, its containers too
bool HasFocus(const Control& control);

// Looking controls up by object name, as accessibility tools and catalogue tests do.
QObject* Find(Form& form, const QString& name);
QString CaptionOf(QObject* control);  // caption, title or text of whatever control it is
QRect PlaceOf(QObject* control);      // Left, Top, Width, Height in twips
QString KindOf(QObject* control);     // "label", "button", "frame", "text box", ...
bool EnabledOf(QObject* control);
bool HiddenOf(QObject* control);  // its own visible state is off
QString ToolTipOf(QObject* control);
QString AccessibleNameOf(QObject* control);
int FontPointsX100(QObject* control);  // font size in hundredths of a point
bool BoldOf(QObject* control);

}  // namespace gui::testing

namespace gui::testing {

// The floor that the form's start is measured against: a plain Qt window holding the same
// kinds of Qt widgets as the form's controls, as many of each, with Qt's defaults and
// nothing of ours (no catalogue, fonts, colours, pictures or logic), shown.
class BareWindow {
  public:
    // Plain Qt's application object, without the program's name, picture and font.
    class Application {
      public:
        Application(int& argc, char** argv);
        ~Application();
        Application(const Application&) = delete;
        Application& operator=(const Application&) = delete;

      private:
        QObject* app_;
    };

    explicit BareWindow(const QStringList& kinds);
    ~BareWindow();
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;
    void PaintNow();
    void WaitUntilPainted();  // see the free function below

  private:
    QWidget* window_;
};

int WidgetCount(Form& form);           // the form and everything on it
QStringList ControlKinds(Form& form);  // the Qt class of each named control on the form
void PaintNow(Control& control);       // renders it in full at once
// Runs the event loop until the window has painted itself for the first time: on a real
// display, the moment a person first sees it.
void WaitUntilPainted(Control& window);

}  // namespace gui::testing

namespace gui::testing {

// Lets the mouse button go over a cell. QTest's double click sends the double-click event
// alone; a real mouse follows it with a release, which the grid takes as the end of that
// double click rather than as a new click.
void ReleaseCell(Grid& grid, int row, int col);

}  // namespace gui::testing
