#pragma once
// Tests of reading a written fixture file back: the channel lines, the whole file and its
// refusals, the command line, and the round trip through the wizard's own writer.

#include <QFile>
#include <QJsonValue>

#include "support/form_fixture.h"

class TestInput : public FormFixture {
    Q_OBJECT
    QJsonValue data(const char* name);  // one entry of tests/data/input_tables.json
    // Adds the rows of one table there: a row's first cell names it, the others are text.
    void addRows(const char* table);

  private slots:
    void read_data();
    void read();
    void commandLine_data();
    void commandLine();
    void openAtStart_data();
    void openAtStart();
    void roundTrip();
};

inline bool WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
