// The fixture pages: degrees that follow the fixture type, the composed comment, the
// length limits of the general fields.
#include <QTest>

#include "gui/seams.h"
#include "gui/testing.h"
#include "support/form_fixture.h"

using gui::testing::Click;
using gui::testing::PressKey;
using gui::testing::TypeKeys;

class TestPages : public FormFixture {
    Q_OBJECT

    gui::OptionButton* option(const QString& name) {
        if (name == u"movinghead") return &form().movinghead;
        if (name == u"mirror") return &form().mirror;
        if (name == u"otherkind") return &form().otherkind;
        return nullptr;
    }

  private slots:
    // The type is chosen on the first page; with `typed`, the pan box is then typed over
    // and the page left and reached again.
    void degreesFollowTheFixtureType_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("pan");
        QTest::addColumn<QString>("tilt");
        QTest::addColumn<bool>("enabled");
        const auto add = [](const char* name, const char* type, const char* typed, const char* pan,
                            const char* tilt, bool enabled) {
            QTest::newRow(name) << type << (typed ? typed : QString()) << pan << tilt << enabled;
        };
        add("none keeps the form's texts", "", nullptr, "540", "270", true);
        add("moving head", "movinghead", nullptr, "540", "270", true);
        add("mirror", "mirror", nullptr, "180", "90", true);
        add("other kind", "otherkind", nullptr, "0", "0", false);
        add("a type puts its default back", "movinghead", "360", "540", "270", true);
        add("without a type the text stays", "", "abc", "abc", "270", true);
    }
    void degreesFollowTheFixtureType() {
        QFETCH(QString, type);
        QFETCH(QString, typed);
        QFETCH(QString, pan);
        QFETCH(QString, tilt);
        QFETCH(bool, enabled);
        if (auto* o = option(type)) Click(*o);
        Click(form().nexts);
        if (!typed.isNull()) {
            // The page opens with the focus in the pan box.
            PressKey(Qt::Key_A, Qt::ControlModifier);
            TypeKeys(typed);
            Click(form().nexts);
            Click(form().previous);
        }
        QCOMPARE(form().degreespan.Text(), pan);
        QCOMPARE(form().degreestilt.Text(), tilt);
        QCOMPARE(form().degreespan.Enabled(), enabled);
        QCOMPARE(form().degreestilt.Enabled(), enabled);
    }

    void commentIsComposedOnEachArrival() {
        gui::seams::FixClock(QDateTime(QDate(2026, 3, 7), QTime(21, 5, 9)));
        Click(form().manifacturer);
        TypeKeys(QStringLiteral("Lumenfab"));
        Click(form().model);
        TypeKeys(QStringLiteral("Beam 575"));
        goToPage(3);
        QCOMPARE(form().morecomment.Text(),
                 QStringLiteral("03-07-2026 21:05:09 Lumenfab Beam 575- Created with Tolvane - "
                                "Rigwright"));
        // Coming back composes it anew: the user's own words and the old time are gone.
        Click(form().morecomment);
        PressKey(Qt::Key_End, Qt::ControlModifier);
        TypeKeys(QStringLiteral(" my own words"));
        form().manifacturer.setText(QString());
        form().model.setText(QString());
        Click(form().goonrange);
        gui::seams::FixClock(QDateTime(QDate(2026, 12, 31), QTime(0, 0, 1)));
        Click(form().nexts);
        Click(form().previous);
        QCOMPARE(form().morecomment.Text(),
                 QStringLiteral("12-31-2026 00:00:01  - Created with Tolvane - Rigwright"));
    }

    void patchTextSurvivesPageChanges() {
        goToPage(3);
        QCOMPARE(form().patchdisplay.Text(),
                 QStringLiteral("\r\n\r\nINPUT fixture DMX No.\r\nPress a Fixture\r\n"
                                "Select or Swop button to \r\nmake the patch.\r\n"));
        form().patchdisplay.setText(QStringLiteral("one\r\ntwo"));
        Click(form().previous);
        Click(form().nexts);
        QCOMPARE(form().patchdisplay.Text(), QStringLiteral("one\r\ntwo"));
    }

    void lengthLimits() {
        MainForm& f = form();
        const std::pair<gui::TextBox*, int> boxes[] = {
            {&f.manifacturer, 30}, {&f.model, 30}, {&f.nameondesk, 11}};
        for (const auto& [box, limit] : boxes) {
            Click(*box);
            TypeKeys(QString(limit + 5, u'x'));
            QCOMPARE(box->Text().size(), limit);
        }
    }
};

RIGWRIGHT_TEST_CLASS(TestPages)
#include "test_pages.moc"
