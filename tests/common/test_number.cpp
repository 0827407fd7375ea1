#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <cmath>
#include <cstdlib>
#include <limits>

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
        // Where a plain whole number ends and the general reading takes over.
        QTest::newRow("minus zero") << "-0" << -0.0;
        QTest::newRow("blanks then letter") << "  12x" << 12.0;
        QTest::newRow("tab and sign") << "\t-12" << -12.0;
        QTest::newRow("leading zeros") << "007" << 7.0;
        QTest::newRow("point then letter") << "5.x" << 5.0;
        QTest::newRow("point then digits") << "5.25" << 5.25;
        QTest::newRow("exponent after whole") << "5e3" << 5000.0;
        QTest::newRow("exponent without digits") << "5e" << 5.0;
        QTest::newRow("capital exponent") << "5E+2x" << 500.0;
        QTest::newRow("sign then blank") << "- 5" << 0.0;
        QTest::newRow("sign then point") << "-.5" << -0.5;
        QTest::newRow("15 digits") << "123456789012345" << 123456789012345.0;
        QTest::newRow("16 digits") << "1234567890123456" << 1234567890123456.0;
        QTest::newRow("18 digits") << "123456789012345678" << 123456789012345678.0;
        QTest::newRow("19 digits") << "1234567890123456789" << 1234567890123456789.0;
        QTest::newRow("2^53 + 1 rounds to even") << "9007199254740993" << 9007199254740992.0;
        QTest::newRow("2^53 + 3 rounds to even") << "9007199254740995" << 9007199254740996.0;
        QTest::newRow("many leading zeros") << "0000000000000000000000042" << 42.0;
        QTest::newRow("30 digits")
            << "123456789012345678901234567890" << 123456789012345678901234567890.0;
    }
    void leadingNumber() {
        QFETCH(QString, text);
        QFETCH(double, value);
        const double read = common::LeadingNumber(text);
        QCOMPARE(read, value);
        QCOMPARE(std::signbit(read), std::signbit(value));
    }

    // Random texts of number characters against a reading of their own: the longest number
    // at the start (after blanks), converted by the C library.
    void leadingNumberMatchesReference() {
        static const QRegularExpression kNumber(
            QStringLiteral("^[ \t]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"));
        static const char kAlphabet[] = " \t+-.eE0123456789x>";
        QRandomGenerator random(20240307);
        for (int i = 0; i < 20000; ++i) {
            QString text;
            const int length = random.bounded(12);
            for (int k = 0; k < length; ++k) {
                // Digits more often than the rest, so that long numbers come up.
                const bool digit = random.bounded(2) == 0;
                text += digit ? QChar(u'0' + random.bounded(10))
                              : QChar(kAlphabet[random.bounded(int(sizeof kAlphabet) - 1)]);
            }
            if (random.bounded(8) == 0) text += QString(random.bounded(20), u'7');
            const QRegularExpressionMatch m = kNumber.match(text);
            const double expected =
                m.hasMatch() ? std::strtod(m.captured(1).toLatin1().constData(), nullptr) : 0.0;
            // Below the normal range the two readings may part (0 against a subnormal).
            if (expected != 0 && std::fabs(expected) < std::numeric_limits<double>::min()) continue;
            const double read = common::LeadingNumber(text);
            if (read != expected || std::signbit(read) != std::signbit(expected))
                QFAIL(qPrintable(QStringLiteral("\"%1\" read as %2, expected %3")
                                     .arg(text)
                                     .arg(read, 0, 'g', 17)
                                     .arg(expected, 0, 'g', 17)));
        }
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
        QTest::newRow("signs") << "+5" << true << 5.0;
        QTest::newRow("minus zero") << "-0" << true << -0.0;
        QTest::newRow("tabs around") << "\t7\t" << true << 7.0;
        QTest::newRow("leading zeros") << "007" << true << 7.0;
        QTest::newRow("trailing point") << "5." << true << 5.0;
        QTest::newRow("exponent after whole") << " 5e3 " << true << 5000.0;
        QTest::newRow("exponent without digits") << "5e" << false << 0.0;
        QTest::newRow("two numbers") << "1 2" << false << 0.0;
        QTest::newRow("lone sign") << "-" << false << 0.0;
        QTest::newRow("19 digits") << "1234567890123456789" << true << 1234567890123456789.0;
    }
    void wholeNumber() {
        QFETCH(QString, text);
        QFETCH(bool, isNumber);
        QFETCH(double, value);
        const auto result = common::WholeNumber(text);
        QCOMPARE(result.has_value(), isNumber);
        if (isNumber) {
            QCOMPARE(*result, value);
            QCOMPARE(std::signbit(*result), std::signbit(value));
        }
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
