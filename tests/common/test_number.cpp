#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "common/number.h"
#include "common/text_table.h"

namespace {

// Equal values of equal sign: -0 and 0 differ here.
bool Same(double a, double b) {
    return a == b && std::signbit(a) == std::signbit(b);
}

constexpr int kNoFit = 99999;  // no 16-bit value

}  // namespace

class TestNumber : public QObject {
    Q_OBJECT
  private slots:
    void leadingNumber_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        // Short texts of every shape are left to the reference below.
        QTest::newRow("short form") << "61> B (right)" << 61.0;
        QTest::newRow("many zeros") << "0000000000000000000000042" << 42.0;
        QTest::newRow("19 digits") << "1234567890123456789" << 1234567890123456789.0;
        // Past 2^53 a tie between two doubles goes to the even one.
        QTest::newRow("2^53 + 1") << "9007199254740993" << 9007199254740992.0;
        QTest::newRow("2^53 + 3") << "9007199254740995" << 9007199254740996.0;
        QTest::newRow("30 digits")
            << "123456789012345678901234567890" << 123456789012345678901234567890.0;
    }
    void leadingNumber() {
        QFETCH(QString, text);
        QFETCH(double, value);
        QVERIFY(Same(common::LeadingNumber(text), value));
    }

    // Random texts of number characters against a reading of their own: the longest number
    // at the start (after blanks), converted by the C library; a whole number is that and blanks.
    void numbersMatchReference() {
        static const QRegularExpression kNumber(
            QStringLiteral("^[ \t]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)"));
        static const QRegularExpression kBlanks(QStringLiteral("^[ \t]*$"));
        static const char kAlphabet[] = " \t+-.eE0123456789x>";
        QRandomGenerator random(20240307);
        for (int i = 0; i < 20000; ++i) {
            QString text;
            for (int k = random.bounded(12); k > 0; --k)  // digits half the time
                text += random.bounded(2) ? QChar(u'0' + random.bounded(10))
                                          : QChar(kAlphabet[random.bounded(19)]);
            if (random.bounded(8) == 0) text += QString(random.bounded(20), u'7');
            const QRegularExpressionMatch m = kNumber.match(text);
            const double expected =
                m.hasMatch() ? std::strtod(m.captured(1).toLatin1().constData(), nullptr) : 0.0;
            // Below the normal range the two readings may part (0 against a subnormal).
            if (expected != 0 && std::fabs(expected) < std::numeric_limits<double>::min()) continue;
            const double read = common::LeadingNumber(text);
            QVERIFY2(Same(read, expected), qPrintable(QStringLiteral("\"%1\" read as %2, not %3")
                                                          .arg(text)
                                                          .arg(read, 0, 'g', 17)
                                                          .arg(expected, 0, 'g', 17)));
            const auto whole = common::WholeNumber(text);
            const bool isWhole =
                m.hasMatch() && kBlanks.match(text.mid(m.capturedEnd())).hasMatch();
            QVERIFY2(whole.has_value() == isWhole && (!whole || Same(*whole, expected)),
                     qPrintable(text));
        }
    }

    void rounding() {
        const double rounded[][2] = {{3.5, 4},  {2.5, 2},   {-0.4, 0},
                                     {-0.5, 0}, {-1.5, -2}, {0.6, 1}};
        for (const auto& r : rounded) QVERIFY2(Same(common::RoundHalfEven(r[0]), r[1]), "rounding");
        QCOMPARE(common::NumberText(-1), "-1");
        QCOMPARE(common::NumberText(-0.0), "0");
        QCOMPARE(common::NumberText(1.5), "1.5");
        const std::pair<const char*, int> rows[] = {{"32767", 32767},   {"32767.5", kNoFit},
                                                    {"-32768", -32768}, {"-32769", kNoFit},
                                                    {"1e400", kNoFit},  {"1e-400", 0}};
        for (const auto& [text, value] : rows) {
            const auto v = common::LeadingInt16(QString::fromLatin1(text));
            QVERIFY2((v ? int(*v) : kNoFit) == value, text);
        }
    }

    // A table keeps a large whole number as its value: every other text that looks like a
    // number must come back exactly as it went in, and a number must read alike however it
    // was put in.
    void tableCellsKeepTheirText_data() {
        QTest::addColumn<QString>("text");
        for (const char* text :
             {"0",          "7",          "999",        "1000", "01000", "32767", "123456789",
              "1234567890", "2147483648", "4294967295", "007",  "00",    "-1",    "+1",
              "1 ",         " 1",         "1.0",        "1e3",  "12a",   ""})
            QTest::newRow(text) << QString::fromLatin1(text);
        QTest::newRow("Arabic-Indic three") << QStringLiteral("\u0663");
        QTest::newRow("fullwidth one") << QStringLiteral("\uFF11");
    }
    void tableCellsKeepTheirText() {
        QFETCH(QString, text);
        common::TextTable table(3);
        table.appendRow();
        table.setCell(0, 0, text);
        table.setCell(0, 1, QStringView(text));
        const quint32 numbers[] = {0, 0, table.numberOf(text)};
        table.appendRow(numbers);
        QCOMPARE(table.cell(0, 0), text);
        QCOMPARE(table.cell(0, 1), text);
        QCOMPARE(table.cell(1, 2), text);
    }
};

QTEST_GUILESS_MAIN(TestNumber)
#include "test_number.moc"
