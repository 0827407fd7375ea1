#pragma once
// The cells of a grid: rows of text, row 0 the heads and column 0 the row marks. The view
// sees the body as its items and row 0 and column 0 as its two headers, so that they stay
// on screen while the body scrolls.

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <vector>

#include "common/text_table.h"

namespace gui {

class GridModel : public QAbstractTableModel {
  public:
    GridModel(int cols, std::vector<Qt::Alignment> alignments);

    // Whole grid, fixed row and column included.
    int Rows() const { return body_.rows() + 1; }
    int Cols() const { return cols_; }
    // A place outside the grid reads as an empty cell and takes no text.
    QString Cell(int row, int col) const;
    void SetCell(int row, int col, const QString& text);
    void InsertRow(int before, std::vector<QString> cells);
    void RemoveRow(int row);
    // The rows below the fixed row become `rows`, each from column 0, in one change.
    void ReplaceBody(common::TextTable rows);
    // The rows below the fixed row, each from column 0.
    const common::TextTable& Body() const { return body_; }

    // The body as the view sees it.
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    bool Inside(int row, int col) const {
        return row >= 0 && row < Rows() && col >= 0 && col < cols_;
    }

    int cols_;
    std::vector<Qt::Alignment> alignments_;
    QStringList heads_;       // row 0
    common::TextTable body_;  // the rows below it
};

}  // namespace gui
