// Advice on the finish page: the channel count follows the table, and the first fault of
// the entered data is shown there, never blocking Next or Finished.
#include <QTest>

#include "channels/channel_table.h"
#include "channels/presets.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "support/form_fixture.h"
#include "wizard/advice.h"

using gui::testing::Click;

namespace {

const char* kCleanRow = "1;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;default";

}  // namespace

class TestAdvice : public FormFixture {
    Q_OBJECT

    // Rows as columns 1 to 14 joined by ";"; the table gets exactly these rows.
    void setRows(const QStringList& rows) {
        gui::Grid& t = form().table;
        while (t.Rows() > 2) t.RemoveItem(t.Rows() - 1);
        for (int r = 0; r < rows.size(); ++r) {
            if (r > 0) t.AddItem(QStringLiteral("#"));
            const QStringList cells = rows[r].split(u';');
            for (int c = 0; c < cells.size(); ++c) t.setTextMatrix(r + 1, c + 1, cells[c]);
        }
    }

    void setGeneral(const QString& assignments) {
        MainForm& f = form();
        for (const QString& a : assignments.split(u'|', Qt::SkipEmptyParts)) {
            const QString key = a.section(u'=', 0, 0);
            const QString value = a.section(u'=', 1);
            if (key == u"manifacturer") f.manifacturer.setText(value);
            if (key == u"model") f.model.setText(value);
            if (key == u"nameondesk") f.nameondesk.setText(value);
            if (key == u"pan") f.degreespan.setText(value);
            if (key == u"tilt") f.degreestilt.setText(value);
            if (key == u"type") {
                f.movinghead.setValue(value == u"movinghead");
                f.mirror.setValue(value == u"mirror");
                f.otherkind.setValue(value == u"otherkind");
            }
        }
    }

    void makeClean() {
        setGeneral(QStringLiteral(
            "manifacturer=Lumenfab|model=Beam 575|nameondesk=BEAM575|type=movinghead"));
        setRows({kCleanRow});
    }

