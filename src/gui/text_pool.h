#pragma once
// Every distinct text of a grid, kept once and named by a small number. A cell holds only
// that number, so a full channel table is one compact block that the file writer and the
// searches through the table run along, instead of an object per cell spread over memory.
// Texts stay for the life of the grid, also when no cell shows them any more: a table holds
// its offsets, labels and comments, some thousands of short texts, and dropping the ones
// left over would cost a count per cell on every change.
#include <QHash>
#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

namespace gui {

class TextPool {
  public:
    using Id = std::uint32_t;
    static constexpr Id kEmpty = 0;

    TextPool();
    // The number of `text`, which is added when it is new.
    Id Intern(const QString& text);
    // Stays valid while the pool lives: texts are never moved.
    const QString& At(Id id) const { return blocks_[id >> kBlockBits][id & kBlockMask]; }
    // The same text seen through one lookup, for code that runs over many cells.
    QStringView View(Id id) const { return views_[id]; }

  private:
    static constexpr int kBlockBits = 12;
    static constexpr Id kBlockMask = (Id{1} << kBlockBits) - 1;
    std::vector<std::unique_ptr<QString[]>> blocks_;
    std::vector<QStringView> views_;
    Id size_ = 0;
    QHash<QString, Id> ids_;
};

}  // namespace gui
