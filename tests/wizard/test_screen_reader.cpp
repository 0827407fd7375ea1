// What a screen reader reads of the form: each control's name, role and whether it shows,
// as an assistive technology gets them, after the user has done what the row says.
#include <QAccessible>
#include <QTest>

#include "gui/testing.h"
#include "support/form_fixture.h"

using namespace gui::testing;

class TestScreenReader : public FormFixture {
    Q_OBJECT

    void act(const QString& what) {
        MainForm& f = form();
        if (what == u"CMY") {
            Click(f.adddef);
            Click(f.Command6[6]);
        } else if (what == u"open two cells") {
            DoubleClickCell(f.table, 1, 3);
            DoubleClickCell(f.table, 1, 2);  // holds "0"
        } else if (what == u"open a range") {
            DoubleClickCell(f.range, 1, 1);
        } else if (what == u"auto split") {
            ClickCell(f.range, 1, 1);
            Click(f.Command2);
        }
    }

  private slots:
    // `page`: where the user goes first, after `act` on page 2 or 6 where it applies.
    void readsWhatTheControlShows_data() {
        QTest::addColumn<QString>("act");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("role");
        QTest::addColumn<bool>("invisible");
        const auto add = [](const char* tag, const char* act, int page, const char* control,
                            const char* name, QAccessible::Role role, bool invisible = false) {
            QTest::newRow(tag) << act << page << control << name << int(role) << invisible;
        };
        add("advice", "", 3, "errormessage(3)", "Manifacturer cannot be empty!",
            QAccessible::StaticText);
        add("channel count", "CMY", 3, "dmxchannels", "3", QAccessible::StaticText);
        add("input by its label", "", 0, "manifacturer", "Manufacturer", QAccessible::EditableText);
        add("input by its label in a frame", "", 1, "degreestilt", "TILT DEGREES",
            QAccessible::EditableText);
        add("multi-line box by its label", "", 3, "morecomment",
            "Add more comments that will be inserted in the file, if you want ",
            QAccessible::EditableText);
        add("cell editor tells its column", "open two cells", 2, "editcombo", "dmx2",
            QAccessible::ComboBox);
        add("cell editor's frame", "open two cells", 2, "editframe", "dmx2", QAccessible::Grouping);
        add("empty advice", "", 0, "errormessage(0)", "", QAccessible::StaticText);
        add("range editor tells its column", "open a range", 6, "redittext", " from ",
            QAccessible::EditableText);
        add("split caption", "auto split", 6, "autolabel", "range # from 0 to 255 (width: 256)",
            QAccessible::StaticText);
        add("line is no frame", "", 2, "Line1", "", QAccessible::Separator);
        add("arrow picture", "", 6, "Image1(0)", "", QAccessible::Graphic);
        add("picture button", "", 2, "adddef", "add default", QAccessible::Button);
        add("control of a hidden page", "", 0, "degreespan", "PAN DEGREES",
            QAccessible::EditableText, true);
    }
    void readsWhatTheControlShows() {
        QFETCH(QString, act);
        QFETCH(int, page);
        QFETCH(QString, control);
        QFETCH(QString, name);
        QFETCH(int, role);
        QFETCH(bool, invisible);
        const bool onRanges = act == u"open a range" || act == u"auto split";
        goToPage(onRanges ? 6 : 2);
        this->act(act);
        goToPage(page);
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(find(control));
        QVERIFY(reader);
        QCOMPARE(reader->text(QAccessible::Name), name);
        QCOMPARE(int(reader->role()), role);
        QCOMPARE(bool(reader->state().invisible), invisible);
    }
};

RIGWRIGHT_TEST_CLASS(TestScreenReader)
#include "test_screen_reader.moc"
