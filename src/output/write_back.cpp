#include "output/write_back.h"

#include <QFileDevice>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#endif

void StartWriteBack(QIODevice& device, qint64 from, qint64 size) {
#ifdef Q_OS_LINUX
    const auto* file = qobject_cast<QFileDevice*>(&device);
    if (!file || file->handle() < 0 || size <= 0) return;
    // The answer does not matter: a device or pipe simply declines.
    (void)sync_file_range(file->handle(), from, size, SYNC_FILE_RANGE_WRITE);
#else
    Q_UNUSED(device);
    Q_UNUSED(from);
    Q_UNUSED(size);
#endif
}
