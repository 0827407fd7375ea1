// The form as a user walks it: buttons, focus, quitting, degrees, comment, length limits,
// hidden editors, pictures sharp on any screen, and what a screen reader reads of it.
#include <QAccessible>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "support/form_fixture.h"
#include "support/testing.h"
#include "wizard/engine.h"

using namespace gui::testing;

class TestForm : public FormFixture {
    Q_OBJECT

    // Next, Previous, Finished, Cancel: which can be pressed, as "NPFC" with "-" for disabled.
    QString buttons() {
        MainForm& f = form();
        QString s;
        for (gui::Button* b : {&f.nexts, &f.previous, &f.finished, &f.cancel})
            s += b->Enabled() ? b->Name().front().toUpper() : u'-';
        return s;
    }

    // What the user does on the page on show before a screen reader looks.
    void act(const QString& what) {
        MainForm& f = form();
        if (what == u"open two cells") {
            ClickCell(f.table, 1, 3, 2);
            ClickCell(f.table, 1, 2, 2);  // holds "0"
        } else if (what == u"auto split") {
            ClickCell(f.range, 1, 1);
            Click(f.Command2);
        }
    }

  private slots:
    // After a page change the focus stands on the page's first input, or on the button that
    // leads on: never on a button of the page before, where a typed blank would press it.
    void buttonsAndFocusPerPage_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("enabled");
        QTest::addColumn<QString>("focus");
        const QStringList rows = {"N--C manifacturer", "NP-C degreespan", "NP-C table",
                                  "-PFC patchdisplay", "NP-C nexts",      "NP-C nexts",
                                  "-P-C range"};
        for (int page = 0; page < 7; ++page)
            QTest::addRow("%d", page) << page << rows[page].left(4) << rows[page].mid(5);
    }
    void buttonsAndFocusPerPage() {
        QFETCH(int, page);
        QFETCH(QString, enabled);
        QFETCH(QString, focus);
        goToPage(page);
        QCOMPARE(buttons(), enabled);
        QCOMPARE(FocusName(), focus);
        if (page < 6) {  // on the way back "< Previous" leads on, whatever the box holds
            goToPage(page + 1);
            Click(form().previous);
            QCOMPARE(buttons(), enabled);
            QCOMPARE(FocusName(), focus == u"nexts" ? QStringLiteral("previous") : focus);
        } else {  // Next pressed by code on the last page keeps the index
            nexts_Click(form());
        }
        QCOMPARE(int(form().CurrentStep), page);
        for (int i = 0; i < 7; ++i) QCOMPARE(form().stepf[i].Visible(), i == page);
    }

    // Ticking the box leads on to the next page; clearing it offers Finished again.
    void continuationBox() {
        goToPage(3);
        Click(form().goonrange);
        QCOMPARE(buttons(), "NP-C");
        Click(form().goonrange);
        QCOMPARE(buttons(), "-PFC");
    }

    // Cancel and the close box ask before quitting; No leaves everything as it was.
    void quitQuestion() {
        Click(form().manifacturer);
        TypeKeys(QStringLiteral("Lumenfab"));
        goToPage(2);
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::No);
        Click(form().cancel);
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::No);
        CloseBox(form().main);
        QCOMPARE(gui::seams::MsgBoxCalls().size(), size_t(2));
        const auto& call = gui::seams::MsgBoxCalls().back();
        QCOMPARE(call.text, "Are you sure you want to quit? Any data collected will be lost!");
        QCOMPARE(call.title, "Tolvane - Rigwright");
        QCOMPARE(call.style, (gui::MsgStyle{.buttons = gui::MsgButton::Yes | gui::MsgButton::No,
                                            .icon = gui::MsgIcon::Warning,
                                            .defaultButton = gui::MsgButton::No}));
        QVERIFY(!gui::seams::EndRequested());
        QVERIFY(ShownOnScreen(form().main));
        QCOMPARE(form().manifacturer.Text(), "Lumenfab");
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Yes);
        CloseBox(form().main);
        QVERIFY(gui::seams::EndRequested());
    }

    // The type is chosen on the first page; with `typed`, the pan box is then typed over
    // and the page left and reached again.
    void degreesFollowTheFixtureType_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("degrees");  // pan/tilt
        const auto add = [](const char* tag, const char* type, const char* typed,
                            const char* degrees) {
            QTest::newRow(tag) << type << typed << degrees;
        };
        add("none keeps the form's texts", "", "", "540/270");
        add("mirror", "mirror", "", "180/90");
        add("other kind", "otherkind", "", "0/0");
        add("a type puts its default back", "movinghead", "360", "540/270");
        add("without a type the text stays", "", "abc", "abc/270");
    }
    void degreesFollowTheFixtureType() {
        QFETCH(QString, type);
        QFETCH(QString, typed);
        QFETCH(QString, degrees);
        for (gui::OptionButton* o : {&form().movinghead, &form().mirror, &form().otherkind})
            if (o->Name() == type) Click(*o);
        Click(form().nexts);
        if (!typed.isEmpty()) {  // the page opens with the focus in the pan box
            PressKey(Qt::Key_A, Qt::ControlModifier);
            TypeKeys(typed);
            Click(form().nexts);
            Click(form().previous);
        }
        QCOMPARE(form().degreespan.Text() + u'/' + form().degreestilt.Text(), degrees);
        QCOMPARE(form().degreespan.Enabled(), type != u"otherkind");
        QCOMPARE(form().degreestilt.Enabled(), type != u"otherkind");
    }

    // Each arrival composes the comment anew, while the patch text keeps what the user wrote.
    void commentComposedOnArrival() {
        gui::seams::FixClock(QDateTime(QDate(2026, 3, 7), QTime(21, 5, 9)));
        form().manifacturer.setText(QStringLiteral("Lumenfab"));
        form().model.setText(QStringLiteral("Beam 575"));
        goToPage(3);
        QCOMPARE(form().morecomment.Text(),
                 "03-07-2026 21:05:09 Lumenfab Beam 575- Created with Tolvane - Rigwright");
        form().patchdisplay.setText(QStringLiteral("one\r\ntwo"));
        form().manifacturer.setText(QString());
        form().model.setText(QString());
        Click(form().goonrange);
        gui::seams::FixClock(QDateTime(QDate(2026, 12, 31), QTime(0, 0, 1)));
        Click(form().nexts);
        Click(form().previous);
        QCOMPARE(form().morecomment.Text(),
                 "12-31-2026 00:00:01  - Created with Tolvane - Rigwright");
        QCOMPARE(form().patchdisplay.Text(), "one\r\ntwo");
    }

    void lengthLimits() {
        MainForm& f = form();
        for (const auto& [box, limit] :
             {std::pair{&f.manifacturer, 30}, {&f.model, 30}, {&f.nameondesk, 11}}) {
            Click(*box);
            TypeKeys(QString(limit + 5, u'x'));
            QCOMPARE(box->Text().size(), limit);
        }
    }

    void editorsHiddenAtStart() {
        for (const char* name : {"editframe", "defaultsframe", "reditframe", "autoframe"})
            QVERIFY2(HiddenOf(find(name)), name);
    }

    // Each picture keeps its size at the ordinary pixel ratio and has the device pixels a
    // denser screen asks for, drawn anew: at ratio 2 it is not its ratio 1 pixels doubled.
    void picturesDrawnForEachPixelRatio_data() {
        QTest::addColumn<int>("size");  // in pixels at ratio 1
        for (const QString& name :
             QStringLiteral("add adddef delete Command2 rmerge Command3 Command4 Command5 "
                            "Command6(0) Command6(4) Command6(9) Command6(12) Command6(14) "
                            "Command6(21) Command6(24) Image1(0) Image1(1)")
                 .split(u' '))
            QTest::newRow(qPrintable(name)) << (name.startsWith(u"Image1") ? 32 : 16);
    }
    void picturesDrawnForEachPixelRatio() {
        QFETCH(int, size);
        QObject* control = find(QTest::currentDataTag());
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage picture = PictureOf(control, ratio);
            QCOMPARE(picture.devicePixelRatio(), ratio);
            QCOMPARE(picture.size(), QSize(qRound(size * ratio), qRound(size * ratio)));
        }
        const QImage single = PictureOf(control, 1.0);
        QImage fine = PictureOf(control, 2.0);
        fine.setDevicePixelRatio(1.0);
        QVERIFY(fine.convertToFormat(single.format()) != single.scaled(single.size() * 2));
    }

    void windowIconInEveryThemeSize() {
        // The icon follows the window's first paint.
        QTRY_VERIFY(!IconSizesOf(form().main).isEmpty());
        const QList<QSize> sizes = IconSizesOf(form().main);
        for (const int side : {16, 22, 24, 32, 48, 64, 128, 256})
            QVERIFY2(sizes.contains(QSize(side, side)), qPrintable(QString::number(side)));
    }

    // The row names the control; `act` is done on `page`.
    void screenReaderReadsWhatTheControlShows_data() {
        QTest::addColumn<QString>("act");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("role");
        const auto add = [](const char* control, const char* act, int page, const char* name,
                            QAccessible::Role role) {
            QTest::newRow(control) << act << page << name << int(role);
        };
        using A = QAccessible;
        add("errormessage(3)", "", 3, "Manifacturer cannot be empty!", A::StaticText);
        add("errormessage(0)", "", 0, "", A::StaticText);  // an empty label is no page title
        add("manifacturer", "", 0, "Manufacturer", A::EditableText);  // inputs by their label
        add("morecomment", "", 3,
            "Add more comments that will be inserted in the file, if you want ", A::EditableText);
        add("editcombo", "open two cells", 2, "dmx2", A::ComboBox);  // cell editors by column
        add("editframe", "open two cells", 2, "dmx2", A::Grouping);
        add("redittext", "", 6, "from", A::EditableText);  // never opened: not "Frame1"
        add("reditframe", "", 6, "from", A::Grouping);
        add("autolabel", "auto split", 6, "range # from 0 to 255 (width: 256)", A::StaticText);
        add("Line1", "", 2, "", A::Separator);
        add("Image1(0)", "", 6, "", A::Graphic);
        add("adddef", "", 2, "add default", A::Button);
        add("degreespan", "", 0, "PAN DEGREES", A::EditableText);  // in a frame, on a hidden page
    }
    void screenReaderReadsWhatTheControlShows() {
        QFETCH(QString, act);
        QFETCH(int, page);
        QFETCH(QString, name);
        QFETCH(int, role);
        goToPage(page);
        this->act(act);
        const QString control = QTest::currentDataTag();
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(find(control));
        QVERIFY(reader);
        QCOMPARE(reader->text(QAccessible::Name), name);
        QCOMPARE(int(reader->role()), role);
        // Only a control on a page or in an editor not on show is invisible to the reader.
        QCOMPARE(bool(reader->state().invisible),
                 control == u"degreespan" || control.startsWith(u"redit"));
    }
};

RIGWRIGHT_TEST_CLASS(TestForm)
#include "test_form.moc"
