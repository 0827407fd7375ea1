// The form as a user meets it: controls by name, with their kind, caption, place and state.
#include <QTest>

#include "gui/testing.h"
#include "support/form_fixture.h"

using namespace gui::testing;

class TestCatalogue : public FormFixture {
    Q_OBJECT
  private slots:
    void controlsStandWhereTheyBelong_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QRect>("place");
        auto row = [](const char* name, const char* kind, const char* caption, int l, int t, int w,
                      int h) {
            QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(kind)
                                << QString::fromUtf8(caption) << QRect(l, t, w, h);
        };
        row("main", "form", "Tolvane - Rigwright", 0, 0, 9750, 7260);
        row("nexts", "button", "Next >", 8520, 6720, 1095, 375);
        row("stepf(0)", "frame", "Step 1 - general proprieties", 120, 120, 9495, 6375);
        row("table", "grid", "", 120, 1440, 9255, 4815);
        row("editframe", "frame", "Frame1", 360, 2520, 2175, 615);
        row("autoframe", "frame", "Split selected range into regular intervals:", 960, 840, 3615,
            1815);
    }
    void controlsStandWhereTheyBelong() {
        QFETCH(QString, name);
        QFETCH(QString, kind);
        QFETCH(QString, caption);
        QFETCH(QRect, place);
        QObject* control = find(name);
        QVERIFY2(control, qPrintable(name));
        QCOMPARE(KindOf(control), kind);
        if (!caption.isEmpty()) QCOMPARE(CaptionOf(control), caption);
        // Twips pass through whole pixels, so a place may be off by less than one pixel.
        const QRect at = PlaceOf(control);
        const int got[] = {at.x(), at.y(), at.width(), at.height()};
        const int want[] = {place.x(), place.y(), place.width(), place.height()};
        for (int i = 0; i < 4; ++i)
            QVERIFY2(
                qAbs(got[i] - want[i]) <= 15,
                qPrintable(QStringLiteral("%1: %2, not %3").arg(name).arg(got[i]).arg(want[i])));
    }

    // The row name is the control's name.
    void startStates_data() {
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<bool>("hidden");
        for (const char* name : {"Check2", "goonpalettes", "goonmacros"})
            QTest::newRow(name) << false << false;
        QTest::newRow("goonrange") << true << false;
        for (const char* name : {"editframe", "defaultsframe", "reditframe", "autoframe"})
            QTest::newRow(name) << true << true;
    }
    void startStates() {
        QFETCH(bool, enabled);
        QFETCH(bool, hidden);
        QObject* control = find(QString::fromUtf8(QTest::currentDataTag()));
        QVERIFY(control);
        QCOMPARE(EnabledOf(control), enabled);
        QCOMPARE(HiddenOf(control), hidden);
    }

    void gridHeadsAndStartRows() {
        QCOMPARE(form().table.Rows(), 2);
        QCOMPARE(form().table.TextMatrix(1, 0) + form().table.TextMatrix(1, 2), "10");
        QCOMPARE(form().range.TextMatrix(0, 3), QString(51, u' ') + QStringLiteral("label"));
        QCOMPARE(form().rangeslist.ListCount(), 0);
    }
};

RIGWRIGHT_TEST_CLASS(TestCatalogue)
#include "test_catalogue.moc"
