// The finish page: advice on the first fault, which blocks neither Next nor Finished, the
// channel count, and the multi-line boxes typed and pasted into, byte for byte in the file.
#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTemporaryDir>
#include <QWindow>

#include "channels/presets.h"
#include "gui/dialogs.h"
#include "gui/seams.h"
#include "support/form_fixture.h"
#include "support/testing.h"
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

class TestFinishPage : public FormFixture {
    Q_OBJECT

    // The table gets exactly these rows.
    void setRows(QStringList rows) {
        for (QString& row : rows) row.prepend(u"#;");
        gui::testing::SetRows(form().table, rows, u';');
    }

    // Clean general data of a moving head, then "control=text|…"; an option takes 0 or 1.
    void setGeneral(const QString& changes) {
        const QString clean =
            "manifacturer=Lumenfab|model=Beam 575|nameondesk=BEAM575|movinghead=1";
        QMap<QString, QString> values;
        for (const QString& c : (clean + u'|' + changes).split(u'|', Qt::SkipEmptyParts))
            values[c.section(u'=', 0, 0)] = c.section(u'=', 1);
        for (const auto& [name, value] : values.asKeyValueRange()) {
            const bool option = name == u"movinghead" || name == u"otherkind";
            find(name)->setProperty(option ? "checked" : "text", value);
        }
    }

    // A click where the control stands on screen, through the window, as a real mouse lands.
    void clickOn(const QString& name, Qt::MouseButton button) {
        QAccessibleInterface* at = QAccessible::queryAccessibleInterface(find(name));
        QTest::mouseClick(at->window(), button, {},
                          at->window()->mapFromGlobal(at->rect().center()));
    }

