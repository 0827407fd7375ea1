#include "support/form_fixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

#include "common/system_names.h"
#include "gui/seams.h"
#include "input/command_line.h"
#include "support/testing.h"
#include "wizard/engine.h"
#include "wizard/library_commands.h"
#include "wizard/start.h"

void FormFixture::init() {
    gui::seams::Reset();
    form_ = std::make_unique<MainForm>();
    StartWizard(*form_);
    QVERIFY(gui::testing::WaitForShown(form_->main));
}

void FormFixture::cleanup() {
    const int pending = gui::seams::PendingAnswers();
    const int unanswered = gui::seams::UnansweredCalls();
    form_.reset();
    gui::seams::Reset();
    QCOMPARE(pending, 0);
    QCOMPARE(unanswered, 0);
}

QObject* FormFixture::find(const QString& name) {
    return gui::testing::Find(form_->main, name);
}

void FormFixture::goToPage(int index) {
    while (form_->CurrentStep < index) {
        if (!form_->nexts.Enabled()) form_->goonrange.setValue(1), goonrange_Click(*form_);
        gui::testing::Click(form_->nexts);
    }
    while (form_->CurrentStep > index) gui::testing::Click(form_->previous);
}

QString FormFixture::dataPath(const QString& file) {
    return qEnvironmentVariable("RIGWRIGHT_TEST_DATA") + u'/' + file;
}

QJsonValue FormFixture::dataEntry(const QString& file, const QString& name) {
    const QJsonObject entries = QJsonDocument::fromJson(ReadBytes(dataPath(file))).object();
    for (auto it = entries.begin(); it != entries.end(); ++it)
        if (it.key() == name || it.key().startsWith(name + u':')) return it.value();
    return {};
}

void FormFixture::addTextRows(const QJsonValue& table) {
    QVERIFY2(table.isArray(), "no such table");
    for (const QJsonValue& row : table.toArray()) {
        QTestData& added = QTest::newRow(qPrintable(row[0].toString()));
        for (qsizetype i = 1; i < row.toArray().size(); ++i) added << row[i].toString();
    }
}

int RunLibraryCommand(const QStringList& arguments, QString* printed, QString* errors,
                      bool terminal, bool matchWildcards) {
    QTemporaryDir dir;
    const QString outName = dir.filePath("out"), errName = dir.filePath("err");
    std::FILE* out = std::fopen(QFile::encodeName(outName).constData(), "wb");
    std::FILE* err = terminal ? out : std::fopen(QFile::encodeName(errName).constData(), "wb");
    if (!out || !err)
        qFatal("No file for the streams of a library command in %s", qPrintable(dir.path()));
    const LibraryStreams streams{out, err, terminal};
    input::CommandLine line = input::ParseCommandLine(arguments);
    line.matchWildcards = matchWildcards;
    const int code = line.action == input::CommandLine::Action::kCheck
                         ? CheckFixtures(line, streams)
                         : ConvertFixtures(line, streams);
    // What a run stopped now would have shown: what reached the files.
    const qint64 flushed = QFileInfo(outName).size() + QFileInfo(errName).size();
    std::fclose(out);
    if (!terminal) std::fclose(err);
    const QByteArray o = ReadBytes(outName), e = terminal ? QByteArray() : ReadBytes(errName);
    if (printed) *printed = common::FromSystemBytes(o);
    if (errors) *errors = common::FromSystemBytes(e);
    return flushed == o.size() + e.size() ? code : -1;
}
