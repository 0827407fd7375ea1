// The page engine: which buttons a user can press on each page, the continuation box,
// and the quit question from Cancel and from the close box.
#include <QTest>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "support/form_fixture.h"
#include "wizard/engine.h"

using gui::testing::Click;

class TestEngine : public FormFixture {
    Q_OBJECT

    struct Buttons {
        bool next, previous, finished, cancel;
    };
    Buttons buttons() {
        return {form().nexts.Enabled(), form().previous.Enabled(), form().finished.Enabled(),
                form().cancel.Enabled()};
    }

  private slots:
    void buttonStatesPerPage_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<bool>("next");
        QTest::addColumn<bool>("previous");
        QTest::addColumn<bool>("finished");
        QTest::newRow("0") << 0 << true << false << false;
        QTest::newRow("1") << 1 << true << true << false;
        QTest::newRow("2") << 2 << true << true << false;
        QTest::newRow("3") << 3 << false << true << true;
        QTest::newRow("4") << 4 << true << true << false;
        QTest::newRow("5") << 5 << true << true << false;
        QTest::newRow("6, no page after it") << 6 << false << true << false;
    }
    void buttonStatesPerPage() {
        QFETCH(int, page);
        QFETCH(bool, next);
        QFETCH(bool, previous);
        QFETCH(bool, finished);
        goToPage(page);
        QCOMPARE(int(form().CurrentStep), page);
        const Buttons b = buttons();
        QCOMPARE(b.next, next);
        QCOMPARE(b.previous, previous);
        QCOMPARE(b.finished, finished);
        QVERIFY(b.cancel);
        // Only the page on show is visible, at its place.
        for (int i = 0; i < 7; ++i) QCOMPARE(form().stepf[i].Visible(), i == page);
        QCOMPARE(form().stepf[page].Left(), 120);
        QCOMPARE(form().stepf[page].Top(), 120);
        // The finish page shows advice in its label; the others stay empty.
        if (page != 3) QCOMPARE(form().errormessage[page].Caption(), QString());
    }

    void nextStopsAtTheFinishPage() {
        for (int i = 0; i < 6; ++i) Click(form().nexts);
        QCOMPARE(int(form().CurrentStep), 3);
    }

    void nextOnLastPageKeepsTheIndex() {
        goToPage(6);
        nexts_Click(form());
        QCOMPARE(int(form().CurrentStep), 6);
        QVERIFY(form().stepf[6].Visible());
    }

    void continuationBoxSwapsTheButtons() {
        goToPage(3);
        Click(form().goonrange);
        QCOMPARE(form().goonrange.Value(), 1);
        QVERIFY(form().nexts.Enabled());
        QVERIFY(!form().finished.Enabled());
        Click(form().goonrange);
        QVERIFY(!form().nexts.Enabled());
        QVERIFY(form().finished.Enabled());
    }

    void arrivalAtFinishPageIgnoresTheTickedBox() {
        goToPage(3);
        Click(form().goonrange);
        Click(form().nexts);
        QCOMPARE(int(form().CurrentStep), 4);
        Click(form().previous);
        QCOMPARE(form().goonrange.Value(), 1);
        QVERIFY(form().finished.Enabled());
        QVERIFY(!form().nexts.Enabled());
        Click(form().goonrange);  // clears the box, the buttons stay
        QVERIFY(form().finished.Enabled());
        QVERIFY(!form().nexts.Enabled());
        Click(form().goonrange);  // ticks it, the buttons swap
        QVERIFY(!form().finished.Enabled());
        QVERIFY(form().nexts.Enabled());
    }

    void disabledBoxesRefuseTheUser() {
        goToPage(3);
        Click(form().goonpalettes);
        Click(form().goonmacros);
        QCOMPARE(form().goonpalettes.Value(), 0);
        QCOMPARE(form().goonmacros.Value(), 0);
        goToPage(1);
        Click(form().Check2);
        Click(form().Check3);
        QCOMPARE(form().Check2.Value(), 1);
        QCOMPARE(form().Check3.Value(), 1);
    }

    void quitQuestion_data() {
        QTest::addColumn<bool>("closeBox");
        QTest::newRow("Cancel") << false;
        QTest::newRow("close box") << true;
    }
    void quitQuestion() {
        QFETCH(bool, closeBox);
        goToPage(2);
        gui::testing::TypeText(form().manifacturer, QStringLiteral("Lumenfab"));
        const Buttons before = buttons();
        gui::seams::QueueMsgBoxAnswer(gui::kAnswerNo);
        if (closeBox)
            gui::testing::CloseBox(form().main);
        else
            Click(form().cancel);
        QCOMPARE(gui::seams::MsgBoxCalls().size(), size_t(1));
        const auto& call = gui::seams::MsgBoxCalls().front();
        QCOMPARE(call.text,
                 QStringLiteral("Are you sure you want to quit? Any data collected will be lost!"));
        QCOMPARE(call.title, QStringLiteral("Tolvane - Rigwright"));
        QCOMPARE(call.style, 308);
        QVERIFY(!gui::seams::EndRequested());
        QVERIFY(gui::testing::ShownOnScreen(form().main));
        QCOMPARE(int(form().CurrentStep), 2);
        QCOMPARE(form().manifacturer.Text(), QStringLiteral("Lumenfab"));
        const Buttons after = buttons();
        QCOMPARE(after.next, before.next);
        QCOMPARE(after.previous, before.previous);
        QCOMPARE(after.finished, before.finished);

        gui::seams::QueueMsgBoxAnswer(gui::kAnswerYes);
        if (closeBox)
            gui::testing::CloseBox(form().main);
        else
            Click(form().cancel);
        QVERIFY(gui::seams::EndRequested());
    }
};

RIGWRIGHT_TEST_CLASS(TestEngine)
#include "test_engine.moc"
