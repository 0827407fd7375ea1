// Opening a file at the start, and the round trip: a fixture the wizard wrote, opened again
// and written again, gives the same bytes but for the comment lines and the line that
// names the path, date and time.
#include <QBuffer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "input_test.h"
#include "output/fixture_file.h"
#include "wizard/start.h"

namespace {

constexpr int kTables = 60;

QString TableText(MainForm& f) {
    QStringList rows;
    for (int r = 1; r < f.table.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < 15; ++c) cells.append(f.table.TextMatrix(r, c));
        rows.append(cells.join(u'|'));
    }
    return rows.join(u'/');
}

QByteArray Written(const MainForm& f) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    WriteFixtureFile(f, QStringLiteral("/tmp/any.R20"), buffer);
    return buffer.data();
}

// The file behind the line with the path, date and time.
QByteArray Body(const QByteArray& file) {
    const qsizetype saved = file.indexOf("\r\n; file ");
    return file.mid(file.indexOf('\n', saved + 2) + 1);
}

bool WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

void NextToFinishPage(MainForm& f) {
    while (f.CurrentStep < 3) gui::testing::Click(f.nexts);
}

std::unique_ptr<MainForm> Started(const QString& path = {}) {
    auto f = std::make_unique<MainForm>();
    StartWizard(*f, path);
    gui::testing::WaitForShown(f->main);
    return f;
}

QString Pick(QRandomGenerator& random, const QStringList& from) {
    return from[random.bounded(from.size())];
}

// Free text as a user types or pastes it: blanks, quotes, semicolons, tabs, characters of
// the code page and beyond it.
QString RandomText(QRandomGenerator& random, int most) {
    static const QStringList pieces = {
        " ",      "  ",     "\"",     ";",          "a",   "Pan", "Gobo wheel rotation",
        "\u00E9", "\u20AC", "\u65E5", "\U0001F600", "x y", ">",   "0",
        "12",     "-1",     "\t",     "\" \""};
    QString text;
    for (int i = random.bounded(5); i > 0; --i) text += Pick(random, pieces);
    return text.left(most);
}

// The choices of each column, "|" between them, as the editor and the presets store them;
// "~" is free text.
const QStringList kChoices = {
    "#",
    "|1|2|17|300|511|x|5a",
    "0",
    "HTP (usually dimmer)|FADEABLE LTP|INDEXED LTP (not fadeable, such as gobo)||fadeable",
    "E> Pan|E>||0> ---OTHER|T> R red|>x| x",
    "|1|20|3|0",
    "1> A (left)|61> B (right)|1|61||0",
    "~",
    "1 - Linear|2 - Square|1||12|x",
    "N - normal|C - inverted|N|C|",
    "100||75|x",
    "128|-1||abc|2.5|007",
    "0|255|",
    "0|51|x",
    "~"};

QStringList RandomRow(QRandomGenerator& random) {
    QStringList cells;
    for (const QString& choices : kChoices)
        cells.append(choices == u"~" ? RandomText(random, 40) : Pick(random, choices.split(u'|')));
    // Some rows are 16-bit; some have no number in dmx2 and so no line, nor any offset that
    // would count for the channels.
    const int width = random.bounded(10);
    if (width <= 2) cells[2] = Pick(random, {"2", "18", "512"});
    if (width == 0) cells[1] = cells[2] = QString();
    return cells;
}

void FillRandomly(MainForm& f, QRandomGenerator& random) {
    f.manifacturer.setText(RandomText(random, 30));
    f.model.setText(RandomText(random, 30));
    f.nameondesk.setText(RandomText(random, 11));
    gui::OptionButton* const types[] = {&f.mirror, &f.movinghead, &f.otherkind, nullptr};
    if (gui::OptionButton* type = types[random.bounded(4)]) {
        type->setValue(true);
    } else {
        f.degreespan.setText(Pick(random, {"0", "540", " 5 x", "", "a b"}));
        f.degreestilt.setText(Pick(random, {"0", "270", "", " y "}));
    }
    for (int i = random.bounded(8); i > 0; --i) {
        const QStringList cells = RandomRow(random);
        f.table.AddItem(cells[0]);
        for (int c = 1; c < cells.size(); ++c)
            f.table.setTextMatrix(f.table.Rows() - 1, c, cells[c]);
    }
    if (f.table.Rows() > 2 && random.bounded(2)) f.table.RemoveItem(1);  // the blank first row
    QStringList patch;
    for (int i = random.bounded(5); i > 0; --i)
        patch.append(Pick(random, {"", "END", "ATTR", "obsolete", "TEXT", "a b ", "\u20AC\u65E5"}));
    f.patchdisplay.setText(patch.join(QStringLiteral("\r\n")));
}

