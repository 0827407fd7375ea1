// Reading a written fixture file back: the files read and refused, and opening a file at the
// start.
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "input/fixture_reader.h"
#include "support/form_fixture.h"
#include "support/testing.h"
#include "wizard/start.h"

namespace {

// What the wizard shows of a fixture: manufacturer, model, name, pan, tilt and patch text with
// "|" between them, then each row of the grid, "/" before it, with "|" between its cells.
QString Shown(MainForm& f) {
    QString shown = QStringList({f.manifacturer.Text(), f.model.Text(), f.nameondesk.Text(),
                                 f.degreespan.Text(), f.degreestilt.Text(), f.patchdisplay.Text()})
                        .join(u'|');
    for (int r = 1; r < f.table.Rows(); ++r)
        for (int c = 0; c < 15; ++c) shown += (c ? u'|' : u'/') + f.table.TextMatrix(r, c);
    return shown;
}

std::unique_ptr<MainForm> Started(const QString& path = {}) {
    auto f = std::make_unique<MainForm>();
    StartWizard(*f, path);
    gui::testing::WaitForShown(f->main);
    return f;
}

}  // namespace

class TestInput : public FormFixture {
    Q_OBJECT
    // One entry of tests/data/input_tables.json.
    static QJsonValue data(const char* name) { return dataEntry("input_tables.json", name); }

  private slots:
    // Files that are read, and what is read of them: device, manufacturer, model, kind, pan, tilt,
    // patch text, then the rows of the grid with "|" between cells and "/" between rows; files
    // that are refused, and why. A file is written with "{head}" and "{tail}" for those of a file
    // as the writer puts it, and changed by the "from=>to" that follow the expected text.
    void read_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("expected");
        for (const QJsonValue& row : data("files").toArray()) {
            QString text = row[1]
                               .toString()
                               .replace(QStringLiteral("{head}"), data("file head").toString())
                               .replace(QStringLiteral("{tail}"), data("file tail").toString());
            for (qsizetype i = 3; i < row.toArray().size(); ++i) {
                const QStringList change = row[i].toString().split(QStringLiteral("=>"));
                QVERIFY2(text.contains(change[0]), qPrintable(change[0]));
                text.replace(change[0], change[1]);
            }
            QTest::newRow(qPrintable(row[0].toString())) << text.toLatin1() << row[2].toString();
        }
    }
    void read() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        const input::ReadOutcome outcome = input::ReadFixtureBytes(bytes);
        const common::Fixture f = outcome.fixture.value_or(common::Fixture());
        QStringList read = {
            f.nameOnDesk, f.manufacturer, f.model,     QString::number(MirrorKind(f.type)),
            f.pan,        f.tilt,         f.patchText, QString()};
        for (int row = 0; row < f.channels.rows(); ++row)
            read.last() += RowCells(f.channels, row).join(u'|') + u'/';
        read.last().chop(1);
        QCOMPARE(outcome.fixture ? read.join(u'|') : outcome.error, expected);
    }
    void openAtStart_data() {
        QTest::addColumn<QByteArray>("bytes");  // empty: no file at the path
        QTest::addColumn<QString>("message");   // behind "File {path} could not be read: "
        QTest::addColumn<QString>("shown");     // empty: as a wizard started without a file
        const QString read = "Caf\u00E9|\u20AC 1|Sp\u00E9t|360|a b|hi/";
        const QByteArray hand = data("hand-typed file").toString().toLatin1();
        QTest::newRow("hand-typed, no fixture type")
            << hand << ""
            << read + "#||0|||||||||0|0|0|/#|2|3|HTP (usually dimmer)|H>|1|1|Dim|1|N|100|0|0|0|";
        QByteArray none = hand;
        none.remove(none.indexOf("       1"), none.indexOf("END") - none.indexOf("       1"));
        QTest::newRow("no channel lines") << none << "" << read + "1||||||||||||||";
        // The box lays out every line it holds: a file with more text than it takes is refused.
        QTest::newRow("a patch text beyond the box")
            << QByteArray(hand).replace("hi", QByteArray(32768, 'x'))
            << "its patch text holds 32768 characters, more than the box takes (32767)"
            << QString();
        QTest::newRow("junk") << QByteArray("\x89PNG\r\n") << "line 1: DEVICE expected"
                              << QString();
        QTest::newRow("no such file") << QByteArray() << "No such file or directory" << QString();
    }
    void openAtStart() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        QFETCH(QString, shown);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("fixture.R20"));
        if (!bytes.isEmpty()) QVERIFY(WriteBytes(path, bytes));
        if (!message.isEmpty()) gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
        const auto f = Started(path);

        QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(!message.isEmpty()));
        if (!message.isEmpty()) {
            const gui::seams::MsgBoxCall& call = gui::seams::MsgBoxCalls().front();
            QCOMPARE(call.text,
                     "File " + QDir::toNativeSeparators(path) + " could not be read: " + message);
            QCOMPARE(call.style, gui::MsgStyle{.icon = gui::MsgIcon::Critical});
            QCOMPARE(call.title, QStringLiteral("Tolvane - Rigwright"));
        }
        QCOMPARE(Shown(*f), shown.isEmpty() ? Shown(*Started()) : shown);
        QCOMPARE(f->CurrentStep, 0);
        QVERIFY(f->stepf[0].Visible());
        QVERIFY(!f->previous.Enabled());
        QFile file(path);  // read, never written
        QCOMPARE(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(), bytes);
    }
};

RIGWRIGHT_TEST_CLASS(TestInput)
#include "test_input.moc"
