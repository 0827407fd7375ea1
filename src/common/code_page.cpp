#include "common/code_page.h"

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <array>
#include <cstdint>
#endif

#ifdef Q_OS_WIN

QByteArray ToFileBytes(const QString& text) {
    if (text.isEmpty()) return {};
    // A UTF-8 system code page takes no replacement character and has no best fit.
    const UINT page = GetACP();
    const bool utf8 = page == CP_UTF8;
    // No other system code page holds a character beyond the basic plane: it is one character,
    // and one "?", not one for each half of its pair as the system would write.
    QString units = text;
    if (!utf8) {
        for (qsizetype at = units.size() - 1; at > 0; --at)
            if (units[at].isLowSurrogate() && units[at - 1].isHighSurrogate())
                units.replace(--at, 2, u'?');
    }
    const auto* wide = reinterpret_cast<const wchar_t*>(units.utf16());
    const int length = static_cast<int>(units.size());
    const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* replacement = utf8 ? nullptr : "?";
    const int size =
        WideCharToMultiByte(page, flags, wide, length, nullptr, 0, replacement, nullptr);
    if (size <= 0) return QByteArray(length, '?');
    QByteArray bytes(size, Qt::Uninitialized);
    WideCharToMultiByte(page, flags, wide, length, bytes.data(), size, replacement, nullptr);
    return bytes;
}

std::optional<QString> FromFileBytes(QByteArrayView bytes) {
    if (bytes.isEmpty()) return QString();
    const int size = static_cast<int>(bytes.size());
    const UINT page = GetACP();
    const int length =
        MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
    if (length <= 0) return std::nullopt;
    QString text(length, Qt::Uninitialized);
    MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes.data(), size,
                        reinterpret_cast<wchar_t*>(text.data()), length);
    return text;
}

bool ReadsAsText(QByteArrayView bytes) {
    return bytes.isEmpty() || MultiByteToWideChar(GetACP(), MB_ERR_INVALID_CHARS, bytes.data(),
                                                  static_cast<int>(bytes.size()), nullptr, 0) > 0;
}

#else

namespace {

// Windows-1252 at 0x80..0x9F as Windows maps it: the five bytes without a character of their
// own stand for the C1 controls of their value, so a file reads alike on both systems.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80..87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88..8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90..97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98..9F
};

char ByteOf(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (std::size_t i = 0; i < kHighControls.size(); ++i)
        if (kHighControls[i] == c) return static_cast<char>(0x80 + i);
    return '?';
}

}  // namespace

QByteArray ToFileBytes(const QString& text) {
    // At most one byte for each UTF-16 unit.
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text[i];
        if (c.isHighSurrogate() && i + 1 < n && text[i + 1].isLowSurrogate()) {
            ++i;  // one character outside the code page, one "?"
            *out++ = '?';
            continue;
        }
        *out++ = ByteOf(c.unicode());
    }
    bytes.truncate(out - bytes.constData());
    return bytes;
}

std::optional<QString> FromFileBytes(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        char16_t c = b;
        if (b >= 0x80 && b < 0xA0) c = kHighControls[b - 0x80];
        *out++ = QChar(c);
    }
    return text;
}

bool ReadsAsText(QByteArrayView) {
    return true;  // Windows-1252 reads every byte
}

#endif
