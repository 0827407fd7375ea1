#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "output/fixture_file.h"
#include "output/save_flow.h"
#include "output_test.h"

#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>
#endif

namespace {

const QString kCaption = QStringLiteral("Tolvane - Rigwright");
const QByteArray kOldBytes = "; an older file\r\n";

QStringList EntriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden |
                                  QDir::System);
}

bool WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

// Gives a folder back its write permission, so that the temporary folder can go.
struct WritableAgain {
    QString folder;
    ~WritableAgain() {
        if (!folder.isEmpty())
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
};

#ifdef Q_OS_UNIX
// Lets no file of this process grow beyond a few bytes, as a full disk would, while the
// old file is already in place; the signal that would end the process is ignored.
struct FileSizeLimit {
    rlimit before{};
    void (*handler)(int) = SIG_DFL;
    bool active = false;
    bool set(rlim_t bytes) {
        if (getrlimit(RLIMIT_FSIZE, &before) != 0) return false;
        handler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = before;
        small.rlim_cur = bytes;
        active = setrlimit(RLIMIT_FSIZE, &small) == 0;
        return active;
    }
    ~FileSizeLimit() {
        if (!active) return;
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
};
#endif

}  // namespace

void TestOutput::proposedName_data() {
    QTest::addColumn<QString>("nameondesk");
    QTest::addColumn<QString>("proposed");
    QTest::newRow("empty") << QString() << QStringLiteral("MyFixture.R20");
    QTest::newRow("blanks only") << QStringLiteral("   ") << QStringLiteral("MyFixture.R20");
    QTest::newRow("leading blank kept") << QStringLiteral(" A") << QStringLiteral(" A.R20");
    QTest::newRow("name") << QStringLiteral("BEAM575") << QStringLiteral("BEAM575.R20");
}

void TestOutput::proposedName() {
    QFETCH(QString, nameondesk);
    QFETCH(QString, proposed);
    form().nameondesk.setText(nameondesk);
    // A cancel, then a second press: the proposal is worked out anew each time.
    gui::seams::QueueSaveAnswer(std::nullopt);
    gui::seams::QueueSaveAnswer(std::nullopt);
    finished_Click(form());
    finished_Click(form());
    const auto& calls = gui::seams::SaveDialogCalls();
    QCOMPARE(calls.size(), std::size_t(2));
    for (const gui::seams::SaveDialogCall& call : calls) {
        QCOMPARE(call.presetName, proposed);
        QCOMPARE(call.title, kCaption);
        QCOMPARE(call.filter, QStringLiteral("*.R20|*.R20"));
        QVERIFY(call.overwritePrompt);
    }
    QVERIFY(gui::seams::MsgBoxCalls().empty());
}

void TestOutput::noDecisionWritesNothing_data() {
    QTest::addColumn<bool>("cancelled");  // else the dialog comes back with an empty name
    QTest::newRow("cancel") << true;
    QTest::newRow("empty name") << false;
}

void TestOutput::noDecisionWritesNothing() {
    QFETCH(bool, cancelled);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString existing = dir.filePath(QStringLiteral("MyFixture.R20"));
    QVERIFY(WriteBytes(existing, kOldBytes));
    const QString cwd = QDir::currentPath();
    QDir::setCurrent(dir.path());  // an empty name must not become a file here either

    gui::seams::QueueSaveAnswer(cancelled ? std::nullopt : std::optional<QString>(QString()));
    finished_Click(form());
    QDir::setCurrent(cwd);

    QVERIFY(gui::seams::MsgBoxCalls().empty());
    QCOMPARE(EntriesOf(dir.path()), QStringList{"MyFixture.R20"});
    QCOMPARE(ReadBytes(existing), kOldBytes);
}

void TestOutput::secondSaveReplacesFirst() {
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("BEAM575.R20"));
    form().model.setText(QStringLiteral("First"));
    gui::seams::FixClock(QDateTime(QDate(2024, 12, 31), QTime(23, 59, 58)));
    gui::seams::QueueSaveAnswer(path);
    gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    finished_Click(form());
    const QByteArray first = ReadBytes(path);
    QVERIFY(first.contains("; file " + path.toUtf8() + " saved 12-31-202423:59:58\r\n"));

