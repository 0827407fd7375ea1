#include "common/text_table.h"

namespace common {

const QString& TextTable::cell(int row, int col) const {
    static const QString kNone;
    if (!inside(row, col)) return kNone;
    return texts_[cells_[static_cast<qsizetype>(row) * cols_ + col]];
}

quint32 TextTable::numberOf(QStringView text) {
    if (text.isEmpty()) return 0;
    const std::u16string_view key(reinterpret_cast<const char16_t*>(text.utf16()),
                                  static_cast<std::size_t>(text.size()));
    if (const auto found = numbers_.find(key); found != numbers_.end()) return found->second;
    // The view stays valid while any copy of the table holds the text: texts never change.
    texts_.append(text.toString());
    const QString& kept = texts_.constLast();
    const auto number = static_cast<quint32>(texts_.size() - 1);
    numbers_.emplace(
        std::u16string_view(reinterpret_cast<const char16_t*>(kept.utf16()), key.size()), number);
    return number;
}

void TextTable::setCell(int row, int col, QStringView text) {
    if (!inside(row, col)) return;
    cells_[static_cast<qsizetype>(row) * cols_ + col] = numberOf(text);
}

void TextTable::insertRow(int row) {
    if (row < 0 || row > rows()) return;
    cells_.insert(static_cast<qsizetype>(row) * cols_, cols_, 0);
}

void TextTable::removeRow(int row) {
    if (row < 0 || row >= rows()) return;
    cells_.remove(static_cast<qsizetype>(row) * cols_, cols_);
}

}  // namespace common
