#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "output/code_page.h"
#include "output/fixture_file.h"
#include "output/save_flow.h"
#include "output_test.h"
#include "wizard/fixture_pages.h"

namespace {

const QDateTime kSavedAt(QDate(2024, 3, 7), QTime(9, 5, 3));

// Takes bytes up to a limit, then fails, as a full disk does.
class FailingDevice : public QIODevice {
  public:
    explicit FailingDevice(qint64 limit) : limit_(limit) { open(QIODevice::WriteOnly); }
    QByteArray data;

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* bytes, qint64 size) override {
        const qint64 taken = std::min(size, limit_ - data.size());
        if (taken < size) setErrorString(QStringLiteral("No space left on the test device"));
        if (taken <= 0) return -1;
        data.append(bytes, taken);
        return taken;
    }

  private:
    qint64 limit_;
};

const QString kPreset[] = {
    QStringLiteral("#\t1\t2\tFADEABLE LTP\tE>\t3\t61\tPan\t1\tN\t100\t128\t0\t0\tdefault"),
    QStringLiteral("#\t3\t0\tFADEABLE LTP\tF>\t3\t1\tTilt\t1\tN\t100\t128\t0\t0\tdefault"),
    QStringLiteral(
        "#\t4\t0\tHTP (usually dimmer)\tH>\t1\t1\tDimmer\t1\tN\t100\t128\t0\t0\tdefault"),
};

}  // namespace

QByteArray TestOutput::expectedFile(const QString& dataFile, const QString& path) {
    QFile file(dataPath(dataFile));
    if (!file.open(QIODevice::ReadOnly)) return "cannot read " + dataFile.toUtf8();
    return file.readAll().replace("@PATH@", ToFileBytes(path));
}

void TestOutput::prepareFile(const QString& setup) {
    MainForm& f = form();
    if (setup == u"worked example") {
        f.manifacturer.setText(QStringLiteral("Lumenfab"));
        f.model.setText(QStringLiteral("Beam 575"));
        f.nameondesk.setText(QStringLiteral("BEAM575"));
        f.movinghead.setValue(true);
        f.degreespan.setText(QStringLiteral("540"));
        f.degreestilt.setText(QStringLiteral("270"));
        ComposeComment(f);
        f.morecomment.setText(f.morecomment.Text() +
                              QStringLiteral("\r\nRigged for the small stage"));
        f.dmxchannels.setCaption(QStringLiteral("99"));
        for (const QString& row : kPreset) f.table.AddItem(row);
        f.table.RemoveItem(1);
    } else if (setup == u"blank") {
        // Nothing checked before writing: empty names, no kind of fixture, odd degrees, no
        // comment, no patch text, and no row with a number in dmx2.
        f.manifacturer.setText(QString());
        f.model.setText(QString());
        f.nameondesk.setText(QString());
        f.movinghead.setValue(false);
        f.mirror.setValue(false);
        f.otherkind.setValue(false);
        f.degreespan.setText(QStringLiteral("12"));
        f.degreestilt.setText(QStringLiteral("x 34"));
        f.morecomment.setText(QString());
        f.patchdisplay.setText(QString());
        f.dmxchannels.setCaption(QStringLiteral("7"));
        f.table.setTextMatrix(1, 2, QString());
        f.table.AddItem(QStringLiteral("2"));
    } else if (setup == u"mixed") {
        // A 16-bit row in the middle, a row that add made, characters of and beyond the
        // code page, a patch text with a line END of its own.
        f.manifacturer.setText(QStringLiteral("Caf\u00E9 \"Lux\""));
        f.model.setText(QStringLiteral("Spot \u20AC"));
        f.nameondesk.setText(QStringLiteral("  SPOT  "));
        f.mirror.setValue(true);
        f.degreespan.setText(QStringLiteral("180"));
        f.degreestilt.setText(QStringLiteral("90"));
        f.morecomment.setText(QStringLiteral("one\r\ntwo\r\nthree \u65E5\u672C"));
        f.patchdisplay.setText(QStringLiteral("END\r\nline"));
        f.dmxchannels.setCaption(QStringLiteral("20"));
        f.table.AddItem(QStringLiteral(
            "#\t1\t0\tFADEABLE LTP\tE>\t3\t61\tPann\u00E9\t1\tN\t100\t128\t0\t0\tdefault"));
        f.table.RemoveItem(1);
        f.table.AddItem(
            QStringLiteral("#\t2\t3\tINDEXED LTP (not fadeable, such as gobo)\tI>\t6\t"
                           "61\tGobo1\t1\tN\t100\t0\t0\t0\tx; \"y\""));
        f.table.AddItem(QStringLiteral("3"));
        f.table.AddItem(
            QStringLiteral("#\t5\t0\tHTP (usually dimmer)\tH>\t1\t1\tDim\t1\tN\t100\t-1\t\t255\t"));
    }
}