const QByteArray kHandTyped =
    "; a comment\r\nDEVICE Sp\xE9t\r\nNAME \"Caf\xE9\" \"\x80 1\"\r\nMIRROR 0 360 a b\r\nDMX\r\n"
    "       1 \"\" 0 0 0  ;\r\n"
    "1 1  2 100 1N H 1 \"Dim\" 0 0 0  ;\r\n0 0 H 3 100 1N H 1 \"Dim\" 0 0 0  ;\r\n"
    "END\r\nTEXT\r\nhi\r\nEND\r\nATTR\r\nobsolete\r\nEND\r\n";

}  // namespace

void TestInput::openAtStart_data() {
    QTest::addColumn<QByteArray>("bytes");  // empty: no file at the path
    QTest::addColumn<QString>("message");   // behind "File {path} could not be read: "
    QTest::addColumn<QString>("pages");     // manufacturer|model|name|pan|tilt|patch
    QTest::addColumn<QString>("table");
    const QString empty =
        "|||540|270|\r\n\r\nINPUT fixture DMX No.\r\nPress a Fixture\r\n"
        "Select or Swop button to \r\nmake the patch.\r\n";
    QTest::newRow("hand-typed, no fixture type")
        << kHandTyped << ""
        << "Caf\u00E9|\u20AC 1|Sp\u00E9t|360|a b|hi"
        << "#||0|||||||||0|0|0|/#|2|3|HTP (usually dimmer)|H>|1|1|Dim|1|N|100|0|0|0|";
    QByteArray none = kHandTyped;
    none.replace(none.indexOf("       1"), none.indexOf("END") - none.indexOf("       1"), "");
    QTest::newRow("no channel lines") << none << ""
                                      << "Caf\u00E9|\u20AC 1|Sp\u00E9t|360|a b|hi"
                                      << "1||||||||||||||";
    QTest::newRow("junk") << QByteArray("\x89PNG\r\n") << "line 1: DEVICE expected" << empty
                          << "1||0||||||||||||";
    QTest::newRow("no such file") << QByteArray() << "No such file or directory" << empty
                                  << "1||0||||||||||||";
}

void TestInput::openAtStart() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QFETCH(QString, pages);
    QFETCH(QString, table);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("fixture.R20"));
    if (!bytes.isEmpty()) QVERIFY(WriteFile(path, bytes));
    if (!message.isEmpty()) gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    const auto f = Started(path);

    if (message.isEmpty()) {
        QVERIFY(gui::seams::MsgBoxCalls().empty());
    } else {
        QCOMPARE(gui::seams::MsgBoxCalls().size(), 1u);
        const gui::seams::MsgBoxCall& call = gui::seams::MsgBoxCalls().front();
        QCOMPARE(call.text, "File " + path + " could not be read: " + message);
        QCOMPARE(call.style, int(gui::kCritical));
        QCOMPARE(call.title, QStringLiteral("Tolvane - Rigwright"));
    }
    const QStringList got = {f->manifacturer.Text(), f->model.Text(),       f->nameondesk.Text(),
                             f->degreespan.Text(),   f->degreestilt.Text(), f->patchdisplay.Text()};
    QCOMPARE(got.join(u'|'), pages);
    QCOMPARE(TableText(*f), table);
    QCOMPARE(f->CurrentStep, 0);
    QVERIFY(f->stepf[0].Visible());
    QVERIFY(!f->previous.Enabled());
    // The file is read, never written.
    if (!bytes.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), bytes);
    }
}

void TestInput::roundTrip() {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("fixture.R20"));
    QRandomGenerator random(20261123);
    for (int i = 0; i < kTables; ++i) {
        const auto first = Started();
        FillRandomly(*first, random);
        NextToFinishPage(*first);
        const QByteArray written = Written(*first);
        QVERIFY(Body(written).startsWith("; \r\n; \r\nDEVICE "));
        QVERIFY(WriteFile(path, written));
        const auto second = Started(path);
        QVERIFY2(gui::seams::MsgBoxCalls().empty(),
                 qPrintable(gui::seams::MsgBoxCalls().front().text));
        NextToFinishPage(*second);
        const QByteArray again = Written(*second);
        QVERIFY2(Body(again) == Body(written),
                 qPrintable("table " + QString::number(i) + "\n" + QString::fromLatin1(written) +
                            "\n---\n" + QString::fromLatin1(again)));
    }
}

RIGWRIGHT_TEST_MAIN(TestInput)