  private slots:
    void eachFaultHasItsMessage_data() {
        QTest::addColumn<QString>("general");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("message");
        const QStringList clean{kCleanRow};
        QTest::newRow("clean") << "" << clean << "";
        QTest::newRow("manufacturer blank")
            << "manifacturer=   " << clean << "Manifacturer cannot be empty!";
        QTest::newRow("model empty") << "model=" << clean << "Model cannot be empty!";
        QTest::newRow("name empty")
            << "nameondesk=" << clean << "Name on desk cannot contain spaces or be empty!";
        QTest::newRow("name with blank")
            << "nameondesk=BEAM 575" << clean << "Name on desk cannot contain spaces or be empty!";
        QTest::newRow("no type") << "type=none" << clean << "Please choose type of fixture!";
        QTest::newRow("pan 720") << "pan=720" << clean << "Pan degrees must be 1 to 719!";
        QTest::newRow("pan 0") << "pan=0" << clean << "Pan degrees must be 1 to 719!";
        QTest::newRow("pan fraction") << "pan=1.5" << clean << "Pan degrees must be 1 to 719!";
        QTest::newRow("tilt letters") << "tilt=abc" << clean << "Tilt degrees must be 1 to 359!";
        QTest::newRow("other kind skips degrees") << "type=otherkind|pan=0|tilt=0" << clean << "";
        QTest::newRow("dmx zero") << ""
                                  << QStringList{"0;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;"}
                                  << "DMX cannot be zero! Maybe one unused row to delete?";
        QTest::newRow("untouched first row")
            << "" << QStringList{";0"} << "DMX cannot be zero! Maybe one unused row to delete?";
        QTest::newRow("offset used twice")
            << "" << QStringList{kCleanRow, "1;0;FADEABLE LTP;F>;4;1;Tilt;1;N;100;128;0;0;"}
            << "DMX channel duplicated at line 2";
        QTest::newRow("low byte on an earlier offset")
            << "" << QStringList{kCleanRow, "2;1;FADEABLE LTP;F>;4;1;Tilt;1;N;100;128;0;0;"}
            << "DMX channel duplicated at line 2";
        QTest::newRow("both bytes the same")
            << "" << QStringList{"1;1;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;"}
            << "DMX channel duplicated at line 1";
        QTest::newRow("channel type")
            << "" << QStringList{"1;0;fadeable ltp;E>;3;61;Pan;1;N;100;128;0;0;"}
            << "Invalid Channel Type at line 1";
        QTest::newRow("second HTP")
            << ""
            << QStringList{"1;0;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;",
                           "2;0;HTP (usually dimmer);H>;2;1;Dimmer;1;N;100;128;0;0;"}
            << "There may be only 1 HTP channel! There is a second at line 2";
        QTest::newRow("16-bit HTP")
            << "" << QStringList{"1;2;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;"}
            << "An HTP channel cannot be 16 bit i.e. a 16 bit channel cannot be HTP, line 1";
        QTest::newRow("wheel") << "" << QStringList{"1;0;FADEABLE LTP;E>;3;2;Pan;1;N;100;128;0;0;"}
                               << "Wheel must be 1 (A) or 61 (B) at line 1";
        QTest::newRow("long wheel is fine")
            << "" << QStringList{"1;0;FADEABLE LTP;E>;3;61> B (right);Pan;1;N;100;128;0;0;"} << "";
        QTest::newRow("key 21") << ""
                                << QStringList{"1;0;FADEABLE LTP;E>;21;61;Pan;1;N;100;128;0;0;"}
                                << "Key ID out of bounds (1-20) at line 1";
        QTest::newRow("key empty")
            << "" << QStringList{"1;0;FADEABLE LTP;E>;;61;Pan;1;N;100;128;0;0;"}
            << "Key ID out of bounds (1-20) at line 1";
        QTest::newRow("key on same wheel")
            << "" << QStringList{kCleanRow, "2;0;FADEABLE LTP;F>;3;61;Tilt;1;N;100;128;0;0;"}
            << "Key assignament duplicated at line 2";
        QTest::newRow("same key, other wheel")
            << "" << QStringList{kCleanRow, "2;0;FADEABLE LTP;F>;3;1;Tilt;1;N;100;128;0;0;"} << "";
        QTest::newRow("ratio 0") << "" << QStringList{"1;0;FADEABLE LTP;E>;3;61;Pan;1;N;0;128;0;0;"}
                                 << "Ratio % value out of bounds (1-100) at line 1";
        QTest::newRow("locate 256")
            << "" << QStringList{"1;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;256;0;0;"}
            << "Locate value out of bounds (0-255) at line 1";
        QTest::newRow("highlight -1")
            << "" << QStringList{"1;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;-1;0;"}
            << "Highligt value out of bounds (0-255) at line 1";
        QTest::newRow("lowlight 300")
            << "" << QStringList{"1;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;300;"}
            << "Lolight value out of bounds (0-255) at line 1";
        QTest::newRow("gap in the offsets")
            << "" << QStringList{kCleanRow, "3;0;FADEABLE LTP;F>;4;1;Tilt;1;N;100;128;0;0;"}
            << "Unused dmx channel (2) in range!";
        QTest::newRow("offset only on a row without dmx2")
            << "" << QStringList{kCleanRow, "2;"} << "Unused dmx channel (2) in range!";
        QTest::newRow("two faults, the earlier wins")
            << "model=" << QStringList{"0;0;;;;;;;;;;;;"} << "Model cannot be empty!";
        QTest::newRow("second row fault after first")
            << "" << QStringList{"1;0;FADEABLE LTP;E>;3;61;Pan;1;N;0;128;0;0;", "1;0;bad"}
            << "Ratio % value out of bounds (1-100) at line 1";
        QTest::newRow("16-bit pair") << ""
                                     << QStringList{"1;2;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;",
                                                    "3;0;FADEABLE LTP;F>;4;1;Tilt;1;N;100;128;0;0;default"}
                                     << "";
    }
    void eachFaultHasItsMessage() {
        QFETCH(QString, general);
        QFETCH(QStringList, rows);
        QFETCH(QString, message);
        makeClean();
        setGeneral(general);
        setRows(rows);
        GiveAdvice(form());
        QCOMPARE(form().errormessage[3].Caption(), message);
    }

    void shownOnArrivalAndGoneWhenFixed() {
        makeClean();
        form().model.setText(QString());
        goToPage(3);
        QCOMPARE(form().errormessage[3].Caption(), QStringLiteral("Model cannot be empty!"));
        QVERIFY(gui::testing::ShownOnScreen(form().errormessage[3]));
        // Next and Finished refuse nothing while advice shows.
        QVERIFY(form().finished.Enabled());
        gui::seams::QueueSaveAnswer(std::nullopt);
        Click(form().finished);
        QCOMPARE(gui::seams::SaveDialogCalls().size(), size_t(1));
        Click(form().goonrange);
        Click(form().nexts);
        QCOMPARE(int(form().CurrentStep), 4);
        goToPage(0);
        form().model.setText(QStringLiteral("Beam 575"));
        goToPage(3);
        QCOMPARE(form().errormessage[3].Caption(), QString());
    }

    void channelCountFollowsTheTable() {
        makeClean();
        goToPage(3);
        QCOMPARE(form().dmxchannels.Caption(), QStringLiteral("1"));
        goToPage(2);
        Command6_Click(form(), 1);  // pan16 takes offsets 2 and 3
        Command6_Click(form(), 6);  // CMY takes 4, 5 and 6
        goToPage(3);
        QCOMPARE(form().dmxchannels.Caption(), QStringLiteral("6"));
        goToPage(2);
        form().table.RemoveItem(form().table.Rows() - 1);
        goToPage(3);
        QCOMPARE(form().dmxchannels.Caption(), QStringLiteral("5"));
    }
};

RIGWRIGHT_TEST_CLASS(TestAdvice)
#include "test_advice.moc"
