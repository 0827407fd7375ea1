#include "gui/grid.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "gui/grid_model.h"
#include "gui/grid_view.h"
#include "gui/widgets.h"

namespace gui {
namespace {

struct Head {
    QString text;
    Qt::Alignment align = Qt::AlignLeft;
};

std::vector<Head> ParseFormat(const QString& format) {
    std::vector<Head> heads;
    for (QString part : format.split(u'|')) {
        Head head;
        if (part.startsWith(u'^')) {
            head.align = Qt::AlignHCenter;
            part.remove(0, 1);
        } else if (part.startsWith(u'>')) {
            head.align = Qt::AlignRight;
            part.remove(0, 1);
        } else if (part.startsWith(u'<')) {
            part.remove(0, 1);
        }
        head.text = part;
        heads.push_back(head);
    }
    return heads;
}

// Paints the head of column 0 into the corner where the two headers meet.
class CornerPainter : public QObject {
  public:
    CornerPainter(QObject* parent, const GridModel* model) : QObject(parent), model_(model) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        auto* corner = static_cast<QWidget*>(watched);
        QPainter p(corner);
        p.fillRect(corner->rect(), corner->palette().button());
        p.setPen(corner->palette().color(QPalette::Mid));
        p.drawRect(corner->rect().adjusted(0, 0, -1, -1));
        p.setPen(corner->palette().color(QPalette::ButtonText));
        p.drawText(corner->rect(), Qt::AlignCenter, model_->Cell(0, 0));
        return true;
    }

  private:
    const GridModel* model_;
};

// What a screen reader reads of the heads and the marks: a head without the blanks that
// set its column's width, a mark as the row it stands for.
class SpokenGridModel : public GridModel {
  public:
    using GridModel::GridModel;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::AccessibleTextRole)
            return GridModel::headerData(section, orientation, role);
        if (orientation == Qt::Horizontal)
            return GridModel::headerData(section, orientation, Qt::DisplayRole)
                .toString()
                .trimmed();
        return QStringLiteral("row %1").arg(section + 1);
    }
};

constexpr int kCellPadding = 8;

// The model gives every cell's text as its tool tip; the tip shows only over a cell that its
// column cuts. Column widths change when the user drags a border, so the check is made on the
// width the column has at that moment.
class CutCellTips : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const int margin =
            view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
        const QString text = index.data(Qt::ToolTipRole).toString();
        if (event->type() == QEvent::ToolTip &&
            view->fontMetrics().horizontalAdvance(text) + 2 * margin <= option.rect.width()) {
            QToolTip::hideText();
            return true;
        }
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
};

}  // namespace

Grid::Grid() = default;
Grid::~Grid() = default;

