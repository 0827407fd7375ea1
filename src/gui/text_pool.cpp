#include "gui/text_pool.h"

namespace gui {

TextPool::TextPool() {
    Intern(QString());  // number 0 is the empty text
}

TextPool::Id TextPool::Intern(const QString& text) {
    if (text.isEmpty() && size_ > 0) return kEmpty;
    if (const auto found = ids_.constFind(text); found != ids_.constEnd()) return *found;
    if ((size_ >> kBlockBits) == blocks_.size())
        blocks_.push_back(std::make_unique<QString[]>(std::size_t{1} << kBlockBits));
    const Id id = size_++;
    QString& kept = blocks_[id >> kBlockBits][id & kBlockMask];
    kept = text;
    views_.push_back(kept);
    ids_.insert(text, id);
    return id;
}

}  // namespace gui
