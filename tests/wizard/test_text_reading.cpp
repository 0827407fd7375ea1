// What a screen reader reads of the text inputs, a character, word, sentence or line at a
// time: every question at every offset gets an answer that fits the text, and soon.
#include <QAccessible>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "support/form_fixture.h"

namespace {

// Ends the test program with a message when a question has not come back within seconds: a
// reading that never returns fails the run instead of hanging it.
class Watchdog {
  public:
    Watchdog() : thread_([this] { watch(); }) {}
    ~Watchdog() {
        {
            std::lock_guard lock(mutex_);
            over_ = true;
        }
        changed_.notify_one();
        thread_.join();
    }
    void asking(const QString& question) {
        std::lock_guard lock(mutex_);
        question_ = question.toUtf8();
        deadline_ = Clock::now() + kPatience;
    }

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds kPatience{10};
    void watch() {
        std::unique_lock lock(mutex_);
        while (!over_) {
            changed_.wait_until(lock, deadline_);
            if (over_ || Clock::now() < deadline_) continue;
            std::fprintf(stderr, "FAIL! No answer within %d s to a screen reader asking %s\n",
                         int(kPatience.count()), question_.constData());
            std::_Exit(1);
        }
    }
    std::mutex mutex_;
    std::condition_variable changed_;
    bool over_ = false;
    QByteArray question_;
    Clock::time_point deadline_ = Clock::now() + kPatience;
    std::thread thread_;  // last: it starts watching once the rest is set
};

const std::pair<QString, QAccessible::TextBoundaryType> kUnits[] = {
    {"char", QAccessible::CharBoundary},           {"word", QAccessible::WordBoundary},
    {"sentence", QAccessible::SentenceBoundary},   {"line", QAccessible::LineBoundary},
    {"paragraph", QAccessible::ParagraphBoundary}, {"none", QAccessible::NoBoundary}};

struct Answer {
    QString text;
    int start = -2, end = -2;
    QString shown() const { return QStringLiteral("[%1] %2..%3").arg(text).arg(start).arg(end); }
};

// `kind` is "at", "before" or "after".
Answer Ask(QAccessibleTextInterface* reader, const QString& kind, int offset,
           QAccessible::TextBoundaryType unit) {
    Answer a;
    if (kind == u"at") a.text = reader->textAtOffset(offset, unit, &a.start, &a.end);
    if (kind == u"before") a.text = reader->textBeforeOffset(offset, unit, &a.start, &a.end);
    if (kind == u"after") a.text = reader->textAfterOffset(offset, unit, &a.start, &a.end);
    return a;
}

}  // namespace

class TestTextReading : public FormFixture {
    Q_OBJECT

    // The control's text as a screen reader reads it: an editable drop-down's is in its edit box.
    QAccessibleInterface* textOf(const QString& name) {
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(find(name));
        for (int i = 0; control && !control->textInterface() && i < control->childCount(); ++i)
            if (control->child(i)->textInterface()) control = control->child(i);
        return control && control->textInterface() ? control : nullptr;
    }

  private slots:
    // As with a screen reader running, Qt answers for a control as soon as it changes.
    void init() {
        QAccessible::setActive(true);
        FormFixture::init();
    }
    void cleanup() {
        FormFixture::cleanup();
        QAccessible::setActive(false);
    }

