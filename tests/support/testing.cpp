#include "support/testing.h"

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>
#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <QToolTip>
#include <QUrl>

#include "gui/grid_model.h"
#include "gui/grid_view.h"
#include "gui/look.h"
#include "gui/widgets.h"

namespace gui::testing {
namespace {

QPoint CellCentre(Grid& grid, int row, int col) {
    GridView* view = grid.view();
    const QModelIndex index = grid.model()->index(row - 1, col - 1);
    view->scrollTo(index);
    return view->visualRect(index).center();
}

// Press, move with the button held, release: QTest has no move with a button down.
void DragWithin(QWidget* widget, QPoint from, QPoint to) {
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), widget->mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

void ClickAt(QWidget* widget, QPoint at, int clicks, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(widget, Qt::LeftButton, modifiers, at);
    if (clicks < 2) return;
    // QTest's double click sends the double-click event alone; a real one comes after the
    // second press and ends with a release.
    QTest::mousePress(widget, Qt::LeftButton, modifiers, at);
    QTest::mouseDClick(widget, Qt::LeftButton, modifiers, at);
    QTest::mouseRelease(widget, Qt::LeftButton, modifiers, at);
}

QWidget* FocusWidget() {
    QWidget* focus = QApplication::focusWidget();
    if (!focus) qWarning("No widget has the focus: the keys go nowhere");
    return focus;
}

}  // namespace

void ClickCell(Grid& grid, int row, int col, int clicks) {
    ClickAt(grid.view()->viewport(), CellCentre(grid, row, col), clicks);
}

void DragRows(Grid& grid, int fromRow, int toRow, int col) {
    QWidget* viewport = grid.view()->viewport();
    const QPoint from = CellCentre(grid, fromRow, col);
    DragWithin(viewport, from, CellCentre(grid, toRow, col));
}

void ClickEmptyArea(Grid& grid, int clicks) {
    QWidget* viewport = grid.view()->viewport();
    ClickAt(viewport, QPoint(2, viewport->height() - 2), clicks);
}

void ClickHead(Grid& grid, int col, int clicks) {
    QHeaderView* heads = grid.view()->horizontalHeader();
    if (col == 0) {
        auto* corner = grid.view()->findChild<QAbstractButton*>();
        ClickAt(corner, corner->rect().center(), clicks);
        return;
    }
    const int x = heads->sectionViewportPosition(col - 1) + heads->sectionSize(col - 1) / 2;
    ClickAt(heads->viewport(), QPoint(x, heads->height() / 2), clicks);
}

void ClickMark(Grid& grid, int row, Qt::KeyboardModifiers modifiers, int clicks) {
    grid.view()->scrollTo(grid.model()->index(row - 1, 0));
    QHeaderView* marks = grid.view()->verticalHeader();
    const int y = marks->sectionViewportPosition(row - 1) + marks->sectionSize(row - 1) / 2;
    ClickAt(marks->viewport(), QPoint(marks->width() / 2, y), clicks, modifiers);
}

void ClickBelowMarks(Grid& grid) {
    QWidget* marks = grid.view()->verticalHeader()->viewport();
    ClickAt(marks, QPoint(marks->width() / 2, marks->height() - 2), 1);
}

QAbstractItemModel* ModelOf(Grid& grid) {
    return grid.model();
}

QStringList RowsOf(const Grid& grid, QChar between) {
    QStringList rows;
    for (int r = 1; r < grid.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < grid.Cols(); ++c) cells << grid.TextMatrix(r, c);
        rows << cells.join(between);
    }
    return rows;
}

void SetRows(Grid& grid, const QStringList& rows, QChar between) {
    const int old = grid.Rows() - 1;
    for (const QString& row : rows) grid.AddItem(QString(row).replace(between, u'\t'));
    for (int r = 0; r < old; ++r) grid.RemoveItem(1);
}

QString ToolTipOfCell(Grid& grid, int row, int col) {
    QToolTip::hideText();  // a tip goes after a short delay: wait until the last one has gone
    if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); }))
        return QStringLiteral("(the last tip stays)");
    QWidget* viewport = grid.view()->viewport();
    const QPoint at = CellCentre(grid, row, col);
    QHelpEvent rest(QEvent::ToolTip, at, viewport->mapToGlobal(at));
    QCoreApplication::sendEvent(viewport, &rest);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

void DragColumnBorder(Grid& grid, int col, int pixels) {
    QHeaderView* head = grid.view()->horizontalHeader();
    const int section = col - 1;
    const int border = head->sectionViewportPosition(section) + head->sectionSize(section) - 1;
    const QPoint from(border, head->height() / 2);
    DragWithin(head->viewport(), from, from + QPoint(pixels, 0));
}

void Click(Control& control) {
    QWidget* w = control.widget();
    QTest::mouseClick(w, Qt::LeftButton, {}, w->rect().center());
}

void TypeKeys(const QString& text) {
    // Key by key: a key may move the focus, as the first key on a grid opens its editor.
    for (const QChar c : text)
        if (QWidget* focus = FocusWidget()) QTest::keyClicks(focus, QString(c));
}

void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (QWidget* focus = FocusWidget()) QTest::keyClick(focus, key, modifiers);
}

