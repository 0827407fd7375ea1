#pragma once
// The cells of a grid: rows of text, row 0 the heads and column 0 the row marks. The view
// sees the body as its items and row 0 and column 0 as its two headers, so that they stay
// on screen while the body scrolls.

#include <QAbstractTableModel>
#include <QString>
#include <vector>

#include "gui/text_pool.h"

namespace gui {

class GridModel : public QAbstractTableModel {
  public:
    GridModel(int cols, std::vector<Qt::Alignment> alignments);

    // Whole grid, fixed row and column included.
    int Rows() const { return static_cast<int>(cells_.size() / static_cast<std::size_t>(cols_)); }
    int Cols() const { return cols_; }
    const QString& Cell(int row, int col) const { return texts_.At(cells_[Place(row, col)]); }
    // The numbers of a row's texts in the pool, column by column: equal numbers, equal texts.
    const TextPool::Id* RowIds(int row) const { return &cells_[Place(row, 0)]; }
    const TextPool& Texts() const { return texts_; }
    void SetCell(int row, int col, const QString& text);
    void InsertRow(int before, std::vector<QString> cells);
    void RemoveRow(int row);

    // The body as the view sees it.
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    std::size_t Place(int row, int col) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col);
    }

    int cols_;
    std::vector<Qt::Alignment> alignments_;
    // Cell texts repeat a lot (channel types, presets, numbers): a cell names its text in
    // the pool, row after row in one block.
    TextPool texts_;
    std::vector<TextPool::Id> cells_;
};

}  // namespace gui