    // Keys go where a keyboard's keys go: to the window, which hands them to the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
    }

  private slots:
    void eachFaultHasItsMessage_data() {
        QTest::addColumn<QString>("general");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("message");
        const auto add = [](const char* tag, const char* general, const QStringList& rows,
                            const QString& message) {
            QTest::newRow(tag) << QString::fromUtf8(general) << rows << message;
        };
        const QString dup = "DMX channel duplicated at line 2",
                      gap = "Unused dmx channel (2) in range!";
        add("clean", "", {kPan}, "");
        add("manufacturer blank", "manifacturer=   ", {kPan}, "Manifacturer cannot be empty!");
        add("name with blank", "nameondesk=BEAM 575", {kPan},
            "Name on desk cannot contain spaces or be empty!");
        add("no type", "movinghead=0", {kPan}, "Please choose type of fixture!");
        add("pan 720", "degreespan=720", {kPan}, "Pan degrees must be 1 to 719!");
        add("pan 1.5", "degreespan=1.5", {kPan}, "Pan degrees must be 1 to 719!");
        add("other kind skips degrees", "otherkind=1|degreespan=0|degreestilt=0", {kPan}, "");
        add("row untouched", "", {";0"}, "DMX cannot be zero! Maybe one unused row to delete?");
        add("offset used twice", "", {kPan, With(1, "1", kTilt)}, dup);
        add("low byte on an earlier offset", "", {kPan, With(2, "1", kTilt)}, dup);
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
        add("gap in the offsets", "", {kPan, With(1, "3", kTilt)}, gap);
        add("offset only, no dmx2", "", {kPan, "2;"}, gap);
        add("general before channels", "model=", {"0;0;;;;;;;;;;;;"}, "Model cannot be empty!");
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

    // Each arrival at the finish page counts the channels anew and shows the advice, or
    // clears it once the fault is mended elsewhere.
    void shownOnArrivalRefusingNothing() {
        setGeneral(QStringLiteral("model="));
        setRows({With(1, "1", kTilt)});  // its key stays free for the presets below
        goToPage(3);
        QCOMPARE(form().errormessage[3].Caption(), QStringLiteral("Model cannot be empty!"));
        QVERIFY(gui::testing::ShownOnScreen(form().errormessage[3]));
        QCOMPARE(form().dmxchannels.Caption(), QStringLiteral("1"));
        gui::seams::QueueSaveAnswer(std::nullopt);
        Click(form().finished);
        QCOMPARE(gui::seams::SaveDialogCalls().size(), size_t(1));
        Click(form().goonrange);
        Click(form().nexts);
        QCOMPARE(int(form().CurrentStep), 4);
        goToPage(2);
        form().model.setText(QStringLiteral("Beam 575"));
        Command6_Click(form(), 1);  // pan16 takes offsets 2 and 3
        Command6_Click(form(), 6);  // CMY takes 4, 5 and 6
        form().table.RemoveItem(form().table.Rows() - 1);
        goToPage(3);
        QCOMPARE(form().dmxchannels.Caption(), QStringLiteral("5"));
    }

    // The box is emptied with Ctrl+A and Delete, `pasted` is pasted with `gesture` (null: the
    // clipboard holds nothing, as an X11 clipboard that nobody owns), then `typed` typed.
    void textReachesTheFileAsTyped_data() {
        QTest::addColumn<QString>("gesture");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QByteArray>("lines");  // the comment's lines ("; "), or the patch text's
        const auto add = [](const char* tag, const QString& pasted, const char* typed,
                            const QByteArray& lines) {
            QTest::newRow(tag) << "Ctrl+V" << pasted << typed << lines;
        };
        for (const char* gesture : {"Ctrl+V", "Shift+Insert", "middle click"}) {
            QTest::addRow("nothing to paste, %s, comment", gesture)
                << gesture << QString() << "x" << QByteArray("; x\r\n");
            QTest::addRow("nothing to paste, %s, patch text", gesture)
                << gesture << QString() << "" << QByteArray("TEXT\r\n\r\nEND");
        }
        add("lone CR costs the next character", "a\rbc", "", "; a\r\r\n; c\r\n");
        add("no-break space", QStringLiteral("x\u00A0y"), "", "; x\xA0y\r\n");
        add("Shift+Enter is a new line", "", "a\nb", "; a\r\r\n; b\r\n");
        add("pasted line feeds are line ends", "p\nq", "", "; p\r\r\n; q\r\n");
        add("patch text keeps CR and no-break space", QStringLiteral("P\u00A0Q\rR"), "",
            "\r\nTEXT\r\nP\xA0Q\rR\r\nEND\r\n");
        add("patch text with CR LF pairs", "\r\nA\r\n", "", "\r\nTEXT\r\n\r\nA\r\n\r\nEND\r\n");
        add("patch text cut to what the box takes", QString(32765, u'x') + "\nyz", "w",
            "\r\nTEXT\r\n" + QByteArray(32765, 'x') + "\r\n\r\nEND\r\n");
    }
    void textReachesTheFileAsTyped() {
        QFETCH(QString, gesture);
        QFETCH(QString, pasted);
        QFETCH(QString, typed);
        QFETCH(QByteArray, lines);
        const bool comment = lines.startsWith("; ");
        const QString name = comment ? "morecomment" : "patchdisplay";
        goToPage(3);
        clickOn(name, Qt::LeftButton);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        QClipboard* clipboard = QGuiApplication::clipboard();
        for (QClipboard::Mode mode : {QClipboard::Clipboard, QClipboard::Selection}) {
            if (mode == QClipboard::Selection && !clipboard->supportsSelection()) continue;
            auto* data = new QMimeData;
            if (!pasted.isNull()) data->setText(pasted);
            clipboard->setMimeData(data, mode);
        }
        if (gesture == u"Ctrl+V") press(Qt::Key_V, Qt::ControlModifier);
        if (gesture == u"Shift+Insert") press(Qt::Key_Insert, Qt::ShiftModifier);
        if (gesture == u"middle click") clickOn(name, Qt::MiddleButton);
        for (QChar c : typed)  // a line feed is Shift+Enter
            c == u'\n' ? press(Qt::Key_Return, Qt::ShiftModifier)
                       : QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
        QTemporaryDir dir;
        gui::seams::QueueSaveAnswer(dir.filePath(QStringLiteral("T.R20")));
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
        Click(form().finished);
        const QByteArray file = ReadBytes(dir.filePath(QStringLiteral("T.R20")));
        if (comment)  // nothing else in the comment
            QVERIFY2(file.startsWith(lines + "; \r\n; \r\n; file "), file.left(40).toHex(' '));
        else
            QVERIFY2(file.contains(lines), file.right(60).toHex(' '));
    }
};

RIGWRIGHT_TEST_CLASS(TestFinishPage)
#include "test_finish_page.moc"
