#pragma once
// The base of every GUI test: a fresh form per test, loaded and shown, with the dialog
// queues checked empty afterwards.

#include <QJsonValue>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTest>
#include <memory>

#include "wizard/main_form.h"

class FormFixture : public QObject {
    Q_OBJECT
  public:
    static QString dataPath(const QString& file);  // a file under tests/data
    // An entry of a JSON file there, by the start of its name.
    static QJsonValue dataEntry(const QString& file, const QString& name);
    // Adds the rows of such a table: a row's first cell names it, the others are text.
    static void addTextRows(const QJsonValue& table);

  protected:
    MainForm& form() { return *form_; }
    QObject* find(const QString& name);
    void goToPage(int index);  // with Next, from the page on show

  protected slots:
    void init();
    void cleanup();

  private:
    std::unique_ptr<MainForm> form_;
};

// The cells of row `row` of a table of cell texts.
#include "common/text_table.h"

// The kind a fixture file writes on its MIRROR line: 1 mirror, 2 moving head, 0 otherwise.
#include "common/fixture.h"

inline int MirrorKind(common::FixtureType type) {
    return type == common::FixtureType::kMirror       ? 1
           : type == common::FixtureType::kMovingHead ? 2
                                                      : 0;
}

inline QStringList RowCells(const common::TextTable& table, int row) {
    QStringList cells;
    for (int col = 0; col < table.cols(); ++col) cells << table.cell(row, col);
    return cells;
}

// Files the tests write and read back whole.
#include <QFile>

inline bool WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

// Runs --convert or --check in this process, its two streams caught in files (on a
// `terminal`, one stream) and read back as the system's text; -1 when less of them had reached
// the files when it returned than there was to read after (a line kept back). With
// `matchWildcards`, "*" and "?" in the files named are matched as on Windows.
int RunLibraryCommand(const QStringList& arguments, QString* printed = nullptr,
                      QString* errors = nullptr, bool terminal = false,
                      bool matchWildcards = false);

// Every test program: each file registers its test class, and the one main of the test
// support runs them in turn inside the program's own application object, so that the widgets
// of the form can exist, on whatever platform CTest gives (offscreen).
#include <functional>
#include <memory>
#include <vector>

namespace test_support {
using Factory = std::function<std::unique_ptr<QObject>()>;
inline std::vector<Factory>& Registry() {
    static std::vector<Factory> factories;
    return factories;
}
struct Register {
    explicit Register(Factory f) { Registry().push_back(std::move(f)); }
};
}  // namespace test_support

#define RIGWRIGHT_TEST_CLASS(TestClass)                         \
    static const test_support::Register TestClass##_registered{ \
        [] { return std::unique_ptr<QObject>(new TestClass); }};
