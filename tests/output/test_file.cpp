#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "output/code_page.h"
#include "output/save_flow.h"
#include "output_test.h"
#include "wizard/fixture_pages.h"

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
        f.table.AddItem(
            QStringLiteral("#\t1\t2\tFADEABLE LTP\tE>\t3\t61\tPan\t1\tN\t100\t128\t0\t0\tdefault"));
        f.table.AddItem(
            QStringLiteral("#\t3\t0\tFADEABLE LTP\tF>\t3\t1\tTilt\t1\tN\t100\t128\t0\t0\tdefault"));
        f.table.AddItem(QStringLiteral(
            "#\t4\t0\tHTP (usually dimmer)\tH>\t1\t1\tDimmer\t1\tN\t100\t128\t0\t0\tdefault"));
    } else {
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
        f.table.AddItem(
            QStringLiteral("#\t2\t3\tINDEXED LTP (not fadeable, such as gobo)\tI>\t6\t"
                           "61\tGobo1\t1\tN\t100\t0\t0\t0\tx; \"y\""));
        f.table.AddItem(QStringLiteral("3"));
        f.table.AddItem(
            QStringLiteral("#\t5\t0\tHTP (usually dimmer)\tH>\t1\t1\tDim\t1\tN\t100\t-1\t\t255\t"));
    }
    f.table.RemoveItem(1);
}

void TestOutput::wholeFile_data() {
    QTest::addColumn<QString>("setup");
    for (const char* setup : {"worked example", "mixed"}) QTest::newRow(setup) << setup;
}

void TestOutput::wholeFile() {
    QFETCH(QString, setup);
    gui::seams::FixClock(QDateTime(QDate(2024, 3, 7), QTime(9, 5, 3)));
    prepareFile(setup);
    const int rows = form().table.Rows();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("BEAM575.R20"));
    QFile older(path);  // replaced whole by the save
    QVERIFY(older.open(QIODevice::WriteOnly) && older.write(QByteArray(5000, 'x')) == 5000);
    older.close();
    gui::seams::QueueSaveAnswer(path);
    gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    finished_Click(form());

    QFile file(path), expected(dataPath("output_" + QString(setup).replace(u' ', u'_') + ".R20"));
    QVERIFY(file.open(QIODevice::ReadOnly) && expected.open(QIODevice::ReadOnly));
    // Line by line, so that a difference names its line.
    QCOMPARE(file.readAll().split('\n'),
             expected.readAll().replace("@PATH@", ToFileBytes(path)).split('\n'));
    QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(1));
    const gui::seams::MsgBoxCall& told = gui::seams::MsgBoxCalls().front();
    QCOMPARE(told.text, "File " + path + " has been created!");
    QCOMPARE(told.style, int(gui::kInformation));
    QCOMPARE(told.title, QStringLiteral("Tolvane - Rigwright"));
    // Saving changes nothing in the wizard and leaves nothing else in the folder.
    QCOMPARE(form().table.Rows(), rows);
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             QStringList{"BEAM575.R20"});
}
