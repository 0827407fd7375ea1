#pragma once
// The base of every GUI test: a fresh form per test, loaded and shown, with the dialog
// queues checked empty afterwards.

#include <QObject>
#include <QString>
#include <memory>

#include "wizard/main_form.h"

class FormFixture : public QObject {
    Q_OBJECT
  protected:
    MainForm& form() { return *form_; }
    QObject* find(const QString& name);
    void goToPage(int index);  // with Next, from the page on show
    static QString dataPath(const QString& file);

  protected slots:
    void init();
    void cleanup();

  private:
    std::unique_ptr<MainForm> form_;
};

// Runs a test class inside the program's own application object, so that the widgets of
// the form can exist, on whatever platform CTest gives (offscreen).
#include <QTest>

#include "gui/application.h"

#define RIGWRIGHT_TEST_MAIN(TestClass)          \
    int main(int argc, char** argv) {           \
        gui::Application app(argc, argv);       \
        TestClass test;                         \
        return QTest::qExec(&test, argc, argv); \
    }