void Grid::create(Control& parent, const QString& name, const Look& look, const QString& format,
                  ScrollBars bars) {
    const std::vector<Head> heads = ParseFormat(format);
    std::vector<Qt::Alignment> alignments;
    for (const Head& h : heads) alignments.push_back(h.align);
    model_ = std::make_unique<SpokenGridModel>(static_cast<int>(heads.size()), alignments);
    for (int c = 0; c < static_cast<int>(heads.size()); ++c) model_->SetCell(0, c, heads[c].text);

    view_ = new GridView;
    adopt(view_, parent, name, look);
    view_->setModel(model_.get());
    view_->setStyle(new GridStyle(view_->style()->name()));
    view_->style()->setParent(view_);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    view_->setSelectionBehavior(QAbstractItemView::SelectItems);
    view_->setWordWrap(false);
    view_->setTextElideMode(Qt::ElideNone);
    view_->setCornerButtonEnabled(false);
    view_->setTabKeyNavigation(false);
    view_->setHorizontalScrollBarPolicy(bars == ScrollBars::Both ? Qt::ScrollBarAsNeeded
                                                                 : Qt::ScrollBarAlwaysOff);
    view_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);

    // Behind the cells the grid shows dark grey; the cells keep the platform's colours.
    QPalette pal = view_->palette();
    pal.setColor(QPalette::Base, QColor(0x80, 0x80, 0x80));
    view_->setPalette(pal);

    const QFontMetrics metrics(view_->font());
    const int rowHeight = TwipsToPixels(240);
    QHeaderView* top = view_->horizontalHeader();
    QHeaderView* side = view_->verticalHeader();
    top->setHighlightSections(false);
    top->setMinimumSectionSize(4);
    top->setSectionResizeMode(QHeaderView::Interactive);  // a border drags wider, to read a cell
    top->setFixedHeight(rowHeight + 2);
    side->setHighlightSections(false);
    side->setSectionResizeMode(QHeaderView::Fixed);
    side->setMinimumSectionSize(4);
    side->setDefaultSectionSize(rowHeight);
    side->setDefaultAlignment(Qt::AlignCenter);
    side->setFixedWidth(qMax(metrics.horizontalAdvance(heads[0].text),
                             metrics.horizontalAdvance(QStringLiteral("000"))) +
                        kCellPadding);
    for (int c = 1; c < static_cast<int>(heads.size()); ++c)
        view_->setColumnWidth(c - 1, metrics.horizontalAdvance(heads[c].text) + kCellPadding);

    view_->setItemDelegate(new CutCellTips(view_));
    if (auto* corner = view_->findChild<QAbstractButton*>())
        corner->installEventFilter(new CornerPainter(corner, model_.get()));

    view_->setCurrentIndex(model_->index(0, 0));
}

int Grid::Rows() const {
    return model_->Rows();
}
int Grid::Cols() const {
    return model_->Cols();
}
int Grid::Row() const {
    return view_->anchorRow() + 1;
}
int Grid::Col() const {
    return view_->anchorCol() + 1;
}
int Grid::RowSel() const {
    return view_->farRow() + 1;
}

void Grid::setRow(int row) {
    if (row < 1 || row >= Rows()) return;  // the fixed row never becomes current
    view_->resetAnchor();
    view_->setCurrentIndex(model_->index(row - 1, Col() - 1));
}

void Grid::setCol(int col) {
    if (col < 1 || col >= Cols()) return;  // nor does the fixed column
    view_->resetAnchor();
    view_->setCurrentIndex(model_->index(Row() - 1, col - 1));
}

void Grid::setRowSel(int rowSel) {
    view_->extendTo(rowSel - 1);
}

QString Grid::Text() const {
    return model_->Cell(Row(), Col());
}
QString Grid::TextMatrix(int row, int col) const {
    return model_->Cell(row, col);
}
void Grid::setTextMatrix(int row, int col, const QString& text) {
    model_->SetCell(row, col, text);
}

void Grid::setTextArray(int index, const QString& text) {
    model_->SetCell(index / Cols(), index % Cols(), text);
}

void Grid::AddItem(const QString& tabbedCells, int index) {
    const QStringList parts = tabbedCells.split(u'\t');
    std::vector<QString> cells(parts.begin(), parts.end());
    model_->InsertRow(index < 0 ? Rows() : index, std::move(cells));
}

void Grid::RemoveItem(int row) {
    model_->RemoveRow(row);
}

int Grid::RowPos(int row) const {
    const int frame = view_->frameWidth();
    if (row <= 0) return PixelsToTwips(frame);
    return PixelsToTwips(frame + view_->horizontalHeader()->height() +
                         view_->rowViewportPosition(row - 1));
}

int Grid::ColPos(int col) const {
    const int frame = view_->frameWidth();
    if (col <= 0) return PixelsToTwips(frame);
    return PixelsToTwips(frame + view_->verticalHeader()->width() +
                         view_->columnViewportPosition(col - 1));
}

void Grid::onClick(Handler handler) {
    view_->click = std::move(handler);
}
void Grid::onDblClick(Handler handler) {
    view_->dblClick = std::move(handler);
}
void Grid::onKeyPress(KeyHandler handler) {
    view_->keyPress = std::move(handler);
}

}  // namespace gui
