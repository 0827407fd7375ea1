// The fixture pages: degrees that follow the fixture type, the composed comment, the
// length limits of the general fields.
#include <QTest>

#include "gui/seams.h"
#include "gui/testing.h"
#include "support/form_fixture.h"

using gui::testing::Click;
using gui::testing::TypeText;

class TestPages : public FormFixture {
    Q_OBJECT

    gui::OptionButton* option(const QString& name) {
        if (name == u"movinghead") return &form().movinghead;
        if (name == u"mirror") return &form().mirror;
        if (name == u"otherkind") return &form().otherkind;
        return nullptr;
    }

  private slots:
    void degreesFollowTheFixtureType_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("pan");
        QTest::addColumn<QString>("tilt");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("none keeps the form's texts") << ""
                                                     << "540"
                                                     << "270" << true;
        QTest::newRow("moving head") << "movinghead"
                                     << "540"
                                     << "270" << true;
        QTest::newRow("mirror") << "mirror"
                                << "180"
                                << "90" << true;
        QTest::newRow("other kind") << "otherkind"
                                    << "0"
                                    << "0" << false;
    }
    void degreesFollowTheFixtureType() {
        QFETCH(QString, type);
        QFETCH(QString, pan);
        QFETCH(QString, tilt);
        QFETCH(bool, enabled);
        if (auto* o = option(type)) Click(*o);
        Click(form().nexts);
        QCOMPARE(form().degreespan.Text(), pan);
        QCOMPARE(form().degreestilt.Text(), tilt);
        QCOMPARE(form().degreespan.Enabled(), enabled);
        QCOMPARE(form().degreestilt.Enabled(), enabled);
    }

    void typedDegreesAfterAPageChange_data() {
        QTest::addColumn<bool>("movingHead");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::newRow("a type puts its default back") << true << "360"
                                                      << "540";
        QTest::newRow("without a type the text stays") << false << "abc"
                                                       << "abc";
    }
    void typedDegreesAfterAPageChange() {
        QFETCH(bool, movingHead);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        if (movingHead) Click(form().movinghead);
        Click(form().nexts);
        form().degreespan.setText(QString());
        TypeText(form().degreespan, typed);
        Click(form().nexts);
        Click(form().previous);
        QCOMPARE(form().degreespan.Text(), shown);
    }

    void aChosenTypeActsOnlyAtThePageChange() {
        Click(form().otherkind);
        Click(form().nexts);
        QVERIFY(!form().degreespan.Enabled());
        Click(form().previous);
        Click(form().mirror);
        QCOMPARE(form().degreespan.Text(),
                 QStringLiteral("0"));  // the option alone changes nothing
        Click(form().nexts);
        QVERIFY(form().degreespan.Enabled());
        QCOMPARE(form().degreespan.Text(), QStringLiteral("180"));
        QCOMPARE(form().degreestilt.Text(), QStringLiteral("90"));
    }

    void commentIsComposedOnArrival_data() {
        QTest::addColumn<QString>("manufacturer");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("comment");
        QTest::newRow("both") << "Lumenfab"
                              << "Beam 575"
                              << "03-07-2026 21:05:09 Lumenfab Beam 575- Created with Tolvane - "
                                 "Rigwright";
        QTest::newRow("neither") << ""
                                 << ""
                                 << "03-07-2026 21:05:09  - Created with Tolvane - Rigwright";
    }
    void commentIsComposedOnArrival() {
        QFETCH(QString, manufacturer);
        QFETCH(QString, model);
        QFETCH(QString, comment);
        gui::seams::FixClock(QDateTime(QDate(2026, 3, 7), QTime(21, 5, 9)));
        TypeText(form().manifacturer, manufacturer);
        TypeText(form().model, model);
        goToPage(3);
        QCOMPARE(form().morecomment.Text(), comment);
    }

    void commentIsComposedAnewOnReturn() {
        gui::seams::FixClock(QDateTime(QDate(2026, 3, 7), QTime(21, 5, 9)));
        goToPage(3);
        TypeText(form().morecomment, QStringLiteral(" my own words"));
        Click(form().goonrange);
        gui::seams::FixClock(QDateTime(QDate(2026, 12, 31), QTime(0, 0, 1)));
        Click(form().nexts);
        Click(form().previous);
        QCOMPARE(form().morecomment.Text(),
                 QStringLiteral("12-31-2026 00:00:01  - Created with Tolvane - Rigwright"));
    }

    void patchTextSurvivesPageChanges() {
        goToPage(3);
        const QString start = form().patchdisplay.Text();
        QCOMPARE(start, QStringLiteral("\r\n\r\nINPUT fixture DMX No.\r\nPress a Fixture\r\n"
                                       "Select or Swop button to \r\nmake the patch.\r\n"));
        form().patchdisplay.setText(QStringLiteral("one\r\ntwo"));
        Click(form().previous);
        Click(form().nexts);
        QCOMPARE(form().patchdisplay.Text(), QStringLiteral("one\r\ntwo"));
    }

    void lengthLimits_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("limit");
        QTest::newRow("manifacturer") << "manifacturer" << 30;
        QTest::newRow("model") << "model" << 30;
        QTest::newRow("nameondesk") << "nameondesk" << 11;
    }
    void lengthLimits() {
        QFETCH(QString, name);
        QFETCH(int, limit);
        gui::TextBox& box = name == u"manifacturer" ? form().manifacturer
                            : name == u"model"      ? form().model
                                                    : form().nameondesk;
        TypeText(box, QString(limit + 5, u'x'));
        QCOMPARE(box.Text().size(), limit);
    }
};

RIGWRIGHT_TEST_CLASS(TestPages)
#include "test_pages.moc"
