#pragma once
// The pieces a screen reader asks for around an offset of a text: the character, word,
// sentence, line or paragraph at, before or after it. The text is walked from its start a
// piece at a time, so an answer always comes, whatever the text holds.

#include <QString>
#include <functional>
#include <optional>

namespace common {

enum class TextPiece { kCharacter, kWord, kSentence, kLine, kParagraph, kWhole };

struct Span {
    int start = 0;
    int end = 0;
};

// The line that holds offset `p`, 0 <= p < size, as the text is shown.
using LineAround = std::function<Span(const QString& text, int p)>;

// The line that holds offset `p` when lines end only at line ends.
Span PlainLineAround(const QString& text, int p);

// The piece of `text` at `offset` (0 to its size: the end belongs to the last piece), the one
// before it (`step` -1) or the one after it (1); nothing when there is none.
std::optional<Span> PieceNear(const QString& text, int offset, TextPiece piece, int step,
                              const LineAround& lineAround = PlainLineAround);

}  // namespace common
