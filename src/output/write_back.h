#pragma once
// Asks the system to start putting freshly written bytes of a file on the disk now, while
// the rest of the file is still being prepared, so that the final flush of a safe save has
// little left to wait for. Only a hint: nothing happens where the system has no such call
// or the device is no regular file.

#include <QtGlobal>

class QIODevice;

void StartWriteBack(QIODevice& device, qint64 from, qint64 size);
