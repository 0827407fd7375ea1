// Reading a written fixture file back: the files read and refused, the command line, opening a
// file at the start, and the round trip: a fixture the wizard wrote, opened again and written
// again, gives the same bytes but for the comment lines and the line that names the path, date
// and time.
#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <array>
#include <memory>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "input/fixture_reader.h"
#include "output/fixture_file.h"
#include "support/form_fixture.h"
#include "wizard/start.h"

class TestInput : public FormFixture {
    Q_OBJECT
    // One entry of tests/data/input_tables.json.
    static QJsonValue data(const char* name) { return dataEntry("input_tables.json", name); }

  private slots:
    void read_data();
    void read();
    void openAtStart_data();
    void openAtStart();
    void roundTrip();
};

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

// The file as written from the finish page.
QByteArray Written(MainForm& f) {
    while (f.CurrentStep < 3) gui::testing::Click(f.nexts);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    WriteFixtureFile(f, QStringLiteral("/tmp/any.R20"), file);
    return file.data();
}

// The file behind the line with the path, date and time.
QByteArray Body(const QByteArray& file) {
    return file.mid(file.indexOf('\n', file.indexOf("\r\n; file ") + 2) + 1);
}

std::unique_ptr<MainForm> Started(const QString& path = {}) {
    auto f = std::make_unique<MainForm>();
    StartWizard(*f, path);
    gui::testing::WaitForShown(f->main);
    return f;
}

}  // namespace

// Files that are read, and what is read of them: device, manufacturer, model, kind, pan, tilt,
// patch text, then the rows of the grid with "|" between cells and "/" between rows; files
// that are refused, and why. A file is written with "{head}" and "{tail}" for those of a file
// as the writer puts it, and changed by the "from=>to" that follow the expected text.
void TestInput::read_data() {
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

void TestInput::read() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const input::ReadOutcome outcome = input::ReadFixtureBytes(bytes);
    const input::FixtureFile f = outcome.fixture.value_or(input::FixtureFile());
    QStringList read = {f.nameOnDesk, f.manufacturer, f.model,     QString::number(f.mirrorKind),
                        f.pan,        f.tilt,         f.patchText, QString()};
    for (const QStringList& cells : f.channelRows) read.last() += cells.join(u'|') + u'/';
    read.last().chop(1);
    QCOMPARE(outcome.fixture ? read.join(u'|') : outcome.error, expected);
}

void TestInput::openAtStart_data() {
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
    QTest::newRow("junk") << QByteArray("\x89PNG\r\n") << "line 1: DEVICE expected" << QString();
    QTest::newRow("no such file") << QByteArray() << "No such file or directory" << QString();
}

void TestInput::openAtStart() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QFETCH(QString, shown);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("fixture.R20"));
    if (!bytes.isEmpty()) QVERIFY(WriteBytes(path, bytes));
    if (!message.isEmpty()) gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    const auto f = Started(path);

    QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(!message.isEmpty()));
    if (!message.isEmpty()) {
        const gui::seams::MsgBoxCall& call = gui::seams::MsgBoxCalls().front();
        QCOMPARE(call.text, "File " + path + " could not be read: " + message);
        QCOMPARE(call.style, int(gui::kCritical));
        QCOMPARE(call.title, QStringLiteral("Tolvane - Rigwright"));
    }
    QCOMPARE(Shown(*f), shown.isEmpty() ? Shown(*Started()) : shown);
    QCOMPARE(f->CurrentStep, 0);
    QVERIFY(f->stepf[0].Visible());
    QVERIFY(!f->previous.Enabled());
    QFile file(path);  // read, never written
    QCOMPARE(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(), bytes);
}

// Random fixtures: free text as a user types or pastes it, and for each column of the grid
// the choices the editor and the presets store ("~" is free text).
void TestInput::roundTrip() {
    const QJsonValue choices = data("random fixtures");
    const auto list = [&](const char* name) { return choices[name].toVariant().toStringList(); };
    const QStringList texts = list("text"), columns = list("columns"), pans = list("pan"),
                      tilts = list("tilt"), patchLines = list("patch lines");
    QRandomGenerator random(20261123);
    const auto pick = [&](const QStringList& from) { return from[random.bounded(from.size())]; };
    const auto text = [&](const QStringList& from, int most, const QString& between = {}) {
        QStringList made;
        for (int i = random.bounded(5); i > 0; --i) made.append(pick(from));
        return made.join(between).left(most);
    };
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("fixture.R20"));
    for (int table = 0; table < 60; ++table) {
        const auto first = Started();
        MainForm& f = *first;
        f.manifacturer.setText(text(texts, 30));
        f.model.setText(text(texts, 30));
        f.nameondesk.setText(text(texts, 11));
        const int kind = random.bounded(4);  // or none, and pan and tilt by hand
        if (kind < 3) std::array{&f.mirror, &f.movinghead, &f.otherkind}[kind]->setValue(true);
        if (kind == 3) f.degreespan.setText(pick(pans));
        if (kind == 3) f.degreestilt.setText(pick(tilts));
        for (int i = random.bounded(8); i > 0; --i) {
            QStringList cells;
            for (const QString& column : columns)
                cells.append(column == u"~" ? text(texts, 40) : pick(column.split(u'|')));
            // Some rows are 16-bit; some have no number in dmx2 and so no line, with or without
            // an offset that counts for the channels.
            const int width = random.bounded(10);
            if (width <= 2) cells[2] = pick({"2", "18", "512"});
            if (width == 0) cells[1] = cells[2] = QString();
            if (width == 3) cells[2] = QString();
            f.table.AddItem(cells[0]);
            for (int c = 1; c < cells.size(); ++c)
                f.table.setTextMatrix(f.table.Rows() - 1, c, cells[c]);
        }
        if (f.table.Rows() > 2 && random.bounded(2)) f.table.RemoveItem(1);  // the blank first row
        f.patchdisplay.setText(text(patchLines, -1, QStringLiteral("\r\n")));

        const QByteArray written = Written(f);
        QVERIFY(Body(written).startsWith("; \r\n; \r\nDEVICE "));
        QVERIFY(WriteBytes(path, written));
        const auto second = Started(path);
        QVERIFY2(gui::seams::MsgBoxCalls().empty(),
                 qPrintable(gui::seams::MsgBoxCalls().front().text));
        const QByteArray again = Written(*second);
        QVERIFY2(Body(again) == Body(written),
                 qPrintable(QString::fromLatin1(written) + "\n---\n" + QString::fromLatin1(again)));
    }
}

RIGWRIGHT_TEST_CLASS(TestInput)
#include "test_input.moc"
