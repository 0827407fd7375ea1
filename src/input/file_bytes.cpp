#include "input/file_bytes.h"

#include <QFile>
#include <QFileInfo>
#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <unistd.h>
#endif
#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <QDir>
#include <QRegularExpression>
#endif

#include "common/system_names.h"

namespace input {

namespace {

#ifdef Q_OS_WIN
// Windows' devices (NUL, CON, COM1 …) answer to their names in every folder, while Qt finds no
// file there. A device that opens tells its kind; a console that this program lacks does not
// open at all, so the names themselves count too.
bool IsDevice(const QString& path) {
    static const QRegularExpression reserved(
        QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])$"),
        QRegularExpression::CaseInsensitiveOption);
    if (reserved.match(QFileInfo(path).fileName()).hasMatch()) return true;
    const HANDLE handle =
        CreateFileW(reinterpret_cast<const wchar_t*>(QDir::toNativeSeparators(path).utf16()), 0,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return false;
    const DWORD type = GetFileType(handle);
    CloseHandle(handle);
    return type != FILE_TYPE_DISK;
}
#else
bool IsDevice(const QString&) {
    return false;  // QFileInfo tells a device from a file
}
#endif

}  // namespace

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
    if (IsDevice(path)) return {std::nullopt, QStringLiteral("it is no regular file")};
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
