#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "output/save_flow.h"
#include "output_test.h"

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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

#ifdef Q_OS_UNIX
// Lets no file of this process grow beyond a few bytes, as a full disk would, while the
// old file is already in place. A write past the limit then fails instead of ending the
// process.
struct FileSizeLimit {
    rlimit before{};
    bool active = false;
    bool set(rlim_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        if (getrlimit(RLIMIT_FSIZE, &before) != 0) return false;
        rlimit small = before;
        small.rlim_cur = bytes;
        return active = setrlimit(RLIMIT_FSIZE, &small) == 0;
    }
    ~FileSizeLimit() {
        if (active) setrlimit(RLIMIT_FSIZE, &before);
    }
};

// Mode bits do not stop the superuser, as whom tests may run: for the save the test takes on
// the rights of the user "nobody", and gives them back after.
struct OrdinaryRights {
    static constexpr uid_t kNobody = 65534;
    bool taken = false;
    bool take() {
        if (geteuid() != 0) return true;
        taken = setegid(kNobody) == 0 && seteuid(kNobody) == 0;
        return taken;
    }
    void giveBack() {
        if (!taken) return;
        taken = false;
        [[maybe_unused]] const int uid = seteuid(0);
        [[maybe_unused]] const int gid = setegid(0);
    }
    ~OrdinaryRights() { giveBack(); }
};
#endif

}  // namespace

void TestOutput::proposedNameAndCancel_data() {
    QTest::addColumn<QString>("nameondesk");
    QTest::addColumn<QString>("proposed");
    QTest::newRow("empty") << QString() << QStringLiteral("MyFixture.R20");
    QTest::newRow("blanks only") << QStringLiteral("   ") << QStringLiteral("MyFixture.R20");
    QTest::newRow("leading blank kept") << QStringLiteral(" A") << QStringLiteral(" A.R20");
    // Blanks are spaces: tabs and no-break spaces are a name.
    QTest::newRow("tab") << QStringLiteral(" \t ") << QStringLiteral(" \t .R20");
    QTest::newRow("no-break spaces")
        << QStringLiteral("\u00a0\u00a0") << QStringLiteral("\u00a0\u00a0.R20");
    QTest::newRow("name") << QStringLiteral("BEAM575") << QStringLiteral("BEAM575.R20");
}

void TestOutput::proposedNameAndCancel() {
    QFETCH(QString, nameondesk);
    QFETCH(QString, proposed);
    form().nameondesk.setText(nameondesk);
    QTemporaryDir dir;
    const QString existing = dir.filePath(QStringLiteral("MyFixture.R20"));
    QVERIFY(WriteBytes(existing, kOldBytes));
    const QString cwd = QDir::currentPath();
    QDir::setCurrent(dir.path());  // an empty name must not become a file here either

    // A cancel, then an empty name: the proposal is worked out anew each time.
    gui::seams::QueueSaveAnswer(std::nullopt);
    gui::seams::QueueSaveAnswer(QString());
    form().finished.setEnabled(true);
    gui::testing::Click(form().finished);
    finished_Click(form());
    QDir::setCurrent(cwd);

    const auto& calls = gui::seams::SaveDialogCalls();
    QCOMPARE(calls.size(), std::size_t(2));
    for (const gui::seams::SaveDialogCall& call : calls) {
        QCOMPARE(call.presetName, proposed);
        QCOMPARE(call.title, kCaption);
        QCOMPARE(call.filter, QStringLiteral("*.R20|*.R20"));
        QVERIFY(call.overwritePrompt);
    }
    QVERIFY(gui::seams::MsgBoxCalls().empty());
    QCOMPARE(EntriesOf(dir.path()), QStringList{"MyFixture.R20"});
    QCOMPARE(ReadBytes(existing), kOldBytes);
}

