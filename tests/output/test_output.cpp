// The fixture file output: its lines and text forms by worked rows, the whole file, and the
// save with its failures.
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <utility>

#include "common/code_page.h"
#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/system.h"
#include "output/channel_line.h"
#include "output/comment_lines.h"
#include "output/fixture_file.h"
#include "output/form_fixture.h"
#include "output/save_flow.h"
#include "support/form_fixture.h"
#include "support/testing.h"
#include "wizard/fixture_pages.h"

#ifdef Q_OS_WIN
#include <windows.h>
#else
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

// The one message of the save: its words, style and title. A failure ends with the reason,
// which the system words.
void CheckTold(const QString& text, gui::MsgIcon icon) {
    QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(1));
    const gui::seams::MsgBoxCall& told = gui::seams::MsgBoxCalls().front();
    QVERIFY2(told.text.startsWith(text) &&
                 (told.text.size() > text.size()) == (icon == gui::MsgIcon::Critical),
             qPrintable(told.text));
    QCOMPARE(told.style, gui::MsgStyle{.icon = icon});
    QCOMPARE(told.title, kCaption);
}

}  // namespace

class TestOutput : public FormFixture {
    Q_OBJECT
    // Adds the rows of one table of tests/data/output_tables.json: a row's first cell names it,
    // the others are its columns, all text.
    void addRows(const char* table) { addTextRows(dataEntry("output_tables.json", table)); }

