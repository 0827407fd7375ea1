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

    // Next, Previous, Finished, Cancel: which can be pressed, as "NPFC" with "-" for disabled.
    QString buttons() {
        MainForm& f = form();
        QString s = QStringLiteral("----");
        if (f.nexts.Enabled()) s[0] = u'N';
        if (f.previous.Enabled()) s[1] = u'P';
        if (f.finished.Enabled()) s[2] = u'F';
        if (f.cancel.Enabled()) s[3] = u'C';
        return s;
    }

  private slots:
    // After a page change the focus stands on the page's first input, or on the button that
    // leads on: never on a button of the page before, where a typed blank would press it.
    void buttonStatesPerPage_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("enabled");
        QTest::addColumn<QString>("focus");
        const char* states[] = {"N--C", "NP-C", "NP-C", "-PFC", "NP-C", "NP-C", "-P-C"};
        const char* focus[] = {"manifacturer", "degreespan", "table", "patchdisplay",
                               "nexts",        "nexts",      "range"};
        for (int page = 0; page < 7; ++page)
            QTest::addRow("%d", page) << page << states[page] << focus[page];
    }
    void buttonStatesPerPage() {
        QFETCH(int, page);
        QFETCH(QString, enabled);
        QFETCH(QString, focus);
        goToPage(page);
        QCOMPARE(int(form().CurrentStep), page);
        QCOMPARE(buttons(), enabled);
        QCOMPARE(gui::testing::FocusName(), focus);
        if (page < 6) {  // the same on the way back
            goToPage(page + 1);
            Click(form().previous);
            QCOMPARE(gui::testing::FocusName(), focus);
        }
        // Only the page on show is visible, at its place.
        for (int i = 0; i < 7; ++i) QCOMPARE(form().stepf[i].Visible(), i == page);
        QCOMPARE(form().stepf[page].Left(), 120);
        QCOMPARE(form().stepf[page].Top(), 120);
        // The finish page shows advice in its label; the others stay empty.
        if (page != 3) QCOMPARE(form().errormessage[page].Caption(), QString());
        if (page == 6) {  // Next pressed by code on the last page keeps the index
            nexts_Click(form());
            QCOMPARE(int(form().CurrentStep), 6);
            QVERIFY(form().stepf[6].Visible());
        }
    }

    // The box swaps Next and Finished when the user ticks or clears it, but an arrival at
    // the finish page sets the buttons whatever the box holds.
    void continuationBox() {
        goToPage(3);
        Click(form().goonrange);
        QCOMPARE(form().goonrange.Value(), 1);
        QCOMPARE(buttons(), QStringLiteral("NP-C"));
        Click(form().goonrange);
        QCOMPARE(buttons(), QStringLiteral("-PFC"));
        Click(form().goonrange);
        Click(form().nexts);
        QCOMPARE(int(form().CurrentStep), 4);
        Click(form().previous);
        QCOMPARE(form().goonrange.Value(), 1);
        QCOMPARE(buttons(), QStringLiteral("-PFC"));
        Click(form().goonrange);  // clears the box, the buttons stay
        QCOMPARE(buttons(), QStringLiteral("-PFC"));
        Click(form().goonrange);  // ticks it, the buttons swap
        QCOMPARE(buttons(), QStringLiteral("NP-C"));
    }

    void quitQuestion_data() {
        QTest::addColumn<bool>("closeBox");
        QTest::newRow("Cancel") << false;
        QTest::newRow("close box") << true;
    }
    void quitQuestion() {
        QFETCH(bool, closeBox);
        const auto ask = [&](int answer) {
            gui::seams::QueueMsgBoxAnswer(answer);
            closeBox ? gui::testing::CloseBox(form().main) : Click(form().cancel);
        };
        Click(form().manifacturer);
        gui::testing::TypeKeys(QStringLiteral("Lumenfab"));
        goToPage(2);
        ask(gui::kAnswerNo);
        QCOMPARE(gui::seams::MsgBoxCalls().size(), size_t(1));
        const auto& call = gui::seams::MsgBoxCalls().front();
        QCOMPARE(call.text,
                 QStringLiteral("Are you sure you want to quit? Any data collected will be lost!"));
        QCOMPARE(call.title, QStringLiteral("Tolvane - Rigwright"));
        QCOMPARE(call.style, 308);
        // No leaves everything as it was.
        QVERIFY(!gui::seams::EndRequested());
        QVERIFY(gui::testing::ShownOnScreen(form().main));
        QCOMPARE(int(form().CurrentStep), 2);
        QCOMPARE(form().manifacturer.Text(), QStringLiteral("Lumenfab"));
        QCOMPARE(buttons(), QStringLiteral("NP-C"));
        ask(gui::kAnswerYes);
        QVERIFY(gui::seams::EndRequested());
    }
};

RIGWRIGHT_TEST_CLASS(TestEngine)
#include "test_engine.moc"
