#include "gui/grid_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include "gui/widgets.h"

namespace gui {

GridView::GridView(QWidget* parent) : QTableView(parent) {
    // The heads and the marks are widgets of their own; their clicks are watched here and
    // left to them as well, so that a drag on a border still does what the head does.
    horizontalHeader()->viewport()->installEventFilter(this);
    verticalHeader()->viewport()->installEventFilter(this);
    if (auto* corner = findChild<QAbstractButton*>()) corner->installEventFilter(this);
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    const bool onHead = watched == horizontalHeader()->viewport() ||
                        watched == verticalHeader()->viewport() ||
                        qobject_cast<QAbstractButton*>(watched);
    const QEvent::Type type = event->type();
    if (onHead && type == QEvent::MouseButtonDblClick) {
        headPressed_ = false;  // the click before it was the Click
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && dblClick) dblClick();
    } else if (onHead && (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease)) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const QPoint at = mouse->globalPosition().toPoint();
        const bool left = mouse->button() == Qt::LeftButton;
        if (type == QEvent::MouseButtonPress) {
            headPressed_ = left;
            headPress_ = at;
        } else {
            // A drag on a head is no click.
            const bool dragged =
                (at - headPress_).manhattanLength() >= QApplication::startDragDistance();
            if (headPressed_ && left && !dragged) {
                moveToHead(watched, *mouse);
                if (click) click();
            }
            headPressed_ = false;
        }
    }
    return QTableView::eventFilter(watched, event);
}

void GridView::moveToHead(QObject* head, const QMouseEvent& mouse) {
    const QPoint at = mouse.position().toPoint();
    if (head == verticalHeader()->viewport()) {
        // A row's mark makes the row current and selects it; with Shift it extends the
        // selection from the current row, as a Shift click on a cell does.
        const int row = verticalHeader()->logicalIndexAt(at.y());
        if (row < 0) return;
        if (!(mouse.modifiers() & Qt::ShiftModifier)) {
            const int col = anchorCol();
            resetAnchor();
            setCurrentIndex(model()->index(row, col));
        }
        extendTo(row);
    } else if (head == horizontalHeader()->viewport()) {
        // A column's head makes the column current, on the current row.
        const int col = horizontalHeader()->logicalIndexAt(at.x());
        if (col < 0) return;
        const int row = anchorRow();
        resetAnchor();
        setCurrentIndex(model()->index(row, col));
    }
}

int GridView::anchorRow() const {
    return extended_ ? anchorRow_ : qMax(0, currentIndex().row());
}
int GridView::anchorCol() const {
    return extended_ ? anchorCol_ : qMax(0, currentIndex().column());
}
int GridView::farRow() const {
    return qMax(0, currentIndex().row());
}

void GridView::extendTo(int bodyRow) {
    const int row = anchorRow();
    const int col = anchorCol();
    extending_ = true;
    const QModelIndex far = model()->index(bodyRow, col);
    selectionModel()->setCurrentIndex(far, QItemSelectionModel::NoUpdate);
    selectionModel()->select(
        QItemSelection(model()->index(qMin(row, bodyRow), 0),
                       model()->index(qMax(row, bodyRow), model()->columnCount() - 1)),
        QItemSelectionModel::ClearAndSelect);
    extending_ = false;
    anchorRow_ = row;
    anchorCol_ = col;
    extended_ = true;
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (extending_ && !extended_) {
        anchorRow_ = qMax(0, previous.row());
        anchorCol_ = qMax(0, previous.column());
        extended_ = true;
    } else if (!extending_) {
        extended_ = false;
    }
    // The table tells a screen reader that the new current cell has the focus; when the
    // focus is elsewhere (on "delete line", on "merge"), that would send it to the cell.
    if (hasFocus())
        QTableView::currentChanged(current, previous);
    else
        QAbstractItemView::currentChanged(current, previous);
}

void GridView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) {
    extended_ = false;
    QTableView::rowsAboutToBeRemoved(parent, start, end);
}

void GridView::mousePressEvent(QMouseEvent* event) {
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    extending_ = shift;
    QTableView::mousePressEvent(event);
    extending_ = false;
    pressed_ = event->button() == Qt::LeftButton;
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    extending_ = pressed_ && (event->buttons() & Qt::LeftButton);
    QTableView::mouseMoveEvent(event);
    extending_ = false;
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    const bool wasPressed = pressed_;
    pressed_ = false;
    if (afterDoubleClick_) {
        afterDoubleClick_ = false;
        return;
    }
    if (wasPressed && event->button() == Qt::LeftButton && click) click();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    pressed_ = false;
    afterDoubleClick_ = true;
    if (event->button() == Qt::LeftButton && dblClick) dblClick();
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const int code = detail::KeyCodeOf(*event);
    if (code != 0) {
        if (keyPress) keyPress(code);
        event->accept();
        return;
    }
    extending_ = event->modifiers() & Qt::ShiftModifier;
    QTableView::keyPressEvent(event);
    extending_ = false;
}

int GridStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
    if (hint == SH_Table_GridLineColor) return static_cast<int>(qRgb(0xC0, 0xC0, 0xC0));
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

}  // namespace gui
