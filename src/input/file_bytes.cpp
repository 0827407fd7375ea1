#include "input/file_bytes.h"

#include <QFile>
#include <QFileInfo>
#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <unistd.h>
#endif

#include "common/system_names.h"

namespace input {

FileBytes ReadRegularFile(const QString& path, qint64 maxBytes) {
#ifdef Q_OS_LINUX
    // Qt opens a file only by a name of text, which a name with bytes that are no UTF-8 has
    // not: such a file is found by its bytes and read under the name the system gives it then.
    if (common::HasKeptBytes(path)) {
        const int found = open(common::ToSystemBytes(path).constData(), O_PATH | O_CLOEXEC);
        if (found < 0) return {std::nullopt, qt_error_string(errno)};
        FileBytes read = ReadRegularFile(QStringLiteral("/proc/self/fd/%1").arg(found), maxBytes);
        close(found);
        return read;
    }
#endif
    const QFileInfo info(path);
    QFile file(path);
    if (!info.exists()) return {std::nullopt, QStringLiteral("No such file or directory")};
    if (info.isDir()) return {std::nullopt, QStringLiteral("it is a folder")};
    if (!info.isFile()) return {std::nullopt, QStringLiteral("it is no regular file")};
    if (info.size() > maxBytes)
        return {std::nullopt, QStringLiteral("it is too large (%1 bytes, at most %2)")
                                  .arg(info.size())
                                  .arg(maxBytes)};
    if (!file.open(QIODevice::ReadOnly)) return {std::nullopt, file.errorString()};
    // The file may have grown since it was looked at: read no more than the bound allows.
    QByteArray bytes = file.read(maxBytes + 1);
    if (file.error() != QFileDevice::NoError) return {std::nullopt, file.errorString()};
    if (bytes.size() > maxBytes)
        return {std::nullopt, QStringLiteral("it is too large (more than %1 bytes)").arg(maxBytes)};
    return {std::move(bytes), QString()};
}

}  // namespace input
