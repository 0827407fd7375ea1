#include "input/file_text.h"

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <array>
#endif

namespace input {

#ifdef Q_OS_WIN

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

#else

namespace {

// Windows-1252 at 0x80..0x9F; 0 marks the five bytes that hold no character.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80..87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,       // 88..8F
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90..97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,  // 98..9F
};

}  // namespace

std::optional<QString> FromFileBytes(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        char16_t c = b;
        if (b >= 0x80 && b < 0xA0) {
            c = kHighControls[b - 0x80];
            if (c == 0) return std::nullopt;
        }
        *out++ = QChar(c);
    }
    return text;
}

#endif

}  // namespace input