  private slots:
    void text_data() {
        // token, label, comment lines, bytes, line or low byte line (of the grid row with these
        // cells)
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("text");      // cells 1 to 14 for a line, "|" between them
        QTest::addColumn<QString>("expected");  // comment lines with "|" between, bytes as Latin-1,
                                                // "-" for a row that gives no line at all
        addRows("text");
        const QString lone(QChar(0xD83D)),
            longLine(40000, u'x');  // a lone surrogate is one character
        QTest::newRow("label, lone surrogate") << QString("label") << lone + "ABCDEFGHIJKLM"
                                               << "\"" + lone + "ABCDEFGHIJK\"";
        QTest::newRow("bytes, lone surrogate") << QString("bytes") << lone << "?";
        QTest::newRow("CR beyond 16 bits") << QString("comment lines") << longLine + "\r\ny"
                                           << "; " + longLine + "\r|; y";
    }
    void text() {
        QFETCH(QString, kind);
        QFETCH(QString, text);
        QFETCH(QString, expected);
#ifdef Q_OS_WIN
        // On Windows the file takes the system's ANSI code page; the rows are Windows-1252's.
        if (kind == u"bytes" && GetACP() != 1252)
            QSKIP("The system's ANSI code page is not Windows-1252");
#endif
        if (kind.endsWith(u"line")) gui::testing::SetRows(form().table, {"#|" + text}, u'|');
        const QString none = QStringLiteral("-");
        QCOMPARE(kind == u"token"           ? LeadingToken(text)
                 : kind == u"label"         ? QuoteLabel(text)
                 : kind == u"comment lines" ? CommentLines(text).join(u'|')
                 : kind == u"bytes"         ? QString::fromLatin1(ToFileBytes(text))
                 : kind == u"line"
                     ? BuildChannelLine(ReadForm(form()).channels, 0, false).value_or(none)
                     : BuildChannelLine(ReadForm(form()).channels, 0, true).value_or(none),
                 expected);
    }
    void wholeFile_data() {
        QTest::addColumn<QString>("kind");  // moving head or mirror
        // Manufacturer, model, name on desk, pan, tilt, comment ("%1" the composed one), patch text
        // ("~" as it was) and channels, "|" between them.
        QTest::addColumn<QString>("pages");
        QTest::addColumn<QString>("rows");  // "|" between cells, "/" between rows
        // The mixed one: a 16-bit row amid others, a row that add made, text beyond the code page.
        addRows("whole files");
    }
    void wholeFile() {
        QFETCH(QString, kind);
        QFETCH(QString, pages);
        QFETCH(QString, rows);
        gui::seams::FixClock(QDateTime(QDate(2024, 3, 7), QTime(9, 5, 3)));
        const QStringList page = pages.split(u'|');
        MainForm& f = form();
        (kind == u"moving head" ? f.movinghead : f.mirror).setValue(true);
        int i = 0;
        for (gui::TextBox* box :
             {&f.manifacturer, &f.model, &f.nameondesk, &f.degreespan, &f.degreestilt})
            box->setText(page[i++]);
        ComposeComment(f);
        f.morecomment.setText(QString(page[5]).replace(QStringLiteral("%1"), f.morecomment.Text()));
        if (page[6] != u"~") f.patchdisplay.setText(page[6]);
        f.dmxchannels.setCaption(page[7]);
        gui::testing::SetRows(f.table, rows.split(u'/'), u'|');
        const int count = f.table.Rows();

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("BEAM575.R20"));
        QVERIFY(WriteBytes(path, QByteArray(5000, 'x')));  // replaced whole by the save
        gui::seams::QueueSaveAnswer(path);
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
        finished_Click(f);
        // Line by line, so that a difference names its line.
        QCOMPARE(ReadBytes(path).split('\n'),
                 ReadBytes(dataPath("output_" + QString(QTest::currentDataTag()) + ".R20"))
                     .replace("@PATH@", ToFileBytes(QDir::toNativeSeparators(path)))
                     .split('\n'));
        CheckTold("File " + QDir::toNativeSeparators(path) + " has been created!",
                  gui::MsgIcon::Information);
        // Saving changes nothing in the wizard and leaves nothing else in the folder.
        QCOMPARE(f.table.Rows(), count);
        QCOMPARE(EntriesOf(dir.path()), QStringList{"BEAM575.R20"});
    }
    void proposedNameAndCancel_data() {
        QTest::addColumn<QString>("nameondesk");
        QTest::addColumn<QString>("proposed");
        addRows("proposed names");
    }
    void proposedNameAndCancel() {
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

        QCOMPARE(gui::seams::SaveDialogCalls().size(), std::size_t(2));
        for (const gui::seams::SaveDialogCall& call : gui::seams::SaveDialogCalls()) {
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
    void dialogRefusesMissingFolder() {
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
    // The open dialog keeps its folder to itself: after an open cancelled in another folder,
    // the save dialog starts in the working folder, where the proposed name is.
    void saveStartsInWorkingFolder() {
        using namespace gui::testing;
        QTemporaryDir elsewhere;
        gui::seams::RunRealOpenDialog();
        QTimer::singleShot(0, [&] {
            ActiveDialog();
            TypeKeys(elsewhere.path());
            PressKey(Qt::Key_Return);  // goes into the folder
            PressKey(Qt::Key_Escape);
        });
        goToPage(3);
        PressKey(Qt::Key_O, Qt::ControlModifier);
        QString folder;
        gui::seams::RunRealSaveDialog();
        QTimer::singleShot(0, [&] {
            folder = FolderOf(ActiveDialog());
            PressKey(Qt::Key_Escape);
        });
        Click(form().finished);
        QCOMPARE(folder, QDir::currentPath());
    }
    // Each saver, the wizard's and the library's, either writes the target or refuses it with a
    // reason; a refusal leaves the old file as it was and nothing of its own behind.
    void saveTargets_data() {
        QTest::addColumn<QString>("target");   // in a fresh folder
        QTest::addColumn<QString>("oldFile");  // a file there that must come out byte-identical
        QTest::addColumn<QString>("setup");    // a mode for the old file's folder, or what is done
        QTest::addColumn<QString>("wizard");   // "refuses", "writes" or "either"
        QTest::addColumn<QString>("library");
#ifdef Q_OS_WIN
        const QString platform = QStringLiteral("windows");
#else
        const QString platform = QStringLiteral("unix");
#endif
        // Rows for the other platform's own kinds of target are not this platform's tests.
        for (const QJsonValue& row : dataEntry("output_tables.json", "save targets").toArray()) {
            const QString only = row[4].toString();
            if (!only.isEmpty() && only != platform) continue;
            QTest::newRow(qPrintable(row[0].toString()))
                << row[1].toString() << row[2].toString() << row[3].toString() << row[5].toString()
                << row[6].toString();
        }
    }
    void saveTargets() {
        QFETCH(QString, target);
        QFETCH(QString, oldFile);
        QFETCH(QString, setup);
        QFETCH(QString, wizard);
        QFETCH(QString, library);
        const QByteArray tag = QTest::currentDataTag();
        QTemporaryDir dir;
        // A folder deep enough that the whole path is over 260 characters.
        const QString deep = QStringList(4, QString(70, u'd')).join(u'/');
        target.replace("@LONG@", deep), oldFile.replace("@LONG@", deep);
        target.replace("@PREFIXED@", "\\\\?\\" + QDir::toNativeSeparators(dir.path()) + u'\\');
        const QString path = QDir(dir.path()).filePath(target), old = dir.filePath(oldFile);
        if (!QFileInfo::exists(path) && tag == "full device") QSKIP("No /dev/full on this system");
        if (!oldFile.isEmpty())
            QVERIFY(QDir(dir.path()).mkpath(QFileInfo(old).path()) && WriteBytes(old, kOldBytes));
        QString folder = QFileInfo(path).path();  // where a temporary file would be left behind
        if (!QFileInfo(folder).isDir()) folder = dir.path();
        const auto permissions = QFileInfo(old).permissions();
        const auto restore = qScopeGuard([&] {
            if (!oldFile.isEmpty()) QFile::setPermissions(old, permissions);
        });
        if (setup == u"read-only")
            QVERIFY(QFile::setPermissions(old, QFileDevice::ReadOwner | QFileDevice::ReadUser));
#ifndef Q_OS_WIN
        // Nothing reads the pipe: a write into it would wait for ever.
        if (setup == u"fifo") QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        const int locked = setup.toInt(nullptr, 8);
        if (locked) {
            // The old file's folder loses its write or its execute right; the folder around it
            // lets anyone through.
            QCOMPARE(chmod(QFile::encodeName(dir.path()).constData(), 0705), 0);
            QCOMPARE(chmod(QFile::encodeName(folder).constData(), mode_t(locked)), 0);
        }
#endif
        const QStringList before = EntriesOf(folder);
        const QString name = QFileInfo(path).fileName();
        const QStringList written = QStringList(before + QStringList{name});

#ifdef Q_OS_WIN
        // During the saves another program holds the old file open and shares it with nobody.
        HANDLE held = INVALID_HANDLE_VALUE;
        const auto takeOn = [&] {
            if (setup != u"held open") return true;
            held =
                CreateFileW(reinterpret_cast<const wchar_t*>(QDir::toNativeSeparators(old).utf16()),
                            GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
            return held != INVALID_HANDLE_VALUE;
        };
        const auto giveBack = [&] {
            if (held != INVALID_HANDLE_VALUE)
                CloseHandle(std::exchange(held, INVALID_HANDLE_VALUE));
        };
        const auto undo = qScopeGuard(giveBack);
#else
        // Mode bits do not stop the superuser, as whom tests may run: for the saves the test
        // takes on the rights of the user "nobody". So it does before a save into /dev, which,
        // were the refusal of devices ever lost, would otherwise replace /dev/full itself. A write
        // past the size limit fails instead of ending the process, as on a full disk.
        const bool root = (locked || tag == "full device") && geteuid() == 0;
        const auto takeOn = [root] {
            return !root || (setegid(65534) == 0 && seteuid(65534) == 0);
        };
        const auto giveBack = [root] {
            if (root && (seteuid(0) != 0 || setegid(0) != 0))
                qFatal("The rights were not given back");
        };
        const auto undo = qScopeGuard(giveBack);
        rlimit limit{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
        const auto lift = qScopeGuard([limit] { setrlimit(RLIMIT_FSIZE, &limit); });
        if (tag == "size limit") {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit small{100, limit.rlim_max};
            QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        }
#endif
        QVERIFY2(takeOn(), "Cannot take on the rights of an ordinary user, or hold the file");

        // What a saver did, and whether the folder and the file it had are as that leaves them.
        const auto check = [&](const QString& saver, const QString& expected, bool wrote,
                               const QByteArray& had, const QString& said) {
            const QString did = wrote ? QStringLiteral("writes") : QStringLiteral("refuses");
            qInfo("%s %s: %s", qPrintable(saver), qPrintable(did), qPrintable(said));
            if (expected != u"either") QCOMPARE(did, expected);
            if (wrote) {
                if (QFileInfo(path).isFile()) QVERIFY(ReadBytes(path).startsWith("; "));
                QVERIFY2(EntriesOf(folder) == before || EntriesOf(folder) == written,
                         qPrintable(EntriesOf(folder).join(u',')));
            } else {
                QCOMPARE(EntriesOf(folder), before);  // no temporary file left behind
                if (!oldFile.isEmpty()) QCOMPARE(ReadBytes(old), had);
            }
        };
        gui::seams::QueueSaveAnswer(path);
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
        finished_Click(form());
        giveBack();
        QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(1));
        const bool wizardWrote =
            gui::seams::MsgBoxCalls().front().style.icon != gui::MsgIcon::Critical;
        const QString shown = QDir::toNativeSeparators(path);
        CheckTold(
            "File " + shown + (wizardWrote ? " has been created!" : " could not be written: "),
            wizardWrote ? gui::MsgIcon::Information : gui::MsgIcon::Critical);
        check("the wizard", wizard, wizardWrote, kOldBytes, gui::seams::MsgBoxCalls().front().text);

        const QByteArray had = oldFile.isEmpty() ? QByteArray() : ReadBytes(old);
        QVERIFY(takeOn());
        // The library's two steps, as --convert --force takes them.
        const StagedFile staged =
            StageLibraryFile(FixtureFileBytes(ReadForm(form()), path, gui::Now()), path, true);
        const std::optional<QString> refused =
            staged.error ? staged.error : PlaceLibraryFile(staged, path, true);
        giveBack();
        QVERIFY(!refused || !refused->isEmpty());  // a refusal says why
        check("the library", library, !refused, had, refused.value_or(QString()));
    }
};

RIGWRIGHT_TEST_CLASS(TestOutput)
#include "test_output.moc"
