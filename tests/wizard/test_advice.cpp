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

// Columns 1 to 14 of a row joined by ";".
const QString kPan = QStringLiteral("1;0;FADEABLE LTP;E>;3;61;Pan;1;N;100;128;0;0;default");
const QString kTilt = QStringLiteral("2;0;FADEABLE LTP;F>;4;1;Tilt;1;N;100;128;0;0;");
const QString kHtp = QStringLiteral("HTP (usually dimmer)");

// `row` with its cell in column `col` (1..14) replaced.
QString With(int col, const QString& value, const QString& row = kPan) {
    QStringList cells = row.split(u';');
    cells[col - 1] = value;
    return cells.join(u';');
}

}  // namespace

class TestAdvice : public FormFixture {
    Q_OBJECT

    // The table gets exactly these rows.
    void setRows(const QStringList& rows) {
        gui::Grid& t = form().table;
        while (t.Rows() > 2) t.RemoveItem(t.Rows() - 1);
        for (int r = 0; r < rows.size(); ++r) {
            if (r > 0) t.AddItem(QStringLiteral("#"));
            const QStringList cells = rows[r].split(u';');
            for (int c = 0; c < cells.size(); ++c) t.setTextMatrix(r + 1, c + 1, cells[c]);
        }
    }

    // "key=value|…" over a clean set of general data.
    void setGeneral(const QString& assignments) {
        MainForm& f = form();
        f.manifacturer.setText(QStringLiteral("Lumenfab"));
        f.model.setText(QStringLiteral("Beam 575"));
        f.nameondesk.setText(QStringLiteral("BEAM575"));
        f.movinghead.setValue(true);
        const QHash<QString, gui::TextBox*> boxes{{"manifacturer", &f.manifacturer},
                                                  {"model", &f.model},
                                                  {"nameondesk", &f.nameondesk},
                                                  {"pan", &f.degreespan},
                                                  {"tilt", &f.degreestilt}};
        for (const QString& a : assignments.split(u'|', Qt::SkipEmptyParts)) {
            const QString key = a.section(u'=', 0, 0), value = a.section(u'=', 1);
            if (key != u"type") {
                boxes.value(key)->setText(value);
                continue;
            }
            f.movinghead.setValue(value == u"movinghead");
            f.mirror.setValue(value == u"mirror");
            f.otherkind.setValue(value == u"otherkind");
        }
    }

  private slots:
    void eachFaultHasItsMessage_data() {
        QTest::addColumn<QString>("general");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("message");
        const auto add = [](const QByteArray& name, const QString& general, const QStringList& rows,
                            const QString& message) {
            QTest::newRow(name.constData()) << general << rows << message;
        };
        const auto dup = [](const char* at) {
            return QStringLiteral("DMX channel duplicated at line ") + at;
        };
        add("clean", "", {kPan}, "");
        add("manufacturer blank", "manifacturer=   ", {kPan}, "Manifacturer cannot be empty!");
        const QString name = "Name on desk cannot contain spaces or be empty!";
        add("name with blank", "nameondesk=BEAM 575", {kPan}, name);
        add("no type", "type=none", {kPan}, "Please choose type of fixture!");
        for (const char* pan : {"720", "1.5"})
            add(QByteArray("pan ") + pan, QStringLiteral("pan=") + pan, {kPan},
                "Pan degrees must be 1 to 719!");
        add("other kind skips degrees", "type=otherkind|pan=0|tilt=0", {kPan}, "");
        add("untouched first row", "", {";0"},
            "DMX cannot be zero! Maybe one unused row to delete?");
        add("offset used twice", "", {kPan, With(1, "1", kTilt)}, dup("2"));
        add("low byte on an earlier offset", "", {kPan, With(2, "1", kTilt)}, dup("2"));
        add("channel type", "", {With(3, "fadeable ltp")}, "Invalid Channel Type at line 1");
        add("second HTP", "", {With(3, kHtp), With(3, kHtp, kTilt)},
            "There may be only 1 HTP channel! There is a second at line 2");
        add("16-bit HTP", "", {With(2, "2", With(3, kHtp))},
            "An HTP channel cannot be 16 bit i.e. a 16 bit channel cannot be HTP, line 1");
        add("wheel", "", {With(6, "2")}, "Wheel must be 1 (A) or 61 (B) at line 1");
        add("key 21", "", {With(5, "21")}, "Key ID out of bounds (1-20) at line 1");
        add("key on same wheel", "", {kPan, With(6, "61", With(5, "3", kTilt))},
            "Key assignament duplicated at line 2");
        add("same key, other wheel", "", {kPan, With(5, "3", kTilt)}, "");
        add("ratio 0", "", {With(10, "0")}, "Ratio % value out of bounds (1-100) at line 1");
        add("locate 256", "", {With(11, "256")}, "Locate value out of bounds (0-255) at line 1");
        add("gap in the offsets", "", {kPan, With(1, "3", kTilt)},
            "Unused dmx channel (2) in range!");
        add("offset only on a row without dmx2", "", {kPan, "2;"},
            "Unused dmx channel (2) in range!");
        add("two faults, the earlier wins", "model=", {"0;0;;;;;;;;;;;;"},
            "Model cannot be empty!");
        add("second row fault after first", "", {With(10, "0"), "1;0;bad"},
            "Ratio % value out of bounds (1-100) at line 1");
        add("16-bit pair", "", {With(2, "2"), With(1, "3", kTilt)}, "");
    }
    void eachFaultHasItsMessage() {
        QFETCH(QString, general);
        QFETCH(QStringList, rows);
        QFETCH(QString, message);
        setGeneral(general);
        setRows(rows);
        GiveAdvice(form());
        QCOMPARE(form().errormessage[3].Caption(), message);
    }

    void shownOnArrivalAndGoneWhenFixed() {
        setGeneral(QStringLiteral("model="));
        setRows({kPan});
        goToPage(3);
        QCOMPARE(form().errormessage[3].Caption(), QStringLiteral("Model cannot be empty!"));
        QVERIFY(gui::testing::ShownOnScreen(form().errormessage[3]));
        // Next and Finished refuse nothing while advice shows.
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
        setRows({kPan});
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