    void everyQuestionAnswered_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("lines");           // only for the boxes of several lines
        QTest::addColumn<QStringList>("answers");  // where the box holds all of the text
        QTest::newRow("empty") << "" << false
                               << QStringList{"at 0 word: [] 0..0", "after 0 char: [] -1..-1"};
        QTest::newRow("two words")
            << "Lumen fab" << false
            << QStringList{"at 7 word: [fab] 6..9",        "at 9 word: [fab] 6..9",
                           "before 9 word: [Lumen ] 0..6", "after 2 word: [fab] 6..9",
                           "at 9 char: [] 9..9",           "before 9 char: [b] 8..9",
                           "at -1 line: [Lumen fab] 0..9", "before 9 sentence: [] -1..-1"};
        QTest::newRow("runs of blanks")
            << "  runs   of  blanks  " << false
            << QStringList{"at 0 word: [  ] 0..2", "at 5 word: [runs   ] 2..9",
                           "after 9 word: [blanks  ] 13..21", "at 21 word: [blanks  ] 13..21"};
        QTest::newRow("punctuation")
            << "a.b, c! d?" << false
            << QStringList{"at 1 sentence: [a.b, c! ] 0..8", "after 0 sentence: [d?] 8..10",
                           "at 10 sentence: [d?] 8..10", "at 4 word: [b, ] 2..5"};
        QTest::newRow("outside Latin-1")
            << "Größe ÄÖÜ 日本 😀x" << false
            << QStringList{"at 14 char: [😀] 13..15", "after 12 char: [😀] 13..15",
                           "before 15 char: [😀] 13..15", "at 11 word: [日本 ] 10..13"};
        QTest::newRow("two lines")
            << "one\r\ntwo" << true
            << QStringList{"at 0 line: [one\n] 0..4", "at 7 line: [two] 4..7",
                           "before 5 line: [one\n] 0..4", "after 1 paragraph: [two] 4..7",
                           "at 3 char: [\n] 3..4"};
    }
    void everyQuestionAnswered() {
        QFETCH(QString, text);
        QFETCH(bool, lines);
        QFETCH(QStringList, answers);
        MainForm& f = form();
        std::vector<std::pair<QString, std::function<void()>>> inputs;  // in the form's order
        for (gui::TextBox* box :
             {&f.manifacturer, &f.model, &f.nameondesk, &f.degreespan, &f.degreestilt,
              &f.patchdisplay, &f.morecomment, &f.redittext, &f.arno, &f.arpre})
            inputs.emplace_back(box->Name(), [box, text] { box->setText(text); });
        inputs.emplace_back("editcombo", [&f, text] { f.editcombo.setText(text); });

        Watchdog watchdog;
        for (const auto& [name, fill] : inputs) {
            QAccessibleInterface* control = textOf(name);
            QVERIFY2(control, qPrintable(name));
            if (lines && !control->state().multiLine) continue;
            fill();
            QAccessibleTextInterface* reader = control->textInterface();
            const int n = reader->characterCount();
            const QString all = reader->text(0, n);
            const QString about =
                name + QStringLiteral(" holding \"") + all + QStringLiteral("\": ");
            for (const auto& [unitName, unit] : kUnits) {
                for (int offset = -1; offset <= n + 1; ++offset) {
                    const QString asked = about + unitName + u' ' + QString::number(offset);
                    watchdog.asking(asked);
                    const Answer at = Ask(reader, "at", offset, unit);
                    const Answer before = Ask(reader, "before", offset, unit);
                    const Answer after = Ask(reader, "after", offset, unit);
                    // Each answer is a piece of the text, or nothing at all.
                    for (const Answer& a : {at, before, after}) {
                        const bool none = a.start == -1 && a.end == -1 && a.text.isEmpty();
                        const bool piece = 0 <= a.start && a.start <= a.end && a.end <= n &&
                                           a.text == all.mid(a.start, a.end - a.start);
                        QVERIFY2(none || piece,
                                 qPrintable(asked + QStringLiteral(" gave ") + a.shown()));
                    }
                    // The unit at an offset holds it; the ones before and after lie beside it.
                    if (0 <= offset && offset < n)
                        QVERIFY2(at.start <= offset && offset < at.end, qPrintable(asked));
                    if (at.start >= 0 && before.start >= 0)
                        QVERIFY2(before.end <= at.start, qPrintable(asked));
                    if (at.start >= 0 && after.start >= 0)
                        QVERIFY2(after.start >= at.end, qPrintable(asked));
                    if (unit != QAccessible::CharBoundary || offset < 0 || offset >= n) continue;
                    // A character outside the first plane is one, though it takes two places.
                    const bool second = all[offset].isLowSurrogate() && offset > 0;
                    const int first = second ? offset - 1 : offset;
                    QCOMPARE(at.text, all.mid(first, all[first].isHighSurrogate() ? 2 : 1));
                }
            }
            // A box that keeps fewer characters (Name on desk: 11) is only swept.
            if (all != QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")))
                continue;
            for (const QString& expected : answers) {
                const QString question = expected.section(QStringLiteral(": "), 0, 0);
                const QStringList words = question.split(u' ');
                const auto unit = std::find_if(std::begin(kUnits), std::end(kUnits),
                                               [&](const auto& u) { return u.first == words[2]; });
                watchdog.asking(about + question);
                const Answer a = Ask(reader, words[0], words[1].toInt(), unit->second);
                QCOMPARE(name + u' ' + question + QStringLiteral(": ") + a.shown(),
                         name + u' ' + expected);
            }
        }
    }
};

RIGWRIGHT_TEST_CLASS(TestTextReading)
#include "test_text_reading.moc"