void PickItem(ComboBox& box, int index) {
    auto* combo = static_cast<QComboBox*>(box.widget());
    if (FocusWidget() != combo) qWarning("The list to pick from has not the focus");
    for (int tries = combo->count(); tries > 0 && combo->currentIndex() != index; --tries)
        PressKey(combo->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
}

QObject* ActiveDialog() {
    // A dialog takes the focus a moment after it comes up, or after a box above it has
    // gone: wait for it, as a user waits before typing. Without a window manager (the
    // offscreen platform) nothing hands the focus back, so the dialog is activated as a
    // window manager would.
    QWidget* dialog = nullptr;
    const auto focused = [&dialog] {
        dialog = QApplication::activeModalWidget();
        QWidget* focus = QApplication::focusWidget();
        return dialog && focus && dialog->isAncestorOf(focus);
    };
    if (!QTest::qWaitFor(focused, 1000) && dialog) {
        dialog->activateWindow();
        if (!QTest::qWaitFor(focused)) qWarning("The dialog does not take the focus");
    }
    return dialog;
}

QString FocusName() {
    QWidget* focus = QApplication::focusWidget();
    return focus ? focus->objectName() : QString();
}

QString FolderOf(QObject* fileDialog) {
    auto* dialog = qobject_cast<QFileDialog*>(fileDialog);
    return dialog ? dialog->directory().absolutePath() : QString();
}

void LeaveAndComeBack(Form& form) {
    QWidget other;
    other.show();
    other.activateWindow();
    if (!QTest::qWaitForWindowActive(&other)) qWarning("The other window does not come up");
    form.widget()->activateWindow();
    if (!QTest::qWaitForWindowActive(form.widget())) qWarning("The window does not come back");
}

void CloseBox(Form& form) {
    form.widget()->close();
}

QImage Grab(Control& control) {
    return control.widget()->grab().toImage();
}
bool ShownOnScreen(const Control& control) {
    return control.widget()->isVisible();
}
bool HasFocus(const Control& control) {
    QWidget* focus = QApplication::focusWidget();
    return focus && (focus == control.widget() || control.widget()->isAncestorOf(focus));
}

QObject* Find(Form& form, const QString& name) {
    if (form.widget()->objectName() == name) return form.widget();
    return form.widget()->findChild<QObject*>(name);
}

QString CaptionOf(QObject* control) {
    if (auto* w = qobject_cast<QMessageBox*>(control)) return w->text();
    if (auto* w = qobject_cast<QLabel*>(control)) return w->text();
    if (auto* w = qobject_cast<QAbstractButton*>(control)) return w->text();
    if (auto* w = qobject_cast<QGroupBox*>(control)) return w->title();
    if (auto* w = qobject_cast<QLineEdit*>(control)) return w->text();
    if (auto* w = qobject_cast<QTextEdit*>(control)) return w->toPlainText();
    if (auto* w = qobject_cast<QComboBox*>(control)) return w->currentText();
    if (auto* w = qobject_cast<QWidget*>(control); w && w->isWindow()) return w->windowTitle();
    return {};
}

bool HiddenOf(QObject* control) {
    auto* w = qobject_cast<QWidget*>(control);
    return w && w->isHidden();
}

QImage PictureOf(QObject* control, qreal pixelRatio) {
    QString resource;
    if (auto* button = dynamic_cast<detail::PictureButton*>(control)) resource = button->picture();
    if (auto* image = dynamic_cast<detail::PictureLabel*>(control)) resource = image->picture();
    return resource.isEmpty() ? QImage() : detail::PictureAt(resource, pixelRatio).toImage();
}

QList<QSize> IconSizesOf(Form& form) {
    return form.widget()->windowIcon().availableSizes();
}

bool WaitForShown(Form& form) {
    return QTest::qWaitForWindowExposed(form.widget());
}

void DropFile(Control& onto, const QString& path) {
    QWidget* target = onto.widget();
    const QPoint at = target->rect().center();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return;  // the window does not take it: no drop
    QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
}

bool PlacedByWindowManager(Form& form) {
    return !form.widget()->testAttribute(Qt::WA_Moved);
}

QString Announced(Form& form) {
    QCoreApplication::processEvents();  // announcements are made as the turn ends
    QWidget* announcer = form.widget()->findChild<QWidget*>(QStringLiteral("announcement"));
    if (!announcer || announcer->isHidden()) return {};
    return QAccessible::queryAccessibleInterface(announcer)->text(QAccessible::Name);
}

namespace {
ScreenReader* listening = nullptr;
}  // namespace

void ScreenReader::Hear(QAccessibleEvent* event) {
    QAccessibleInterface* at = event->accessibleInterface();
    if (!listening || !at) return;
    const QString name = at->text(QAccessible::Name);
    if (event->type() == QAccessible::Focus)
        listening->heard_ << (at->state().invisible ? QStringLiteral("(hidden) ") : QString()) +
                                 name;
    else if (event->type() == QAccessible::ObjectShow && at->role() == QAccessible::Notification)
        listening->heard_ << name;
}

ScreenReader::ScreenReader() {
    QCoreApplication::processEvents();  // what was said before is not heard
    listening = this;
    QAccessible::installUpdateHandler(Hear);
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
}

QStringList ScreenReader::heard() {
    QCoreApplication::processEvents();
    return heard_;
}

ScreenReader::~ScreenReader() {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(false);
    QAccessible::installUpdateHandler(nullptr);
    listening = nullptr;
}

}  // namespace gui::testing
