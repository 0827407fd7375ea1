#pragma once
// The fixture definition file: every line in its order, written from one fixture value.

#include <QByteArray>
#include <QString>

#include "common/fixture.h"

class QDateTime;
class QIODevice;

struct WriteOutcome {
    bool ok = true;
    QString error;  // the device's reason when a write failed
};

// The whole file of `fixture`, each line followed by CR LF; line 4 names `path` and the time
// `saved`.
QByteArray FixtureFileBytes(const common::Fixture& fixture, const QString& path,
                            const QDateTime& saved);

// Hands `bytes` to `out`, all of them, or says why it took no more.
WriteOutcome SendBytes(const QByteArray& bytes, QIODevice& out);

// Writes the whole file of `fixture` into `out`, each line followed by CR LF; line 4 names
// `path` and the time `saved`. The lines are composed first and then handed to `out`
// together.
WriteOutcome WriteFixtureFile(const common::Fixture& fixture, const QString& path,
                              const QDateTime& saved, QIODevice& out);
