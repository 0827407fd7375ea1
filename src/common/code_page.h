#pragma once
// The 8-bit code page of the fixture file, both ways. The desk reads plain 8-bit text: on
// Windows the system's ANSI code page, elsewhere Windows-1252 exactly as Windows maps it, so
// that a file reads alike on both.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <optional>

// The bytes of `text`; a character the code page cannot hold becomes "?".
QByteArray ToFileBytes(const QString& text);

// The text of `bytes`; nothing when a byte holds no character of the code page (on Windows,
// of a system code page with gaps: Windows-1252 reads every byte).
std::optional<QString> FromFileBytes(QByteArrayView bytes);
// Whether FromFileBytes reads `bytes`, without the text.
bool ReadsAsText(QByteArrayView bytes);