// The real dialog, driven by keys: a name in a folder that does not exist is refused with a
// word why, and the dialog stays open until the user cancels it.
void TestOutput::dialogRefusesMissingFolder() {
    using namespace gui::testing;
    QTemporaryDir dir;
    const QString missing = dir.filePath(QStringLiteral("missing/BEAM575.R20"));
    QStringList seen;  // what the active dialog showed, in turn
    gui::seams::RunRealSaveDialog();
    QTimer::singleShot(0, [&] {
        seen << CaptionOf(ActiveDialog());
        PressKey(Qt::Key_A, Qt::ControlModifier);
        TypeKeys(missing);
        QTimer::singleShot(0, [&] {
            seen << CaptionOf(ActiveDialog());
            PressKey(Qt::Key_Return);
        });
        PressKey(Qt::Key_Return);
        seen << CaptionOf(ActiveDialog());
        PressKey(Qt::Key_Escape);
    });
    finished_Click(form());
    QCOMPARE(seen.size(), 3);
    QCOMPARE(seen[0], kCaption);
    QVERIFY2(seen[1].contains(QDir::toNativeSeparators(missing)) &&
                 seen[1].contains(QStringLiteral("does not exist")),
             qPrintable(seen[1]));
    QCOMPARE(seen[2], kCaption);
    QVERIFY(gui::seams::MsgBoxCalls().empty());  // cancelled in the end: nothing is said
    QCOMPARE(EntriesOf(dir.path()), QStringList());
}

void TestOutput::failureKeepsOldFile_data() {
    QTest::addColumn<QString>("where");
    for (const char* where : {"missing folder", "read-only folder", "folder without execute right",
                              "target is a folder", "full device", "named pipe", "size limit"})
        QTest::newRow(where) << where;
}

void TestOutput::failureKeepsOldFile() {
#ifndef Q_OS_UNIX
    QSKIP("The failures are made with the mode bits and limits of a Unix system");
#else
    QFETCH(QString, where);
    QTemporaryDir dir;
    QString folder = dir.path();
    QString path = dir.filePath(QStringLiteral("BEAM575.R20"));
    QString oldFile = path;  // a file that must come out byte-identical
    FileSizeLimit limit;
    OrdinaryRights rights;
    if (where == u"missing folder") {
        path = dir.filePath(QStringLiteral("missing/BEAM575.R20"));
        oldFile.clear();
    } else if (where == u"target is a folder") {
        QVERIFY(QDir(folder).mkdir(QStringLiteral("BEAM575.R20")));
        oldFile = path + QStringLiteral("/inside.R20");
    } else if (where == u"named pipe") {
        // Nothing reads the pipe: a write into it would wait for ever.
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        oldFile.clear();
    } else if (where == u"full device") {
        if (!QFileInfo::exists(QStringLiteral("/dev/full"))) QSKIP("No /dev/full on this system");
        folder = QStringLiteral("/dev");
        path = QStringLiteral("/dev/full");
        oldFile.clear();
    } else if (where != u"size limit") {
        // The old file in a folder of its own, which then loses its write or its execute
        // right; the folder around it lets anyone through.
        folder = dir.filePath(QStringLiteral("locked"));
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("locked")));
        path = oldFile = folder + QStringLiteral("/BEAM575.R20");
        QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                              QFile::ReadOther | QFile::ExeOther);
    }
    if (!oldFile.isEmpty()) QVERIFY(WriteBytes(oldFile, kOldBytes));
    if (folder.endsWith(u"/locked")) {
        const QFile::Permissions kept =
            where.startsWith(u"read-only")
                ? QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther
                : QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(QFile::setPermissions(folder, kept));
    }
    const QStringList before = EntriesOf(folder);
    if (folder.endsWith(u"/locked") && !rights.take())
        QSKIP("Cannot take on the rights of an ordinary user");
    if (where == u"size limit") QVERIFY(limit.set(100));

    gui::seams::QueueSaveAnswer(path);
    gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    finished_Click(form());
    rights.giveBack();

    QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(1));
    const gui::seams::MsgBoxCall& told = gui::seams::MsgBoxCalls().front();
    const QString opening = "File " + path + " could not be written: ";
    QVERIFY2(told.text.startsWith(opening) && told.text.size() > opening.size(),
             qPrintable(told.text));
    QCOMPARE(told.style, int(gui::kCritical));
    QCOMPARE(told.title, kCaption);
    QCOMPARE(EntriesOf(folder), before);  // no temporary file left behind
    if (!oldFile.isEmpty()) QCOMPARE(ReadBytes(oldFile), kOldBytes);
#endif
}
