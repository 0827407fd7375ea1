#pragma once
// Text that passes between the system and the program as bytes: the arguments (names of files,
// mostly), and the lines printed on standard output and standard error. On Windows that is the
// local code page. Elsewhere it is UTF-8, yet a file name may be any bytes (a name made under
// Latin-1): each byte that is no part of a UTF-8 character is kept as the lone character
// U+DC80 + byte, so that the name gives back the same bytes to open the file and to print it.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <filesystem>

namespace common {

QString FromSystemBytes(QByteArrayView bytes);
QByteArray ToSystemBytes(const QString& text);

// Whether `text` holds such a kept byte: Qt's own file classes cannot open it by that name.
bool HasKeptBytes(const QString& text);

// A path as std::filesystem and the system's own calls take it, for what Qt has no word for.
std::filesystem::path SystemPath(const QString& path);
// And back: a path the system gave, as a name the program prints and opens again.
QString FromSystemPath(const std::filesystem::path& path);

}  // namespace common
