#include "common/system_names.h"

namespace common {

namespace {

constexpr char16_t kKeptByte = 0xDC00;  // + the byte, from 0x80

bool IsKeptByte(const QString& text, qsizetype at) {
    const char16_t c = text[at].unicode();
    return c >= kKeptByte + 0x80 && c <= kKeptByte + 0xFF &&
           (at == 0 || !text[at - 1].isHighSurrogate());
}

}  // namespace

#ifdef Q_OS_WIN

QString FromSystemBytes(QByteArrayView bytes) {
    return QString::fromLocal8Bit(bytes);
}

QByteArray ToSystemBytes(const QString& text) {
    return text.toLocal8Bit();
}

#else

namespace {

// How many bytes the UTF-8 character that starts with `lead` has; 0 for no lead byte.
qsizetype CharacterBytes(char lead) {
    const auto b = static_cast<unsigned char>(lead);
    return b < 0x80 ? 1 : b < 0xC0 ? 0 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : b < 0xF8 ? 4 : 0;
}

}  // namespace

QString FromSystemBytes(QByteArrayView bytes) {
    if (bytes.isValidUtf8()) return QString::fromUtf8(bytes);
    QString text;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype n = CharacterBytes(bytes[at]);
        if (n > 0 && at + n <= bytes.size() && bytes.sliced(at, n).isValidUtf8()) {
            text += QString::fromUtf8(bytes.sliced(at, n));
            at += n;
        } else {
            text += QChar(char16_t(kKeptByte + static_cast<unsigned char>(bytes[at++])));
        }
    }
    return text;
}

QByteArray ToSystemBytes(const QString& text) {
    if (!HasKeptBytes(text)) return text.toUtf8();
    QByteArray bytes;
    qsizetype from = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!IsKeptByte(text, at)) continue;
        bytes += QStringView(text).sliced(from, at - from).toUtf8();
        bytes += char(text[at].unicode() - kKeptByte);
        from = at + 1;
    }
    return bytes + QStringView(text).sliced(from).toUtf8();
}

#endif

std::filesystem::path SystemPath(const QString& path) {
#ifdef Q_OS_WIN
    return path.toStdWString();
#else
    return ToSystemBytes(path).toStdString();
#endif
}

QString FromSystemPath(const std::filesystem::path& path) {
#ifdef Q_OS_WIN
    return QString::fromStdWString(path.native());
#else
    return FromSystemBytes(QByteArrayView(path.native().data(), qsizetype(path.native().size())));
#endif
}

bool HasKeptBytes(const QString& text) {
    for (qsizetype at = 0; at < text.size(); ++at)
        if (IsKeptByte(text, at)) return true;
    return false;
}

}  // namespace common
