// Starting from a QLC+ fixture definition: how a mode becomes the pages, the files refused,
// every fixture Debian ships, the ways in as a person takes them, and the command line that
// converts and checks whole libraries with the wizard's own code.
#include <QAccessible>
#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "channels/edit_classes.h"
#include "common/system_names.h"
#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/system.h"
#include "input/command_line.h"
#include "input/fixture_source.h"
#include "input/qxf_mapping.h"
#include "output/fixture_file.h"
#include "output/form_fixture.h"
#include "output/save_flow.h"
#include "support/form_fixture.h"
#include "support/testing.h"
#include "wizard/engine.h"
#include "wizard/library_commands.h"
#include "wizard/open_fixture.h"

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace {

// A fixture definition. Channels, "|" between them: "Name@Preset", or "Name#Group#Byte" with
// "#Colour" behind for an old intensity channel. A mode names its channels with "|" between
// them, "=N" behind a name for a Number other than its place; "heads" lists each head's
// channel numbers, "," between them and "/" between heads.
QByteArray Qxf(const QString& channels, const QStringList& modes,
               const QString& type = "Moving Head", const QString& focus = "Head",
               const QString& heads = {}) {
    QString xml = QStringLiteral(
                      "<?xml version='1.0' encoding='UTF-8'?>\n<!DOCTYPE FixtureDefinition>\n"
                      "<FixtureDefinition xmlns=\"http://www.qlcplus.org/FixtureDefinition\">\n"
                      " <Creator><Name>Test</Name></Creator>\n"
                      " <Manufacturer>Lumenfab</Manufacturer>\n <Model>Beam 575</Model>\n"
                      " <Type>%1</Type>\n")
                      .arg(type);
    for (const QString& channel : channels.split(u'|')) {
        const QStringList preset = channel.split(u'@');
        const QStringList group = channel.split(u'#');
        if (preset.size() == 2) {
            xml +=
                QStringLiteral(" <Channel Name=\"%1\" Preset=\"%2\"/>\n").arg(preset[0], preset[1]);
            continue;
        }
        xml += QStringLiteral(" <Channel Name=\"%1\">\n  <Group Byte=\"%2\">%3</Group>\n")
                   .arg(group[0], group.value(2, "0"), group[1]);
        if (group.size() > 3) xml += QStringLiteral("  <Colour>%1</Colour>\n").arg(group[3]);
        xml +=
            QStringLiteral("  <Capability Min=\"0\" Max=\"255\">All</Capability>\n </Channel>\n");
    }
    for (int m = 0; m < modes.size(); ++m) {
        xml += QStringLiteral(" <Mode Name=\"Mode %1\">\n").arg(m + 1);
        const QStringList names = modes[m].split(u'|');
        for (int i = 0; i < names.size(); ++i) {
            const QStringList numbered = names[i].split(u'=');
            xml += QStringLiteral("  <Channel Number=\"%1\">%2</Channel>\n")
                       .arg(numbered.value(1, QString::number(i)), numbered[0]);
        }
        for (const QString& head : heads.split(u'/', Qt::SkipEmptyParts)) {
            xml += QStringLiteral("  <Head>\n");
            for (const QString& number : head.split(u','))
                xml += QStringLiteral("   <Channel>%1</Channel>\n").arg(number);
            xml += QStringLiteral("  </Head>\n");
        }
        xml += QStringLiteral(" </Mode>\n");
    }
    xml += QStringLiteral(
               " <Physical><Focus Type=\"%1\" PanMax=\"540\" TiltMax=\"270\"/></Physical>\n"
               "</FixtureDefinition>\n")
               .arg(focus);
    return xml.toUtf8();
}

// The pages in short: kind, name on desk, then per row dmx1, dmx2, the channel type's first
// letter, attribute type, key/wheel and label, " / " between rows.
QString Summary(const common::Fixture& f) {
    QStringList rows;
    for (int row = 0; row < f.channels.rows(); ++row) {
        const QStringList c = RowCells(f.channels, row);
        rows << QStringList{c[1], c[2], c[3].left(1), c[4], c[5] + u'/' + c[6], c[7]}.join(u',');
    }
    return QString::number(MirrorKind(f.type)) + u' ' + f.nameOnDesk + QStringLiteral(": ") +
           rows.join(QStringLiteral(" / "));
}

// Whether the column's editor would store `text` as it stands: a choice column its list's
// item or the item's short form, a number column a number within bounds, free text one line.
bool EditorAccepts(int column, const QString& text) {
    const int editClass = channels::EditClassOfColumn(column);
    if (editClass == channels::kChoice) {
        for (const QString& item : channels::ChoiceListOfColumn(column).split(u';'))
            if (item == text || item.startsWith(text + u'>') || item.startsWith(text + u' '))
                return true;
        return false;
    }
    if (editClass == channels::kFreeText) return !text.contains(u'\n') && !text.contains(u'\r');
    bool number = false;
    const int value = text.toInt(&number);
    const auto stored = channels::CommittedText(editClass, text, std::int16_t(value), -1);
    return number && stored == text;
}

// A symbolic link; on Windows QFile::link makes a shortcut, which is a file, and this compiler's
// library makes no links.
bool SymbolicLink(const QString& target, const QString& link) {
#ifdef Q_OS_WIN
    const auto wide = [](const QString& path) {
        return reinterpret_cast<const wchar_t*>(QDir::toNativeSeparators(path).utf16());
    };
    const QString native = QDir::toNativeSeparators(target);
    // Wine says yes and makes nothing: the link is looked at.
    return CreateSymbolicLinkW(wide(link), reinterpret_cast<const wchar_t*>(native.utf16()),
                               SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE) &&
           QFileInfo(link).isSymLink();
#else
    return QFile::link(target, link);
#endif
}

// A table of tests/data/qxf_tables.json, by the start of its name.
QJsonArray Table(const char* name) {
    return FormFixture::dataEntry("qxf_tables.json", name).toArray();
}

QString MapError(const QByteArray& bytes, const QString& mode = {}) {
    const input::QxfOutcome read = input::ReadQxfBytes(bytes);
    if (!read.fixture) return read.error;
    const auto index = input::FindQxfMode(*read.fixture, mode.isEmpty() ? "1" : mode);
    if (!index) return QStringLiteral("no mode");
    return input::MapQxfMode(*read.fixture, *index).error;
}

}  // namespace

