#include "gui/grid_model.h"

#include <QGuiApplication>
#include <QPalette>

namespace gui {

GridModel::GridModel(int cols, std::vector<Qt::Alignment> alignments)
    : cols_(cols), alignments_(std::move(alignments)) {
    cells_.resize(2 * static_cast<std::size_t>(cols));
}

const QString& GridModel::Cell(int row, int col) const {
    static const QString kNone;
    return Inside(row, col) ? cells_[Place(row, col)] : kNone;
}

void GridModel::SetCell(int row, int col, const QString& text) {
    if (!Inside(row, col)) return;
    cells_[Place(row, col)] = *texts_.insert(text);
    if (row == 0 && col > 0) {
        emit headerDataChanged(Qt::Horizontal, col - 1, col - 1);
    } else if (col == 0 && row > 0) {
        emit headerDataChanged(Qt::Vertical, row - 1, row - 1);
    } else if (row > 0) {
        const QModelIndex i = index(row - 1, col - 1);
        emit dataChanged(i, i, {Qt::DisplayRole});
    }
}

void GridModel::InsertRow(int before, std::vector<QString> cells) {
    cells.resize(cols_);
    for (QString& cell : cells) cell = *texts_.insert(cell);
    beginInsertRows({}, before - 1, before - 1);
    cells_.insert(cells_.begin() + Place(before, 0), cells.begin(), cells.end());
    endInsertRows();
}

void GridModel::RemoveRow(int row) {
    beginRemoveRows({}, row - 1, row - 1);
    cells_.erase(cells_.begin() + Place(row, 0), cells_.begin() + Place(row + 1, 0));
    endRemoveRows();
}

void GridModel::ReplaceBody(QList<QStringList> rows) {
    beginResetModel();
    const std::size_t cols = static_cast<std::size_t>(cols_);
    cells_.resize(cols);
    cells_.reserve(cols * (static_cast<std::size_t>(rows.size()) + 1));
    // The texts come as a file reader made them, which shares a text with every equal cell of
    // its column: they are moved in as they are, not copied.
    for (QStringList& row : rows)
        for (int col = 0; col < cols_; ++col)
            cells_.push_back(col < row.size() ? std::move(row[col]) : QString());
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Rows() - 1;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : cols_ - 1;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
        return Cell(index.row() + 1, index.column() + 1);
    if (role == Qt::BackgroundRole) return QGuiApplication::palette().base();
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignments_[index.column() + 1] | Qt::AlignVCenter);
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Horizontal) {
        if (section < 0 || section + 1 >= cols_) return {};
        return Cell(0, section + 1);
    }
    if (section < 0 || section + 1 >= Rows()) return {};
    return Cell(section + 1, 0);
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

}  // namespace gui
