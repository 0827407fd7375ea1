#pragma once
// The 8-bit code page of the fixture file. The desk reads plain 8-bit text: on Windows the
// system's ANSI code page, elsewhere Windows-1252. A character the code page cannot hold
// becomes "?".

#include <QByteArray>
#include <QString>

QByteArray ToFileBytes(const QString& text);
