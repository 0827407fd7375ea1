#pragma once
// Rows of cell texts, held compactly: a cell is the number of its text, and each distinct
// text is stored once. A full channel table repeats a few dozen texts half a million times,
// and a copy of the table shares its texts and cells until one of them changes. A cell that
// holds a large whole number keeps the number itself: the offsets of a long table differ from
// row to row, and a string for each would cost more than its row.

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace common {

class TextTable {
  public:
    explicit TextTable(int cols = 0) : cols_(cols) {}

    int rows() const { return rows_; }
    int cols() const { return cols_; }

    // A place outside the table reads as an empty cell and takes no text.
    QString cell(int row, int col) const;
    void setCell(int row, int col, QStringView text) { setCell(row, col, text, nullptr); }
    // A text that is new to the table is kept as it is, its characters shared.
    void setCell(int row, int col, const QString& text) { setCell(row, col, text, &text); }

    // The number that stands for a text in every cell that holds it; a cell may take it by
    // number, as a reader does for texts it has seen before.
    quint32 numberOf(QStringView text) { return numberOf(text, nullptr); }
    quint32 numberOf(const QString& text) { return numberOf(text, &text); }
    // A row at the end whose cells take the texts numbered `numbers`, one per column.
    void appendRow(const quint32* numbers);

    // Room for `rows` rows in all, and for a few new texts in each, made at once.
    void reserve(int rows);

    // A row of empty cells before `row` (at the end for rows()).
    void insertRow(int row);
    void appendRow() { insertRow(rows()); }
    void removeRow(int row);

  private:
    bool inside(int row, int col) const {
        return row >= 0 && row < rows() && col >= 0 && col < cols_;
    }
    void setCell(int row, int col, QStringView text, const QString* whole);
    quint32 numberOf(QStringView text, const QString* whole);
    void rehash(qsizetype least);  // to more slots than `least`

    // The numbers with this bit stand for a large whole number as QString::number prints it,
    // the bits below being its value; the others for texts_[number].
    static constexpr quint32 kValue = 0x80000000u;

    int cols_;
    int rows_ = 0;                  // a table of no columns has no rows
    QList<quint32> cells_;          // row after row: the number of each cell's text
    QStringList texts_{QString()};  // every text a cell has held; 0 is the empty one
    // The numbers of the texts by their hash: open addressing, 0 marks a free slot, and the
    // slots are at least twice as many as the texts.
    QList<quint32> slots_;
};

}  // namespace common
