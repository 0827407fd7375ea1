// The two multi-line boxes of the finish page as a person uses them: a click into the box,
// then keys and pastes, and what reaches the file byte for byte.
#include <QAccessible>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "support/form_fixture.h"

using gui::testing::Click;

class TestTextBoxes : public FormFixture {
    Q_OBJECT

    // A mouse click where the control stands on screen, through the window, as a real
    // mouse lands.
    void clickOn(const QString& name, Qt::MouseButton button) {
        QAccessibleInterface* at = QAccessible::queryAccessibleInterface(find(name));
        QWindow* window = at->window();
        QTest::mouseClick(window, button, {}, window->mapFromGlobal(at->rect().center()));
    }

    // Keys go where a keyboard's keys go: to the window, which hands them to the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
    }

    // Types `text`; a line feed in it is Shift+Enter.
    void type(const QString& text) {
        for (QChar c : text) {
            if (c == u'\n')
                press(Qt::Key_Return, Qt::ShiftModifier);
            else
                QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
        }
    }

    QByteArray saved() {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("T.R20"));
        gui::seams::QueueSaveAnswer(path);
        gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
        Click(form().finished);
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

  private slots:
    // The box is emptied with Ctrl+A and Delete, `pasted` is pasted with `gesture` (null: the
    // clipboard holds nothing, as an X11 clipboard that nobody owns), then `typed` typed.
    void textReachesTheFileAsTyped_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("gesture");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QByteArray>("lines");  // the comment's lines, or the patch text's
        const auto add = [](const char* tag, const char* name, const QString& pasted,
                            const char* typed, const QByteArray& lines,
                            const char* gesture = "Ctrl+V") {
            QTest::newRow(tag) << name << gesture << pasted << typed << lines;
        };
        for (const char* gesture : {"Ctrl+V", "Shift+Insert", "middle click"}) {
            QTest::addRow("nothing to paste, %s, comment", gesture)
                << "morecomment" << gesture << QString() << "x" << QByteArray("; x\r\n");
            QTest::addRow("nothing to paste, %s, patch text", gesture)
                << "patchdisplay" << gesture << QString() << "" << QByteArray("TEXT\r\n\r\nEND");
        }
        add("lone CR costs the next character", "morecomment", "a\rbc", "", "; a\r\r\n; c\r\n");
        add("no-break space", "morecomment", QStringLiteral("x\u00A0y"), "", "; x\xA0y\r\n");
        add("Shift+Enter is a new line", "morecomment", "", "a\nb", "; a\r\r\n; b\r\n");
        add("pasted line feeds are line ends", "morecomment", "p\nq", "", "; p\r\r\n; q\r\n");
        add("patch text keeps CR and no-break space", "patchdisplay", QStringLiteral("P\u00A0Q\rR"),
            "", "\r\nTEXT\r\nP\xA0Q\rR\r\nEND\r\n");
        add("patch text with CR LF pairs", "patchdisplay", "\r\nA\r\n", "",
            "\r\nTEXT\r\n\r\nA\r\n\r\nEND\r\n");
    }
    void textReachesTheFileAsTyped() {
        QFETCH(QString, name);
        QFETCH(QString, gesture);
        QFETCH(QString, pasted);
        QFETCH(QString, typed);
        QFETCH(QByteArray, lines);
        goToPage(3);
        clickOn(name, Qt::LeftButton);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        QClipboard* clipboard = QGuiApplication::clipboard();
        for (QClipboard::Mode mode : {QClipboard::Clipboard, QClipboard::Selection}) {
            if (mode == QClipboard::Selection && !clipboard->supportsSelection()) continue;
            auto* data = new QMimeData;
            if (!pasted.isNull()) data->setText(pasted);
            clipboard->setMimeData(data, mode);
        }
        if (gesture == u"Ctrl+V") press(Qt::Key_V, Qt::ControlModifier);
        if (gesture == u"Shift+Insert") press(Qt::Key_Insert, Qt::ShiftModifier);
        if (gesture == u"middle click") clickOn(name, Qt::MiddleButton);
        type(typed);
        const QByteArray file = saved();
        if (name == u"morecomment")
            QVERIFY2(file.startsWith(lines + "; \r\n; \r\n; file "), file.left(40).toHex(' '));
        else
            QVERIFY2(file.contains(lines), file.right(60).toHex(' '));
    }
};

RIGWRIGHT_TEST_CLASS(TestTextBoxes)
#include "test_text_boxes.moc"
