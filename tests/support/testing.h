#pragma once
// For tests: drives the real widgets behind the control handles as a user does, and reads
// back what a user would see. Tests use these instead of Qt's widget classes.

#include <QImage>
#include <QList>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <Qt>

#include "gui/control.h"
#include "gui/grid.h"
#include "gui/picture.h"

class QAbstractItemModel;
class QAccessibleEvent;
class QObject;
class QWidget;

namespace gui::testing {

// A click where a mouse lands on the grid; with `clicks` 2 a double click.
void ClickCell(Grid& grid, int row, int col, int clicks = 1);
void DragRows(Grid& grid, int fromRow, int toRow, int col);  // press, move, release
void ClickEmptyArea(Grid& grid, int clicks = 1);             // below the last row
void ClickHead(Grid& grid, int col, int clicks = 1);  // a column's head; column 0's is the corner
void ClickMark(Grid& grid, int row,                   // the mark of a row, in the fixed column
               Qt::KeyboardModifiers modifiers = {}, int clicks = 1);
void ClickBelowMarks(Grid& grid);  // the fixed column, below the last row's mark
QAbstractItemModel* ModelOf(Grid& grid);
// The grid's body rows, each as its cells from the mark on, joined by `between`.
QStringList RowsOf(const Grid& grid, QChar between);
// The grid's body becomes `rows`, each given as its cells from the mark on, joined by `between`.
void SetRows(Grid& grid, const QStringList& rows, QChar between);
// The mouse rests on a cell until its tool tip comes: the tip's text, empty if none shows.
QString ToolTipOfCell(Grid& grid, int row, int col);
// Drags the right border of column `col` in the head row by `pixels` (negative: narrower).
void DragColumnBorder(Grid& grid, int col, int pixels);

void Click(Control& control);  // a left click in the middle of the control
// Keys go where a keyboard's keys go: to the widget that has the focus. A test first gives
// the focus as a user does, by a click or the Tab key.
void TypeKeys(const QString& text);
void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
// Picks a list item as a user does with the cursor keys, the box having the focus.
void PickItem(ComboBox& box, int index);
// The modal dialog on screen, for a test that lets a real one come up; null when none.
QObject* ActiveDialog();
QString FocusName();                    // object name of the widget that has the focus
QString FolderOf(QObject* fileDialog);  // the folder a file dialog shows
void CloseBox(Form& form);              // the window's close box
void LeaveAndComeBack(Form& form);      // to another window and back, as with Alt+Tab
bool WaitForShown(Form& form);          // until the window is on screen

QImage Grab(Control& control);
bool ShownOnScreen(const Control& control);  // visible, its containers too
bool HasFocus(const Control& control);

// Looking controls up by object name, as accessibility tools and catalogue tests do.
QObject* Find(Form& form, const QString& name);
QString CaptionOf(QObject* control);  // caption, title or text of whatever control it is,
                                      // a message box's text too
bool HiddenOf(QObject* control);      // its own visible state is off
// The picture of a button or image as drawn for a screen of `pixelRatio` device pixels per
// pixel; a null image for a control without one.
QImage PictureOf(QObject* control, qreal pixelRatio);
QList<QSize> IconSizesOf(Form& form);  // the sizes the window offers its icon in

// Drags a local file over the middle of `onto` and lets it go there, as from a file manager.
void DropFile(Control& onto, const QString& path);
// The window shows where the window manager puts it: no place was given to it.
bool PlacedByWindowManager(Form& form);

// What was last said to a screen reader without moving the focus.
QString Announced(Form& form);

// What a screen reader is told while one lives, in turn: each move of the focus as the name of
// what takes it (the line of a list, the cell of a grid), "(hidden)" before it when it is not on
// screen, and each text said without moving the focus.
class ScreenReader {
  public:
    ScreenReader();
    ~ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;
    QStringList heard();  // as the turn ends, when what is said is said

  private:
    static void Hear(QAccessibleEvent* event);
    QStringList heard_;
};

}  // namespace gui::testing