    form().model.setText(QStringLiteral("Second"));
    gui::seams::FixClock(QDateTime(QDate(2025, 1, 2), QTime(0, 0, 1)));
    gui::seams::QueueSaveAnswer(path);
    gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    finished_Click(form());

    QBuffer expected;
    expected.open(QIODevice::WriteOnly);
    QVERIFY(WriteFixtureFile(form(), path, expected).ok);
    QCOMPARE(ReadBytes(path), expected.data());
    QVERIFY(expected.data().contains(" saved 01-02-202500:00:01\r\n"));
    QVERIFY(expected.data().contains("NAME \"\" \"Second\"\r\n"));
    QCOMPARE(EntriesOf(dir.path()), QStringList{"BEAM575.R20"});
    QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(2));
    QCOMPARE(gui::seams::MsgBoxCalls().back().text, "File " + path + " has been created!");
}

void TestOutput::finishedButtonRunsTheFlow() {
    form().finished.setEnabled(true);
    gui::seams::QueueSaveAnswer(std::nullopt);
    gui::testing::Click(form().finished);
    QCOMPARE(gui::seams::SaveDialogCalls().size(), std::size_t(1));
}

void TestOutput::failureKeepsOldFile_data() {
    QTest::addColumn<QString>("where");
    QTest::newRow("missing folder") << "missing folder";
    QTest::newRow("target is a folder") << "target is a folder";
    QTest::newRow("read-only folder") << "read-only folder";
    QTest::newRow("full device") << "full device";
    QTest::newRow("file size limit") << "file size limit";
}

void TestOutput::failureKeepsOldFile() {
    QFETCH(QString, where);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QString folder = dir.path();
    QString path = dir.filePath(QStringLiteral("BEAM575.R20"));
    QString oldFile;  // a file that must come out byte-identical
    WritableAgain restore;
#ifdef Q_OS_UNIX
    FileSizeLimit limit;
#endif

    if (where == u"missing folder") {
        path = dir.filePath(QStringLiteral("missing/BEAM575.R20"));
    } else if (where == u"target is a folder") {
        QVERIFY(QDir(folder).mkdir(QStringLiteral("BEAM575.R20")));
        oldFile = path + QStringLiteral("/inside.R20");
        QVERIFY(WriteBytes(oldFile, kOldBytes));
    } else if (where == u"read-only folder") {
        folder = dir.filePath(QStringLiteral("locked"));
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("locked")));
        path = folder + QStringLiteral("/BEAM575.R20");
        oldFile = path;
        QVERIFY(WriteBytes(oldFile, kOldBytes));
        QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        restore.folder = folder;
        QFile probe(folder + QStringLiteral("/probe"));
        if (probe.open(QIODevice::WriteOnly)) {
            probe.remove();
            QSKIP("This user may write into a read-only folder (root), so nothing fails here");
        }
    } else if (where == u"full device") {
        if (!QFileInfo::exists(QStringLiteral("/dev/full"))) QSKIP("No /dev/full on this system");
        folder = QStringLiteral("/dev");
        path = QStringLiteral("/dev/full");
    } else if (where == u"file size limit") {
#ifdef Q_OS_UNIX
        oldFile = path;
        QVERIFY(WriteBytes(oldFile, kOldBytes));
        QVERIFY(limit.set(100));
#else
        QSKIP("No file size limit on this system");
#endif
    }
    const QStringList before = EntriesOf(folder);

    gui::seams::QueueSaveAnswer(path);
    gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    finished_Click(form());

    QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(1));
    const gui::seams::MsgBoxCall& told = gui::seams::MsgBoxCalls().front();
    const QString opening = "File " + path + " could not be written: ";
    QVERIFY2(told.text.startsWith(opening), qPrintable(told.text));
    QVERIFY2(told.text.size() > opening.size(), "the reason is missing");
    QCOMPARE(told.style, int(gui::kCritical));
    QCOMPARE(told.title, kCaption);
    QCOMPARE(EntriesOf(folder), before);  // no temporary file left behind
    if (!oldFile.isEmpty()) QCOMPARE(ReadBytes(oldFile), kOldBytes);
}
