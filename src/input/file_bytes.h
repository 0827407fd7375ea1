#pragma once
// Reading a whole file that the user names, before anything of it is used. Only a regular
// file is read: a FIFO would block and a device would never end. A file far larger than
// any fixture definition is refused before a byte of it is read.

#include <QByteArray>
#include <QString>
#include <optional>

namespace input {

// Far above the largest file the wizard writes (32,767 rows are about 1.5 MB) and the
// largest QLC+ fixture definition, far below what would strain the memory.
inline constexpr qint64 kMaxFileBytes = 8 * 1024 * 1024;

struct FileBytes {
    std::optional<QByteArray> bytes;
    QString error;  // why the file was not read
};

FileBytes ReadRegularFile(const QString& path, qint64 maxBytes = kMaxFileBytes);

}  // namespace input
