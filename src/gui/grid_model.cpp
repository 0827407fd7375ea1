#include "gui/grid_model.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

namespace gui {

GridModel::GridModel(int cols, std::vector<Qt::Alignment> alignments)
    : cols_(cols), alignments_(std::move(alignments)), heads_(cols), body_(cols) {
    body_.appendRow();
}

QString GridModel::Cell(int row, int col) const {
    if (row == 0 && col >= 0 && col < cols_) return heads_[col];
    return body_.cell(row - 1, col);
}

void GridModel::SetCell(int row, int col, const QString& text) {
    if (!Inside(row, col)) return;
    if (row == 0)
        heads_[col] = text;
    else
        body_.setCell(row - 1, col, text);
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
    beginInsertRows({}, before - 1, before - 1);
    body_.insertRow(before - 1);
    const int count = std::min(static_cast<int>(cells.size()), cols_);
    for (int col = 0; col < count; ++col) body_.setCell(before - 1, col, cells[col]);
    endInsertRows();
}

void GridModel::RemoveRow(int row) {
    beginRemoveRows({}, row - 1, row - 1);
    body_.removeRow(row - 1);
    endRemoveRows();
}

void GridModel::ReplaceBody(common::TextTable rows) {
    beginResetModel();
    body_ = std::move(rows);
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
    if (role == Qt::DisplayRole) {
        // A cell shows no more than a screen is wide: the view lays out and elides what it is
        // given, which for a comment of megabytes takes seconds at every paint.
        constexpr qsizetype kShown = 1000;
        const QString& text = Cell(index.row() + 1, index.column() + 1);
        if (text.size() <= kShown) return text;
        return text.left(kShown - text[kShown - 1].isHighSurrogate());
    }
    if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
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
