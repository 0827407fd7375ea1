#include "common/text_pieces.h"

#include <optional>

namespace common {

namespace {

// Each kind of piece cuts the text into pieces that follow one another without a gap. A
// piece is found by walking to it from the start of the text, a piece at a time.

char32_t CodePointAt(const QString& s, int i) {
    if (s[i].isHighSurrogate() && i + 1 < s.size() && s[i + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(s[i], s[i + 1]);
    return s[i].unicode();
}

int Width(char32_t c) {
    return QChar::requiresSurrogates(c) ? 2 : 1;
}

bool EndsLine(QChar c) {
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}
bool EndsParagraph(QChar c) {
    return EndsLine(c) && c != QChar::LineSeparator;
}
bool IsBlank(QChar c) {
    return c.isSpace() && !EndsLine(c);
}
bool InWord(char32_t c) {
    return !QChar::isSpace(c) && !QChar::isPunct(c);
}
bool EndsSentence(QChar c) {
    return c == u'.' || c == u'!' || c == u'?' || c == u'\u2026' || c == u'\u3002' ||
           c == u'\uFF01' || c == u'\uFF1F';
}
// A closing quote or bracket after the full stop belongs to the sentence it ends.
bool Closes(QChar c) {
    return c.category() == QChar::Punctuation_Close ||
           c.category() == QChar::Punctuation_FinalQuote || c == u'"' || c == u'\'';
}

// Past the line end at `i`: CR LF is one line end.
int PastLineEnd(const QString& s, int i) {
    return i + (s[i] == u'\r' && i + 1 < s.size() && s[i + 1] == u'\n' ? 2 : 1);
}

// A character with the marks that sit on it; one outside the first plane takes two places.
int CharEnd(const QString& s, int i) {
    int j = i + Width(CodePointAt(s, i));
    while (j < s.size() && QChar::isMark(CodePointAt(s, j))) j += Width(CodePointAt(s, j));
    return j;
}

// A word runs from its first letter to the next word's: the blanks and punctuation after it
// are read with it, as a screen reader steps from word start to word start.
int WordEnd(const QString& s, int i) {
    int j = i;
    while (j < s.size() && InWord(CodePointAt(s, j))) j += Width(CodePointAt(s, j));
    while (j < s.size() && !InWord(CodePointAt(s, j))) j += Width(CodePointAt(s, j));
    return j;
}

// A sentence ends after its full stop and the blanks that follow, or at a line end. A stop
// with no blank after it ("3.5", "a.b") ends nothing.
int SentenceEnd(const QString& s, int i) {
    const int n = int(s.size());
    for (int j = i; j < n; ++j) {
        if (EndsLine(s[j])) return PastLineEnd(s, j);
        if (!EndsSentence(s[j])) continue;
        int k = j + 1;
        while (k < n && (EndsSentence(s[k]) || Closes(s[k]))) ++k;
        if (k < n && !s[k].isSpace()) {
            j = k - 1;
            continue;
        }
        while (k < n && IsBlank(s[k])) ++k;
        return k < n && EndsLine(s[k]) ? PastLineEnd(s, k) : k;
    }
    return n;
}

// A line, or a paragraph, with its line end.
int LineEnd(const QString& s, int i, bool (*ends)(QChar)) {
    int j = i;
    while (j < s.size() && !ends(s[j])) ++j;
    return j < s.size() ? PastLineEnd(s, j) : j;
}

// Where the piece that starts at `i` ends, which is where the next one starts.
int PieceEnd(const QString& s, int i, TextPiece unit) {
    switch (unit) {
        case TextPiece::kCharacter:
            return CharEnd(s, i);
        case TextPiece::kWord:
            return WordEnd(s, i);
        case TextPiece::kSentence:
            return SentenceEnd(s, i);
        case TextPiece::kLine:
            return LineEnd(s, i, EndsLine);
        case TextPiece::kParagraph:
            return LineEnd(s, i, EndsParagraph);
        case TextPiece::kWhole:
            break;
    }
    return int(s.size());
}

// The piece that holds offset `p`, 0 <= p < size. Each step moves on by at least one place,
// so the walk ends within size steps whatever a piece's end says.
Span PieceAround(const QString& s, int p, TextPiece unit) {
    for (int start = 0; start < s.size();) {
        const int end = qBound(start + 1, PieceEnd(s, start, unit), int(s.size()));
        if (p < end) return {start, end};
        start = end;
    }
    return {int(s.size()), int(s.size())};
}

// The end of the text, where no character stands, belongs to the last piece; but it is a
// character of its own, and after a final line end a line of its own, both empty.
Span PieceAt(const QString& all, int offset, TextPiece unit, const LineAround& lineAround) {
    const int n = int(all.size());
    if (unit == TextPiece::kWhole) return {0, n};
    if (offset < n)
        return unit == TextPiece::kLine ? lineAround(all, offset) : PieceAround(all, offset, unit);
    if (n == 0 || unit == TextPiece::kCharacter) return {n, n};
    const bool lineEnded = (unit == TextPiece::kLine && EndsLine(all[n - 1])) ||
                           (unit == TextPiece::kParagraph && EndsParagraph(all[n - 1]));
    return lineEnded ? Span{n, n} : PieceAt(all, n - 1, unit, lineAround);
}

}  // namespace

Span PlainLineAround(const QString& text, int p) {
    return PieceAround(text, p, TextPiece::kLine);
}

std::optional<Span> PieceNear(const QString& text, int offset, TextPiece piece, int step,
                              const LineAround& lineAround) {
    const int n = int(text.size());
    if (offset < 0 || offset > n) return std::nullopt;
    Span found = PieceAt(text, offset, piece, lineAround);
    if (step < 0) {
        if (found.start == 0) return std::nullopt;
        found = PieceAt(text, found.start - 1, piece, lineAround);
    } else if (step > 0) {
        if (found.end >= n) return std::nullopt;
        found = PieceAt(text, found.end, piece, lineAround);
    }
    return found;
}

}  // namespace common
