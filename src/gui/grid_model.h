#pragma once
// The cells of a grid: rows of text, row 0 the heads and column 0 the row marks. The view
// sees the body as its items and row 0 and column 0 as its two headers, so that they stay
// on screen while the body scrolls.

#include <QAbstractTableModel>
#include <QSet>
#include <QString>
#include <vector>

namespace gui {

class GridModel : public QAbstractTableModel {
  public:
    GridModel(int cols, std::vector<Qt::Alignment> alignments);

    // Whole grid, fixed row and column included.
    int Rows() const { return static_cast<int>(cells_.size()); }
    int Cols() const { return cols_; }
    const QString& Cell(int row, int col) const { return cells_[row][col]; }
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
    // Cell texts repeat a lot (channel types, presets, numbers): rows share one copy of
    // each short text instead of holding their own, which keeps a full table small.
    QString Shared(const QString& text);

    int cols_;
    QSet<QString> pool_;
    std::vector<Qt::Alignment> alignments_;
    std::vector<std::vector<QString>> cells_;
};

}  // namespace gui