void TestOutput::wholeFile_data() {
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QString>("dataFile");
    QTest::newRow("worked example") << "worked example"
                                    << "output_worked_example.R20";
    QTest::newRow("blank") << "blank"
                           << "output_blank.R20";
    QTest::newRow("mixed") << "mixed"
                           << "output_mixed.R20";
}

void TestOutput::wholeFile() {
    QFETCH(QString, setup);
    QFETCH(QString, dataFile);
    gui::seams::FixClock(kSavedAt);
    prepareFile(setup);
    const int rows = form().table.Rows();
    const QString comment = form().morecomment.Text();
    const bool finishedEnabled = form().finished.Enabled();

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("BEAM575.R20"));
    gui::seams::QueueSaveAnswer(path);
    gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    finished_Click(form());

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray actual = file.readAll();
    const QByteArray expected = expectedFile(dataFile, path);
    QCOMPARE(actual.split('\n'), expected.split('\n'));  // names the first line that differs
    QCOMPARE(actual, expected);

    QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(1));
    const gui::seams::MsgBoxCall& told = gui::seams::MsgBoxCalls().front();
    QCOMPARE(told.text, "File " + path + " has been created!");
    QCOMPARE(told.style, int(gui::kInformation));
    QCOMPARE(told.title, QStringLiteral("Tolvane - Rigwright"));

    // Saving changes nothing in the wizard and leaves nothing else in the folder.
    QCOMPARE(form().CurrentStep, std::int16_t(0));
    QCOMPARE(form().table.Rows(), rows);
    QCOMPARE(form().morecomment.Text(), comment);
    QCOMPARE(form().finished.Enabled(), finishedEnabled);
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             QStringList{"BEAM575.R20"});
}

void TestOutput::writerStopsAtFailedWrite_data() {
    QTest::addColumn<int>("limit");  // bytes the device takes; negative: counted from the end
    QTest::newRow("nothing fits") << 0;
    QTest::newRow("one byte") << 1;
    QTest::newRow("inside the channel lines") << 500;
    QTest::newRow("all but the last byte") << -2;
    QTest::newRow("all of it") << -1;
}

void TestOutput::writerStopsAtFailedWrite() {
    QFETCH(int, limit);
    gui::seams::FixClock(kSavedAt);
    prepareFile(QStringLiteral("worked example"));
    const QString path = QStringLiteral("/x/BEAM575.R20");
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    QVERIFY(WriteFixtureFile(form(), path, whole).ok);
    const QByteArray full = whole.data();
    QCOMPARE(full, expectedFile(QStringLiteral("output_worked_example.R20"), path));
    QVERIFY(full.indexOf("DMX\r\n3 61") < 500 && full.indexOf("\r\nEND\r\n") > 500);

    const qint64 takes = limit >= 0 ? limit : full.size() + limit + 1;
    FailingDevice device(takes);
    const WriteOutcome outcome = WriteFixtureFile(form(), path, device);
    QCOMPARE(device.data, full.left(takes));
    if (takes == full.size()) {
        QVERIFY(outcome.ok);
        QVERIFY(outcome.error.isEmpty());
    } else {
        QVERIFY(!outcome.ok);
        QCOMPARE(outcome.error, QStringLiteral("No space left on the test device"));
    }
}
