#include "support/form_fixture.h"

#include <QTest>

#include "gui/seams.h"
#include "gui/testing.h"
#include "wizard/engine.h"
#include "wizard/start.h"

void FormFixture::init() {
    gui::seams::Reset();
    form_ = std::make_unique<MainForm>();
    StartWizard(*form_);
    QVERIFY(gui::testing::WaitForShown(form_->main));
}

void FormFixture::cleanup() {
    const int pending = gui::seams::PendingAnswers();
    const int unanswered = gui::seams::UnansweredCalls();
    form_.reset();
    gui::seams::Reset();
    QCOMPARE(pending, 0);
    QCOMPARE(unanswered, 0);
}

QObject* FormFixture::find(const QString& name) {
    return gui::testing::Find(form_->main, name);
}

void FormFixture::goToPage(int index) {
    while (form_->CurrentStep < index) {
        if (!form_->nexts.Enabled()) form_->goonrange.setValue(1), goonrange_Click(*form_);
        gui::testing::Click(form_->nexts);
    }
    while (form_->CurrentStep > index) gui::testing::Click(form_->previous);
}

QString FormFixture::dataPath(const QString& file) {
    return qEnvironmentVariable("RIGWRIGHT_TEST_DATA") + u'/' + file;
}
