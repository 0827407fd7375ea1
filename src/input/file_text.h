#pragma once
// The 8-bit code page of a fixture file, read back: on Windows the system's ANSI code page,
// elsewhere Windows-1252, as the file was written.

#include <QByteArrayView>
#include <QString>
#include <optional>

namespace input {

// The text of the bytes; nothing when a byte holds no character of the code page.
std::optional<QString> FromFileBytes(QByteArrayView bytes);

}  // namespace input
