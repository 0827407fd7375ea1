#pragma once
// Tests of the fixture file output: the channel line and the text forms, random rows, the
// whole file byte by byte, and the save flow with its failures.

#include <QFile>

#include "support/form_fixture.h"

class TestOutput : public FormFixture {
    Q_OBJECT
  private slots:
    void channelLine_data();
    void channelLine();
    void text_data();
    void text();
    void randomRows();
    void wholeFile_data();
    void wholeFile();
    void proposedNameAndCancel_data();
    void proposedNameAndCancel();
    void dialogRefusesMissingFolder();
    void failureKeepsOldFile_data();
    void failureKeepsOldFile();
};

inline bool WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}
