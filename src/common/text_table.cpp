#include "common/text_table.h"

#include <algorithm>
#include <cstring>

namespace common {

namespace {

// Cell texts are a few characters long: a plain multiplicative hash of them is as good as any
// and costs a fraction of a general one.
quint32 HashOf(QStringView text) {
    quint32 hash = 2166136261u;
    for (const QChar c : text) hash = (hash ^ c.unicode()) * 16777619u;
    return hash;
}

// The value of a whole number of four to nine digits as QString::number prints it, with no
// leading zero; -1 for any other text. Such numbers are kept as values: shorter ones recur
// (levels, ratios, the offsets of any real fixture) and share a string each, which reads at no
// cost, while longer ones are the offsets of a long table, each in a row of its own.
int LargeValue(QStringView text) {
    if (text.size() < 4 || text.size() > 9 || text[0] == u'0') return -1;
    int value = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9') return -1;
        value = value * 10 + (c.unicode() - u'0');
    }
    return value;
}

// Whether a kept text is `text`, unit for unit: cell texts are short, and comparing their bytes
// costs less than a call to a general comparison.
bool Same(const QString& kept, QStringView text) {
    return kept.size() == text.size() &&
           std::memcmp(kept.constData(), text.data(), text.size() * sizeof(QChar)) == 0;
}

// A channel row brings a few texts no row before it had: its offsets, its label, its comment.
constexpr qsizetype kNewTextsPerRow = 4;

}  // namespace

QString TextTable::cell(int row, int col) const {
    if (!inside(row, col)) return {};
    const quint32 number = cells_[static_cast<qsizetype>(row) * cols_ + col];
    if (number & kValue) return QString::number(number & ~kValue);
    return texts_[number];
}

void TextTable::reserve(int rows) {
    const qsizetype texts = texts_.size() + qsizetype(rows) * kNewTextsPerRow;
    cells_.reserve(qsizetype(rows) * cols_);
    texts_.reserve(texts);
    if (2 * texts >= slots_.size()) rehash(2 * texts);
}

void TextTable::rehash(qsizetype least) {
    qsizetype size = std::max<qsizetype>(64, slots_.size() * 2);
    while (size <= least) size *= 2;
    slots_.fill(0, size);
    const qsizetype mask = slots_.size() - 1;
    for (qsizetype number = 1; number < texts_.size(); ++number) {
        qsizetype at = HashOf(texts_[number]) & mask;
        while (slots_[at] != 0) at = (at + 1) & mask;
        slots_[at] = static_cast<quint32>(number);
    }
}

quint32 TextTable::numberOf(QStringView text, const QString* whole) {
    if (text.isEmpty()) return 0;
    if (const int value = LargeValue(text); value >= 0) return kValue | value;
    if (2 * texts_.size() >= slots_.size()) rehash(0);
    const qsizetype mask = slots_.size() - 1;
    qsizetype at = HashOf(text) & mask;
    const quint32* const taken = slots_.constData();
    const QString* const texts = texts_.constData();
    for (; taken[at] != 0; at = (at + 1) & mask)
        if (Same(texts[taken[at]], text)) return taken[at];
    texts_.append(whole ? *whole : text.toString());
    slots_[at] = static_cast<quint32>(texts_.size() - 1);
    return slots_[at];
}

void TextTable::setCell(int row, int col, QStringView text, const QString* whole) {
    if (!inside(row, col)) return;
    cells_[static_cast<qsizetype>(row) * cols_ + col] = numberOf(text, whole);
}

void TextTable::insertRow(int row) {
    if (row < 0 || row > rows_ || cols_ == 0) return;
    cells_.insert(static_cast<qsizetype>(row) * cols_, cols_, 0);
    ++rows_;
}

void TextTable::appendRow(const quint32* numbers) {
    if (cols_ == 0) return;
    const qsizetype end = cells_.size();
    cells_.resize(end + cols_);
    std::copy(numbers, numbers + cols_, cells_.data() + end);
    ++rows_;
}

void TextTable::removeRow(int row) {
    if (row < 0 || row >= rows_) return;
    cells_.remove(static_cast<qsizetype>(row) * cols_, cols_);
    --rows_;
}

}  // namespace common