class TestQxf : public FormFixture {
    Q_OBJECT
  private slots:
    void mapping_data() {
        QTest::addColumn<QByteArray>("qxf");
        QTest::addColumn<QString>("pages");
        for (const QJsonValue& row : Table("mapping")) {
            const auto at = [&](int i) { return row[i].toString(); };
            QTest::newRow(qPrintable(at(0))) << Qxf(at(1), {at(2)}, at(3), at(4), at(5)) << at(6);
        }
    }
    void mapping() {
        QFETCH(QByteArray, qxf);
        QFETCH(QString, pages);
        const input::QxfOutcome read = input::ReadQxfBytes(qxf);
        QVERIFY2(read.fixture, qPrintable(read.error));
        const input::ReadOutcome mapped = input::MapQxfMode(*read.fixture, 0);
        QVERIFY2(mapped.fixture, qPrintable(mapped.error));
        QCOMPARE(Summary(*mapped.fixture), pages);
        // The whole QLC+ name is the comment; the mode's name the first line for the desk.
        const QStringList first = RowCells(mapped.fixture->channels, 0);
        QCOMPARE(first[14], read.fixture->modes[0].channels[first[1].toInt() - 1]);
        QVERIFY(mapped.fixture->patchText.startsWith("Mode 1\r\n\r\nINPUT fixture DMX No.\r\n"));
    }
    void refused_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("error");
        const QByteArray good = Qxf("Dim@IntensityDimmer", {"Dim", "Dim|Ghost"});
        QTest::newRow("not XML") << QByteArray("DEVICE X\r\n") << ""
                                 << "line 1: Start tag expected.";
        QTest::newRow("XML cut short") << good.left(good.indexOf("</Mode>")) << ""
                                       << "line 11: Premature end of document.";
        QTest::newRow("other XML")
            << QByteArray("<?xml version=\"1.0\"?><svg/>") << ""
            << "it is no QLC+ fixture definition (its root element is <svg>)";
        QTest::newRow("no mode") << Qxf("Dim@IntensityDimmer", {}) << ""
                                 << "the fixture has no mode";
        QTest::newRow("a mode with no channel")
            << Qxf("Dim@IntensityDimmer", {""}).replace("  <Channel Number=\"0\"></Channel>\n", "")
            << ""
            << "the mode \"Mode 1\" has no channel";
        QTest::newRow("a channel the fixture lacks")
            << good << "Mode 2"
            << "the mode \"Mode 2\" names the channel \"Ghost\", which the fixture does not define";
        QTest::newRow("a mode number too high") << good << "3"
                                                << "no mode";
        QTest::newRow("an offset beyond the table, the mode's name on one line")
            << Qxf("Dim@IntensityDimmer", {"Dim=511"}).replace("Mode 1", "Mode&#9;1") << ""
            << "the mode \"Mode 1\" puts the channel \"Dim\" at DMX offset 512, beyond the 511 "
               "offsets of the channel table";
        QTest::newRow("no Number") << Qxf("Dim@IntensityDimmer", {"Dim=x"}) << ""
                                   << "the mode \"Mode 1\" gives the channel \"Dim\" no Number";
    }
    void refused() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, mode);
        QFETCH(QString, error);
        QCOMPARE(MapError(bytes, mode), error);
    }
    // The kind of a file is told by its content, whatever its name; a QLC+ fixture in UTF-16
    // with a byte-order mark is read as one in UTF-8 is.
    void kindByContent_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("read");  // "qxf", "written" or why it was refused
        const QByteArray qxf = Qxf("Dim@IntensityDimmer", {"Dim"});
        const QString utf16 = QString::fromUtf8(qxf).replace("UTF-8", "UTF-16");
        const auto bom = QStringConverter::Flag::WriteBom;
        QTest::newRow("UTF-16 LE")
            << "a.qxf" << QByteArray(QStringEncoder(QStringEncoder::Utf16LE, bom)(utf16)) << "qxf";
        QTest::newRow("UTF-16 BE, named .R20")
            << "a.R20" << QByteArray(QStringEncoder(QStringEncoder::Utf16BE, bom)(utf16)) << "qxf";
        QTest::newRow("a comment first, named .R20")
            << "a.R20"
            << QByteArray(qxf).replace("<?xml version='1.0' encoding='UTF-8'?>", "<!---->")
            << "qxf";
        QTest::newRow("a written file, named .qxf")
            << "a.qxf" << ReadBytes(dataPath("output_mixed.R20")) << "written";
    }
    void kindByContent() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, read);
        QTemporaryDir dir;
        QVERIFY(WriteBytes(dir.filePath(name), bytes));
        const input::FixtureSource source = input::ReadFixtureSource(dir.filePath(name));
        QCOMPARE(source.qxf ? "qxf" : source.written ? "written" : source.error, read);
    }
    void namesOnDesk() {
        // Modes of 3, 4 and 3 channels; the model's letters and digits, cut to make room.
        input::QxfFixture fixture =
            *input::ReadQxfBytes(Qxf("x@IntensityDimmer", {"x|x|x", "x|x|x|x", "x|x|x"})
                                     .replace("Beam 575", "MAC 700 Profile \u00C9"))
                 .fixture;
        QCOMPARE(input::QxfNameOnDesk(fixture, 0), QStringLiteral("MAC700PR-3A"));
        QCOMPARE(input::QxfNameOnDesk(fixture, 1), QStringLiteral("MAC700PRO-4"));
        QCOMPARE(input::QxfNameOnDesk(fixture, 2), QStringLiteral("MAC700PR-3B"));
        fixture.modes.resize(1);
        QCOMPARE(input::QxfNameOnDesk(fixture, 0), QStringLiteral("MAC700PROFI"));
    }
    // Every fixture Debian ships: no well-formed file refused, every mode mapped with one offset
    // per channel, its Number + 1, every cell one its column's editor takes, every name within its
    // box; and the file written from the pages, opened again and written again, is the same to the
    // byte.
    void installedFixtures() {
        const QString folder = QStringLiteral("/usr/share/qlcplus/fixtures");
        if (!QFileInfo(folder).isDir()) QSKIP("qlcplus-data is not installed");
        gui::seams::FixClock(QDateTime(QDate(2026, 11, 24), QTime(22, 1, 2)));
        const auto written = [&](const common::Fixture& fixture) {
            ShowOpenedFixture(form(), fixture);
            while (form().CurrentStep < 3) nexts_Click(form());
            QBuffer file;
            file.open(QIODevice::WriteOnly);
            WriteFixtureFile(ReadForm(form()), QStringLiteral("/lib/F.R20"), gui::Now(), file);
            return file.data();
        };
        int files = 0, modes = 0;
        QDirIterator it(folder, {QStringLiteral("*.qxf")}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            const input::FixtureSource source = input::ReadFixtureSource(path);
            QVERIFY2(source.qxf, qPrintable(path + ": " + source.error));
            ++files;
            QSet<QString> names;
            for (int m = 0; m < source.qxf->modes.size(); ++m, ++modes) {
                const input::ReadOutcome mapped = input::MapQxfMode(*source.qxf, m);
                const QString where = path + " mode " + QString::number(m + 1);
                QVERIFY2(mapped.fixture, qPrintable(where + ": " + mapped.error));
                const common::Fixture& f = *mapped.fixture;
                QSet<int> offsets;
                for (int r = 0; r < f.channels.rows(); ++r) {
                    const QStringList row = RowCells(f.channels, r);
                    for (int column = 1; column < 15; ++column)
                        QVERIFY2(EditorAccepts(column, row[column]),
                                 qPrintable(where + ": " + row.join(u'|')));
                    offsets << row[1].toInt();
                    if (row[2] != u"0") offsets << row[2].toInt();
                }
                QCOMPARE(offsets.size(), source.qxf->modes[m].channels.size());
                for (const int number : source.qxf->modes[m].numbers)
                    QVERIFY(offsets.contains(number + 1));
                QVERIFY(f.manufacturer.size() <= 30 && f.model.size() <= 30);
                QVERIFY(!f.nameOnDesk.isEmpty() && f.nameOnDesk.size() <= 11);
                QVERIFY2(!names.contains(f.nameOnDesk), qPrintable(where + ": " + f.nameOnDesk));
                names << f.nameOnDesk;
                const QByteArray first = written(f);
                const input::ReadOutcome again = input::ReadFixtureBytes(first);
                QVERIFY2(again.fixture, qPrintable(where + ": " + again.error));
                QVERIFY2(written(*again.fixture) == first, qPrintable(where));
            }
        }
        QVERIFY(files > 1000 && modes > 3000);
    }
    // Every way in reaches the same open: the pages fill and Step 1 shows as at the start.
    void waysIn_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"Open button by keys", "Ctrl+O on the grid", "dropped on the grid"})
            QTest::newRow(way) << way;
    }
    void waysIn() {
        using namespace gui::testing;
        QFETCH(QString, way);
        QTemporaryDir dir;
        const QString path = dir.filePath("beam.qxf");
        QVERIFY(WriteBytes(path, Qxf("Pan@PositionPan|Dim@IntensityDimmer", {"Pan|Dim"})));
        MainForm& f = form();
        goToPage(2);
        if (way == u"Open button by keys") {
            goToPage(0);
            Click(f.otherkind);
            PressKey(Qt::Key_Tab);  // the button stands last in the page's tab order
            QCOMPARE(FocusName(), QStringLiteral("openfixture"));
            gui::seams::QueueOpenAnswer(path);
            gui::seams::QueueMsgBoxAnswer(
                gui::MsgButton::Yes);  // the kind chosen is something typed
            PressKey(Qt::Key_Space);
        } else if (way == u"Ctrl+O on the grid") {
            ClickCell(f.table, 1, 3);
            gui::seams::QueueOpenAnswer(path);
            PressKey(Qt::Key_O, Qt::ControlModifier);
        } else {
            DropFile(f.table, path);
        }
        QCOMPARE(f.manifacturer.Text(), QStringLiteral("Lumenfab"));
        QCOMPARE(f.table.Rows(), 3);
        QCOMPARE(f.table.TextMatrix(2, 7), QStringLiteral("Dimmer"));
        QCOMPARE(f.CurrentStep, 0);
        QVERIFY(f.stepf[0].Visible() && !f.previous.Enabled() && f.nexts.Enabled());
        QVERIFY(f.movinghead.Value());
        if (way != u"dropped on the grid") {
            const auto& call = gui::seams::OpenDialogCalls().back();
            QCOMPARE(call.filters,
                     QStringList({"Fixture definitions (*.R20 *.r20)", "QLC+ fixtures (*.qxf)"}));
            QString start;  // QLC+'s folders, the user's own first
            for (const QString& folder :
                 {QDir::homePath() + "/.qlcplus/fixtures", QString("/usr/share/qlcplus/fixtures")})
                if (start.isEmpty() && QFileInfo(folder).isDir()) start = folder;
            QCOMPARE(call.initDir, start);
            QCOMPARE(call.selectedFilter, start.isEmpty() ? QString() : call.filters.last());
        }
        // A file dropped on a text box is opened, not pasted into the box.
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
        DropFile(f.manifacturer, dir.filePath("none.qxf"));
        QVERIFY(gui::seams::MsgBoxCalls().back().text.endsWith(
            "none.qxf could not be read: No such file or directory"));
        QCOMPARE(f.manifacturer.Text(), QStringLiteral("Lumenfab"));
    }
    // Keys alone: the list of modes comes up named and titled, the first line selected and
    // heard as it takes the focus; Escape leaves the pages as they were, Down and Enter pick
    // the second mode. A mode with no channel says so on its line; picked, it says why it
    // cannot fill the pages and the list comes back on its line.
    void chooser() {
        using namespace gui::testing;
        QTemporaryDir dir;
        const QString path = dir.filePath("beam.qxf");
        QVERIFY(WriteBytes(path, Qxf("Pan@PositionPan|Dim@IntensityDimmer", {"Dim", "Pan|Dim", ""})
                                     .replace("  <Channel Number=\"0\"></Channel>\n", "")));
        MainForm& f = form();
        QString title, name, lines;
        QStringList heard;
        for (const int pick : {0, 1, 2}) {  // Escape, the second mode, the empty one
            ScreenReader reader;
            const auto look = [&] {
                title = CaptionOf(ActiveDialog());
                heard = reader.heard();
                QAccessibleInterface* list = QAccessible::queryAccessibleInterface(
                    ActiveDialog()->findChild<QObject*>("choices"));
                name = list->text(QAccessible::Name);
                lines.clear();
                for (int i = 0; i < list->childCount(); ++i)
                    lines += list->child(i)->text(QAccessible::Name) +
                             (list->child(i)->state().selected ? "*" : "") + u';';
            };
            QTimer::singleShot(0, [&] {
                look();
                if (pick > 0) PressKey(pick == 1 ? Qt::Key_Down : Qt::Key_End);
                PressKey(pick == 0 ? Qt::Key_Escape : Qt::Key_Return);
                if (pick == 2) QTimer::singleShot(0, [&] { look(), PressKey(Qt::Key_Escape); });
            });
            if (pick == 2) gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
            QCOMPARE(OpenFixtureFile(f, path), pick == 1);
            QCOMPARE(title, QStringLiteral("Lumenfab Beam 575"));
            QCOMPARE(heard.last(), pick == 2 ? "Mode 3 (no channels)" : "Mode 1 (1 channel)");
            QCOMPARE(name, QStringLiteral("Modes"));
            QCOMPARE(lines,
                     QString("Mode 1 (1 channel)%1;Mode 2 (2 channels);Mode 3 (no channels)%2;")
                         .arg(pick == 2 ? "" : "*", pick == 2 ? "*" : ""));
            QCOMPARE(f.table.Rows(), pick == 0 ? 2 : 3);
        }
        QCOMPARE(f.nameondesk.Text(), QStringLiteral("BEAM575-2"));
        const gui::seams::MsgBoxCall why = gui::seams::MsgBoxCalls().back();
        QCOMPARE(why.text,
                 QStringLiteral("This mode cannot fill the pages: the mode \"Mode 3\" has "
                                "no channel. Choose another one."));
        QCOMPARE(why.style.icon, gui::MsgIcon::Warning);
    }
    // Pages that hold something typed are replaced only after a Yes; No is the default. A file
    // that cannot be read leaves them as they were and says why.
    void replaceAsks() {
        QTemporaryDir dir;
        const QString path = dir.filePath("beam.qxf");
        QVERIFY(WriteBytes(path, Qxf("Dim@IntensityDimmer", {"Dim"})));
        MainForm& f = form();
        // A label typed into the cell editor, not yet stored, is something typed too.
        goToPage(2);
        gui::testing::ClickCell(f.table, 1, 7);
        gui::testing::TypeKeys("xBeam");
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::No);
        QVERIFY(!OpenFixtureFile(f, path));
        QCOMPARE(f.table.TextMatrix(1, 7), QStringLiteral("Beam"));
        f.model.setText(QStringLiteral("typed"));
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::No);
        QVERIFY(!OpenFixtureFile(f, path));
        QCOMPARE(f.model.Text(), QStringLiteral("typed"));
        const gui::seams::MsgBoxCall question = gui::seams::MsgBoxCalls().back();
        QCOMPARE(question.style, (gui::MsgStyle{.buttons = gui::MsgButton::Yes | gui::MsgButton::No,
                                                .icon = gui::MsgIcon::Warning,
                                                .defaultButton = gui::MsgButton::No}));
        QVERIFY(question.text.contains(QDir::toNativeSeparators(path)));
        // A folder, a device, a pipe with no writer and a file of 100 MB: refused at once. A QLC+
        // fixture that is no XML at all is refused as XML, not as the other kind of file.
        const QString huge = dir.filePath("huge.qxf");
        QFile big(huge);
        QVERIFY(big.open(QIODevice::WriteOnly) && big.resize(100 << 20));
        QVERIFY(WriteBytes(dir.filePath("junk.qxf"), "no fixture\n"));
        QList<std::pair<QString, QString>> refused = {
            {dir.path(), "it is a folder"},
            {huge, "it is too large"},
            {dir.filePath("junk.qxf"), "line 1: Start tag expected."}};
