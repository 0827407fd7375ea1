#include "output/channel_rows.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "gui/grid_model.h"
#include "output/channel_bytes.h"

namespace output {
namespace {

using Id = gui::TextPool::Id;

// A row's kind is told by the cells from the channel type to the comment.
constexpr int kFirstKindColumn = kChannelType;
constexpr int kKindColumns = kChannelColumns - kFirstKindColumn;
constexpr std::size_t kHeadRoom = 64;
constexpr std::size_t kTailRoom = 240;
constexpr std::size_t kKinds = 256;  // kinds kept at once, two to a set; a power of two

constexpr Id kNoText = ~Id{0};
constexpr int kAhead = 8;  // rows

// Copies in whole blocks of this size; the room behind the target has one block to spare.
constexpr std::size_t kBlock = 32;

char* CopyBlocks(char* to, const char* from, std::size_t size) {
    for (std::size_t i = 0; i < size; i += kBlock) std::memcpy(to + i, from + i, kBlock);
    return to + size;
}

struct RowKind {
    std::array<Id, kKindColumns> ids;
    ChannelKind kind = ChannelKind::kOther;
    std::uint8_t headSize = 0;
    std::uint8_t tailSize = 0;
    char head[kHeadRoom + kBlock] = {};  // the last block may read beyond the bytes kept
    char tail[kTailRoom + kBlock] = {};
};

// The first of the two places a kind may be kept in. Each cell weighed by its own odd factor,
// so the products do not wait for one another.
std::size_t SetOf(const Id* ids) {
    std::uint64_t h = 0;
    for (int i = 0; i < kKindColumns; ++i) h += std::uint64_t{ids[i]} * (2 * i + 1);
    return static_cast<std::size_t>((h * 0x9E3779B97F4A7C15u) >> 56) & (kKinds - 2);
}

bool Holds(const RowKind& k, const Id* ids) {
    return std::equal(k.ids.begin(), k.ids.end(), ids);
}

}  // namespace

struct ChannelRowsEncoder::KnownKinds {
    KnownKinds() {
        for (RowKind& k : kinds) k.ids.fill(kNoText);
    }
    std::array<RowKind, kKinds> kinds;
    // dmx2 repeats too ("0" on every 8-bit row): its reading is kept for the last text.
    Id dmx2Id = kNoText;
    std::optional<bool> dmx2AboveZero;
};

ChannelRowsEncoder::ChannelRowsEncoder(const gui::GridModel& grid)
    : grid_(grid), known_(std::make_unique<KnownKinds>()) {}

ChannelRowsEncoder::~ChannelRowsEncoder() = default;

qsizetype ChannelRowsEncoder::Write(int row, QByteArray& out, qsizetype at) {
    const gui::TextPool& texts = grid_.Texts();
    const Id* const ids = grid_.RowIds(row);
#if defined(__GNUC__) || defined(__clang__)
    // The offsets are texts of their own, spread over memory, and a row waits for them more
    // than for anything else: those of a row some way ahead are asked for now.
    if (row + kAhead < grid_.Rows()) {
        const Id* const ahead = grid_.RowIds(row + kAhead);
        __builtin_prefetch(texts.View(ahead[kDmx1]).data());
        __builtin_prefetch(texts.View(ahead[kDmx2]).data());
    }
#endif
    const Id* const kindIds = ids + kFirstKindColumn;
    RowKind* const set = &known_->kinds[SetOf(kindIds)];
    RowKind* const found = Holds(set[0], kindIds)   ? &set[0]
                           : Holds(set[1], kindIds) ? &set[1]
                                                    : nullptr;

    if (found) {
        const RowKind& known = *found;
        KnownKinds& k = *known_;
        if (k.dmx2Id != ids[kDmx2]) {
            k.dmx2Id = ids[kDmx2];
            k.dmx2AboveZero = Dmx2AboveZero(texts.View(ids[kDmx2]));
        }
        if (!k.dmx2AboveZero) return at;
        const bool lowLine = *k.dmx2AboveZero;
        const QStringView dmx1 = texts.View(ids[kDmx1]);
        const QStringView dmx2 = texts.View(ids[kDmx2]);
        const qsizetype room = 2 * (qsizetype{known.headSize} + known.tailSize + 8) + dmx1.size() +
                               dmx2.size() + qsizetype{kBlock};
        char* const base = RoomAt(out, at, room);
        char16_t seen = 0;
        // The type letter, the offset and the tail that both lines share.
        auto rest = [&](char* q, bool highByte, QStringView offset) {
            if (const QLatin1String letter = TypeLetter(known.kind, highByte); !letter.isEmpty())
                *q++ = letter.data()[0];
            *q++ = ' ';
            q = WriteToken(q, offset, seen);
            return CopyBlocks(q, known.tail, known.tailSize);
        };
        char* q = rest(CopyBlocks(base, known.head, known.headSize), lowLine, dmx1);
        if (lowLine) {
            std::memcpy(q, "0 0 ", 4);
            q = rest(q + 4, false, dmx2);
        }
        if (seen < 0x80) return at + (q - base);
        // An offset beyond ASCII: the row goes the general way below.
    }

    ChannelCells cells;
    for (int c = 0; c < kChannelColumns; ++c) cells[c] = texts.View(ids[c]);
    RowLayout layout;
    const qsizetype end = WriteChannelRow(cells, out, at, &layout);
    if (end < 0) return at;
    const qsizetype tailSize = layout.tailEnd - layout.tailBegin;
    if (layout.plain && layout.headEnd <= qsizetype{kHeadRoom} &&
        tailSize <= qsizetype{kTailRoom}) {
        // The older of the two gives way; the new kind takes the first place.
        set[1] = set[0];
        RowKind& known = set[0];
        std::copy(kindIds, kindIds + kKindColumns, known.ids.begin());
        known.kind = layout.kind;
        known.headSize = static_cast<std::uint8_t>(layout.headEnd);
        known.tailSize = static_cast<std::uint8_t>(tailSize);
        const char* const written = out.constData() + at;
        std::memcpy(known.head, written, known.headSize);
        std::memcpy(known.tail, written + layout.tailBegin, known.tailSize);
    }
    return end;
}

}  // namespace output
