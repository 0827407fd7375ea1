#include <QTest>
#include <cmath>

#include "common/number.h"

class TestNumber : public QObject {
    Q_OBJECT
  private slots:
    void leadingNumber_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("plain") << "128" << 128.0;
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("letters") << "abc" << 0.0;
        QTest::newRow("blanks before") << "   42" << 42.0;
        QTest::newRow("stops at letter") << "12x" << 12.0;
        QTest::newRow("sign") << "-1.5" << -1.5;
        QTest::newRow("plus sign") << "+7" << 7.0;
        QTest::newRow("fraction") << "3.25" << 3.25;
        QTest::newRow("leading point") << ".5" << 0.5;
        QTest::newRow("trailing point") << "5." << 5.0;
        QTest::newRow("exponent") << "1e2" << 100.0;
        QTest::newRow("exponent sign") << "25E-1" << 2.5;
        QTest::newRow("exponent cut") << "3e" << 3.0;
        QTest::newRow("exponent letter") << "3ex" << 3.0;
        QTest::newRow("lone sign") << "-" << 0.0;
        QTest::newRow("lone point") << "." << 0.0;
        QTest::newRow("second point") << "1.2.3" << 1.2;
        QTest::newRow("blank inside") << "1 2" << 1.0;
        QTest::newRow("short form") << "61> B (right)" << 61.0;
    }
    void leadingNumber() {
        QFETCH(QString, text);
        QFETCH(double, value);
        QCOMPARE(common::LeadingNumber(text), value);
    }

    void wholeNumber_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isNumber");
        QTest::addColumn<double>("value");
        QTest::newRow("zero") << "0" << true << 0.0;
        QTest::newRow("blanks around") << " 15 " << true << 15.0;
        QTest::newRow("empty") << "" << false << 0.0;
        QTest::newRow("blanks only") << "   " << false << 0.0;
        QTest::newRow("trailing letter") << "15x" << false << 0.0;
        QTest::newRow("fraction") << "2.5" << true << 2.5;
        QTest::newRow("exponent") << "1e1" << true << 10.0;
    }
    void wholeNumber() {
        QFETCH(QString, text);
        QFETCH(bool, isNumber);
        QFETCH(double, value);
        const auto result = common::WholeNumber(text);
        QCOMPARE(result.has_value(), isNumber);
        if (isNumber) QCOMPARE(*result, value);
    }

    void roundsHalfToEven_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("rounded");
        QTest::newRow("3.5") << 3.5 << 4.0;
        QTest::newRow("2.5") << 2.5 << 2.0;
        QTest::newRow("-0.4") << -0.4 << 0.0;
        QTest::newRow("-0.5") << -0.5 << 0.0;
        QTest::newRow("-1.5") << -1.5 << -2.0;
        QTest::newRow("0.6") << 0.6 << 1.0;
        QTest::newRow("511.5") << 511.5 << 512.0;
    }
    void roundsHalfToEven() {
        QFETCH(double, value);
        QFETCH(double, rounded);
        QCOMPARE(common::RoundHalfEven(value), rounded);
        QVERIFY(!std::signbit(common::RoundHalfEven(value)) || rounded < 0);
    }

    void sixteenBits_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("fits");
        QTest::addColumn<int>("value");
        QTest::newRow("top") << "32767" << true << 32767;
        QTest::newRow("rounds over the top") << "32767.5" << false << 0;
        QTest::newRow("bottom") << "-32768" << true << -32768;
        QTest::newRow("below") << "-32769" << false << 0;
        QTest::newRow("huge exponent") << "1e400" << false << 0;
        QTest::newRow("tiny exponent") << "1e-400" << true << 0;
    }
    void sixteenBits() {
        QFETCH(QString, text);
        QFETCH(bool, fits);
        QFETCH(int, value);
        const auto v = common::LeadingInt16(text);
        QCOMPARE(v.has_value(), fits);
        if (fits) QCOMPARE(int(*v), value);
    }

    void numberText_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole") << 128.0 << "128";
        QTest::newRow("negative") << -1.0 << "-1";
        QTest::newRow("zero") << 0.0 << "0";
        QTest::newRow("negative zero") << -0.0 << "0";
        QTest::newRow("fraction") << 1.5 << "1.5";
    }
    void numberText() {
        QFETCH(double, value);
        QFETCH(QString, text);
        QCOMPARE(common::NumberText(value), text);
    }
};

QTEST_GUILESS_MAIN(TestNumber)
#include "test_number.moc"
