#include <QTest>

#include "support/form_fixture.h"

class TestEngine : public FormFixture {
    Q_OBJECT
  private slots:
    void opensOnFirstPage() { QCOMPARE(form().CurrentStep, std::int16_t(0)); }
};

RIGWRIGHT_TEST_MAIN(TestEngine)
#include "test_engine.moc"
