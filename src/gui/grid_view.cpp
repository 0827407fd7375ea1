#include "gui/grid_view.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include "gui/widgets.h"

namespace gui {

namespace {

// The column of marks, whose width the grid sets. Qt would measure the first and the last
// hundred marks for it all the same, each time the rows change.
class MarkHeader : public QHeaderView {
  public:
    explicit MarkHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {}
    QSize sizeHint() const override {
        if (minimumWidth() != maximumWidth()) return QHeaderView::sizeHint();
        return {minimumWidth(), defaultSectionSize()};
    }
};

}  // namespace

GridView::GridView(QWidget* parent) : QTableView(parent) {
    setVerticalHeader(new MarkHeader(this));
    // The heads and the marks report their clicks. A press on one would select its whole
    // column or row, and a drag over them extend that: a head moves the current cell instead.
    QHeaderView* heads = horizontalHeader();
    QHeaderView* marks = verticalHeader();
    for (QHeaderView* header : {heads, marks}) {
        header->setSectionsClickable(true);
        disconnect(header, &QHeaderView::sectionPressed, this, nullptr);
        disconnect(header, &QHeaderView::sectionEntered, this, nullptr);
        connect(header, &QHeaderView::sectionPressed, this, [this](int section) {
            afterDoubleClick_ = false;
            // Beyond the last head or mark no section reports its click: the press is the click.
            if (section < 0) headClicked();
        });
        connect(header, &QHeaderView::sectionDoubleClicked, this, &GridView::headDoubleClicked);
        connect(header, &QHeaderView::sectionHandleDoubleClicked, this,
                &GridView::headDoubleClicked);
    }
    connect(heads, &QHeaderView::sectionClicked, this, [this](int col) {
        // A column's head makes the column current, on the current row.
        const int row = anchorRow();
        resetAnchor();
        setCurrentIndex(model()->index(row, col));
        headClicked();
    });
    connect(marks, &QHeaderView::sectionClicked, this, [this](int row) {
        // A row's mark makes the row current and selects it; with Shift it extends the
        // selection from the current row, as a Shift click on a cell does.
        if (!(QGuiApplication::keyboardModifiers() & Qt::ShiftModifier)) {
            const int col = anchorCol();
            resetAnchor();
            setCurrentIndex(model()->index(row, col));
        }
        extendTo(row);
        headClicked();
    });
    // The corner, the head of the marks, is a button of the table's that does nothing: its
    // clicks are watched.
    if (auto* corner = findChild<QAbstractButton*>()) corner->installEventFilter(this);
}

void GridView::headDoubleClicked() {
    afterDoubleClick_ = true;
    if (dblClick) dblClick();
}

void GridView::headClicked() {
    if (afterDoubleClick_)
        afterDoubleClick_ = false;
    else if (click)
        click();
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress) afterDoubleClick_ = false;
    const bool release = type == QEvent::MouseButtonRelease;
    if ((release || type == QEvent::MouseButtonDblClick) &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        release ? headClicked() : headDoubleClicked();
    return QTableView::eventFilter(watched, event);
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
    // The release that ends a double click follows no press of its own.
    if (std::exchange(pressed_, false) && event->button() == Qt::LeftButton && click) click();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);  // on the empty area, a press
    pressed_ = false;
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