#ifdef Q_OS_WIN
        // Windows' devices answer to their reserved names in every folder.
        for (const char* device : {"NUL", "CON", "COM1", "nul.qxf"})
            refused.append({dir.filePath(device), "it is no regular file"});
#else
        const QString fifo = dir.filePath("fifo.qxf");
        QVERIFY(mkfifo(fifo.toLocal8Bit().constData(), 0600) == 0);
        refused.append({{"/dev/zero", "it is no regular file"}, {fifo, "it is no regular file"}});
#endif
        for (const auto& [bad, reason] : refused) {
            gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
            QVERIFY(!OpenFixtureFile(f, bad));
            QVERIFY2(gui::seams::MsgBoxCalls().back().text.startsWith(
                         "File " + QDir::toNativeSeparators(bad) + " could not be read: " + reason),
                     qPrintable(gui::seams::MsgBoxCalls().back().text));
            QCOMPARE(f.model.Text(), QStringLiteral("typed"));
        }
    }
    void commandLine_data() {
        QTest::addColumn<QString>("arguments");  // "|" between them
        QTest::addColumn<QString>("parsed");  // action, files, mode, folder, force; or the mistake
        for (const QJsonValue& row : Table("command lines"))
            QTest::newRow(qPrintable(row[0].toString())) << row[1].toString() << row[2].toString();
    }
    void commandLine() {
        QFETCH(QString, arguments);
        QFETCH(QString, parsed);
        const input::CommandLine l =
            input::ParseCommandLine(arguments.split(u'|', Qt::SkipEmptyParts));
        const QString got = l.action == input::CommandLine::Action::kMistake
                                ? l.error
                                : QStringLiteral("%1 %2 %3 %4 %5")
                                      .arg(int(l.action))
                                      .arg(l.files.join(u','), l.mode, l.targetDir)
                                      .arg(int(l.force));
        QCOMPARE(got, parsed);
    }
    // The library commands are for machines without a display: a copy of the program whose
    // qt.conf leads to no plugin at all converts, checks and answers; the wizard itself
    // cannot start so, not even offscreen.
    void commandsNeedNoPlatform() {
        QTemporaryDir dir;
        const QString program = dir.filePath("rigwright");
        QVERIFY(QFile::copy(qEnvironmentVariable("RIGWRIGHT_PROGRAM"), program));
        QVERIFY(WriteBytes(dir.filePath("qt.conf"), "[Paths]\nPlugins = no-plugins\n"));
        const QString qxf = dir.filePath("beam.qxf");
        QVERIFY(WriteBytes(qxf, Qxf("Pan@PositionPan|Dim@IntensityDimmer", {"Pan|Dim"})));
        const QString converted = dir.filePath("lib/Lumenfab-Beam575-Mode1.R20");
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        env.remove("QT_PLUGIN_PATH");
        const QList<std::pair<QStringList, int>> runs = {
            {{"--convert", "--to", dir.filePath("lib"), qxf}, 0},
            {{"--check", converted, qxf}, 0},
            {{"--version"}, 0},
            {{"--help"}, 0},
            {{}, -1}};  // the wizard: no platform, no window
        for (const auto& [arguments, code] : runs) {
            QProcess run;
            run.setProcessEnvironment(env);
            run.start(program, arguments);
            QVERIFY(run.waitForFinished(20000));
            const QString said = run.readAllStandardError();
            const bool exited = run.exitStatus() == QProcess::NormalExit;
            QVERIFY2(code < 0 ? !exited || run.exitCode() != 0
                              : exited && run.exitCode() == code && said.isEmpty(),
                     qPrintable(arguments.join(' ') + ": " + said));
        }
        QVERIFY(QFileInfo(converted).isFile());
    }
    // One writer, one check: a mode converted on the command line is, but for the date and time,
    // the file Finished writes after opening it; the check says what Step 4 says.
    void convertAndCheck() {
        QTemporaryDir dir;
        const QString qxf = dir.filePath("beam.qxf");
        // A mode's name with a line break: the report of it is one line, a blank in its place.
        QVERIFY(WriteBytes(qxf, Qxf("Pan@PositionPan|Dim@IntensityDimmer|Dim 2@IntensityDimmer",
                                    {"Pan|Dim", "Dim|Dim 2|Pan", "Pan|Dim"})
                                    .replace("\"Mode 2\"", "\"Mode&#10;2\"")));
        QVERIFY(WriteBytes(dir.filePath("junk.qxf"), "<?xml version='1.0'?><FixtureDefinition>"));
        const QString out = dir.filePath("lib");
        gui::seams::FixClock(QDateTime(QDate(2026, 11, 24), QTime(22, 1, 2)));
        QString printed, errors;
        QCOMPARE(RunLibraryCommand({"--convert", "--to", out, qxf, dir.filePath("junk.qxf")},
                                   &printed, &errors),
                 1);
        const QString first = out + "/Lumenfab-Beam575-Mode1.R20";
        const auto native = [](const QString& text) { return QDir::toNativeSeparators(text); };
        QCOMPARE(printed, native(first + "\n" + out + "/Lumenfab-Beam575-Mode2.R20\n" + out +
                                 "/Lumenfab-Beam575-Mode3.R20\n"));
        QCOMPARE(errors,
                 native(dir.filePath("junk.qxf") + ": line 1: Premature end of document.\n"));
        QCOMPARE(
            RunLibraryCommand({"--convert", "--to", out, "--mode", "1", qxf}, nullptr, &errors), 1);
        QCOMPARE(errors,
                 native(qxf + " (mode \"Mode 1\"): " + first + " exists; --force replaces it\n"));
        QCOMPARE(RunLibraryCommand({"--convert", "--to", out, "--mode", "1", "--force", qxf}), 0);
        // A file in the folder's place, and a folder where no file can be made, whoever asks:
        // on Windows a share on no server, its reason in the words of the system.
        QList<std::pair<QString, QString>> unwritable = {{qxf + "/lib", "Not a directory"}};
#ifdef Q_OS_WIN
        unwritable.emplace_back("//nohost.invalid/share/lib", "");
#else
        unwritable.emplace_back("/proc", "No such file or directory");
#endif
        for (const auto& [to, why] : unwritable) {
            QCOMPARE(RunLibraryCommand({"--convert", "--to", to, qxf}, &printed, &errors), 1);
            const QString start = "rigwright: cannot write into " + native(to) + ": ";
            QVERIFY2((printed + errors).startsWith(start) && errors.endsWith(u'\n') &&
                         errors.size() > start.size() + 1 && errors.count(u'\n') == 1,
                     qPrintable(printed + errors));
            if (!why.isEmpty()) QCOMPARE(printed + errors, start + why + "\n");
        }

        const QString unnamed = dir.filePath("unnamed.R20");
        QVERIFY(WriteBytes(unnamed, ReadBytes(first).replace("NAME \"Lumenfab\"", "NAME \"\"")));
        QCOMPARE(RunLibraryCommand({"--check", first, unnamed, "--mode", "2", qxf}, &printed), 1);
        QCOMPARE(printed, native(first + ": ok\n" + unnamed + ": Manifacturer cannot be empty!\n" +
                                 qxf + " (mode \"Mode 2\"): ok\n"));
        QCOMPARE(RunLibraryCommand({"--check", first}), 0);

        QVERIFY(OpenFixtureFile(form(), qxf, QStringLiteral("Mode 1")));
        goToPage(3);
        const QString saved = dir.filePath("saved.R20");
        QVERIFY(!SaveFixtureFile(ReadForm(form()), saved, gui::Now()));
        const QByteArray converted = ReadBytes(first);
        QCOMPARE(ReadBytes(saved).replace(native(saved).toUtf8(), native(first).toUtf8()),
                 converted);

        // On a terminal the progress stands again after every line, and nothing of it stays.
        QStringList many;
        for (int i = 0; i < 51; ++i) {
            many << dir.filePath(QStringLiteral("copy%1.qxf").arg(i));
            QVERIFY(QFile::copy(qxf, many.last()));
        }
        QCOMPARE(RunLibraryCommand(QStringList{"--check"} + many, &printed, nullptr, true), 0);
        const QStringList lines = printed.split(u'\n');
        QCOMPARE(lines.size(), 51 * 3 + 1);
        for (const QString& l : lines.mid(3))
            QVERIFY2(QRegularExpression("^(\\r\\d+ of 51)+\\r\\x1b\\[K").match(l).hasMatch(),
                     qPrintable(l));
        QVERIFY(lines.last().endsWith("\x1b[K"));

        // A name made under Latin-1 (no UTF-8; on Windows a name in the code page) opens, and is
        // printed as the bytes it is.
        const QByteArray latin = QFile::encodeName(dir.path()) + "/caf\xe9.qxf";
        std::error_code copied;
        std::filesystem::copy_file(common::SystemPath(qxf),
                                   common::SystemPath(common::FromSystemBytes(latin)), copied);
        QVERIFY2(!copied, copied.message().c_str());
        QCOMPARE(
            RunLibraryCommand({"--check", "--mode", "1", common::FromSystemBytes(latin)}, &printed),
            0);
        QCOMPARE(printed, native(common::FromSystemBytes(latin)) + " (mode \"Mode 1\"): ok\n");

        // A link in the folder is never written through, not even with --force; a file of
        // another fixture keeps its name, run after run. An input named twice is converted once,
        // a fixture file is named by what it holds.
        const QString second = out + "/Lumenfab-Beam575-Mode2.R20";
        const QString third = out + "/Lumenfab-Beam575-Mode3.R20";
        QVERIFY(QFile::remove(second) && QFile::remove(third));
        if (!SymbolicLink(dir.filePath("nowhere.R20"), second))
            QSKIP("This system makes no symbolic links (Wine makes none)");
        QVERIFY(SymbolicLink(saved, third));
        const QByteArray other = converted.sliced(0).replace("\"Lumenfab\"", "\"Lumen fab\"");
        QVERIFY(WriteBytes(first, other));
        const QByteArray savedBytes = ReadBytes(saved);
        const QString linked = " is a symbolic link: left as it is\n";
        QStringList arguments{"--convert", "--to", out, qxf, dir.path() + "/./beam.qxf", unnamed};
        for (int run = 0; run < 2; ++run, arguments << "--force") {
            QCOMPARE(RunLibraryCommand(arguments, &printed, &errors), 1);
            QCOMPARE(printed,
                     out + "/Lumenfab-Beam575-Mode1-2.R20\n" + out + "/_-Beam575-Mode1.R20\n");
            QCOMPARE(errors, qxf +
                                 " (mode \"Mode 1\"): Lumenfab-Beam575-Mode1.R20 holds another "
                                 "fixture; this one is Lumenfab-Beam575-Mode1-2.R20\n" +
                                 qxf + " (mode \"Mode 2\"): " + second + linked + qxf +
                                 " (mode \"Mode 3\"): " + third + linked);
        }
        QVERIFY(!QFileInfo::exists(dir.filePath("nowhere.R20")));
        QCOMPARE(ReadBytes(saved), savedBytes);
        QCOMPARE(ReadBytes(first), other);
    }
    // Files are written a few at a time, yet each mode's lines come in the order of the modes,
    // with the name it would get one after the other, and the file under that name is its own:
    // here 24 modes named alike, a name that holds another file, a link, and a mode in the
    // middle whose file cannot be written, each reported in its place.
    void convertInTurns() {
        QTemporaryDir dir;
        const QString out = dir.filePath("lib"), stem = out + "/Lumenfab-Beam575-Same";
        QStringList channels, modes(24, "C1");
        for (int c = 1; c <= 400; ++c) channels << QStringLiteral("C%1@IntensityDimmer").arg(c);
        // A file of more than 16 KiB; what the command prints, caught in a file too, is less.
        constexpr int kBig = 10;
        modes[kBig] = QStringList(channels).replaceInStrings("@IntensityDimmer", "").join(u'|');
        QString xml = Qxf(channels.join(u'|'), modes);
        QStringList names;  // signs fall away from a file name: one name for all
        const QString signs = QStringLiteral("!#$%()*+,-':;=?@[]^{|}~\u00A7");
        for (int m = 0; m < modes.size(); ++m) {
            names << QStringLiteral("Same ") + signs[m];
            xml.replace(QStringLiteral("\"Mode %1\"").arg(m + 1), '"' + names.last() + '"');
        }
        const QString qxf = dir.filePath("beam.qxf");
        QVERIFY(WriteBytes(qxf, xml.toUtf8()));
        QVERIFY(QDir().mkpath(out) && WriteBytes(stem + "-3.R20", "no fixture"));
        // Wine makes no symbolic links, and only POSIX limits the size of a file a program
        // writes: there the sixth name is free and the large file is written.
        const bool linked = SymbolicLink(dir.filePath("nowhere.R20"), stem + "-6.R20");
#ifdef Q_OS_WIN
        const bool limited = false;
#else
        const bool limited = true;
#endif

        QString expected;
        for (int m = 0, n = 1; m < modes.size(); ++m, ++n) {
            n += n == 3;
            const QString file = stem + (n > 1 ? QStringLiteral("-%1.R20").arg(n) : ".R20");
            const QString job = qxf + " (mode \"" + names[m] + "\"): ";
            if (n == 6 && linked) {
                expected += job + file + " is a symbolic link: left as it is\n";
            } else if (m == kBig && limited) {
                expected += job + file + " could not be written: File too large\n";
            } else {
                if (m > 0)
                    expected += job +
                                "Lumenfab-Beam575-Same.R20 holds another fixture; this one is " +
                                QFileInfo(file).fileName() + "\n";
                expected += file + "\n";
            }
        }
#ifndef Q_OS_WIN
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{16384, limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
#endif
        QString printed;
        const int code =
            RunLibraryCommand({"--convert", "--to", out, qxf}, &printed, nullptr, true);
#ifndef Q_OS_WIN
        setrlimit(RLIMIT_FSIZE, &limit);
#endif
        QCOMPARE(code, linked || limited ? 1 : 0);
        QCOMPARE(printed, QDir::toNativeSeparators(expected));
        for (const QString& line : printed.split(u'\n'))
            if (line.startsWith(QDir::toNativeSeparators(stem)))
                QVERIFY2(ReadBytes(line).contains("; file " + line.toUtf8() + " saved "),
                         qPrintable(line));
        QCOMPARE(QDir(out).entryList({".rigwright-*"}, QDir::Files | QDir::Hidden), {});
    }
    // Names in a library: letters without their accents, never hidden, never too long for a file
    // system, and the messages about them short enough to read.
    void libraryNames_data() {
        QTest::addColumn<QString>("names");  // manufacturer, model and mode, "|" between them
        QTest::addColumn<QString>("file");
        QTest::newRow("accents") << "\u00DCn\u00EFc\u00F8d\u00E9 Stra\u00DFe|\u00D8re \u00C6on|"
                                    "\u0141\u00F3d\u017A \uFB01x \u00F0"
                                 << "UnicodeStrasse-OreAEon-Lodzfixd.R20";
        QTest::newRow("hidden") << ".hidden|Beam|Mode 1"
                                << "hidden-Beam-Mode1.R20";
        QTest::newRow("only dots") << "..|Beam|Mode 1"
                                   << "_-Beam-Mode1.R20";
        const QString a300(300, u'A');
        QTest::newRow("too long") << a300 + "|Beam|" + QString(300, u'\u00E9')
                                  << QString(236, u'A') + "-6a5c0bb8.R20";
        QTest::newRow("too long, another end")
            << a300 + "B|Beam|Mode 1" << QString(236, u'A') + "-cb2ecb24.R20";
    }
    void libraryNames() {
        QFETCH(QString, names);
        QFETCH(QString, file);
        const QStringList n = names.split(u'|');
        QTemporaryDir dir;
        const QString qxf = dir.filePath("beam.qxf"), out = dir.filePath("lib");
        QVERIFY(WriteBytes(qxf, Qxf("Dim@IntensityDimmer", {"Dim"})
                                    .replace("Lumenfab", n[0].toUtf8())
                                    .replace("Beam 575", n[1].toUtf8())
                                    .replace("\"Mode 1\"", '"' + n[2].toUtf8() + '"')));
        QString printed, errors;
        QCOMPARE(RunLibraryCommand({"--convert", "--to", out, qxf}, &printed), 0);
        QCOMPARE(printed, QDir::toNativeSeparators(out + u'/' + file + u'\n'));
        QCOMPARE(RunLibraryCommand({"--convert", "--to", out, qxf}, nullptr, &errors), 1);
        QVERIFY2(errors.trimmed().size() < 200 && errors.endsWith(" exists; --force replaces it\n"),
                 qPrintable(errors));
    }
};

RIGWRIGHT_TEST_CLASS(TestQxf)
#include "test_qxf.moc"
