#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include "input/channel_lines.h"
#include "input/command_line.h"
#include "input/fixture_reader.h"
#include "input_test.h"

namespace {

// The head of a file as the writer puts it, up to and with the line DMX, line 30.
QByteArray Head(const QByteArray& device = "BEAM575", const QByteArray& name = "\"Lf\" \"B 5\"",
                const QByteArray& mirror = "2 540 270") {
    return "; 11-23-2026 10:00:00 Lf B 5- Created with Tolvane - Rigwright\r\n; \r\n; \r\n"
           "; file /tmp/x.R20 saved 11-23-202610:00:00\r\n; \r\n; \r\nDEVICE " +
           device + "\r\nNAME " + name + "\r\n; \r\nTYPE 1 4 M\r\n; \r\nMIRROR " + mirror +
           "\r\n; \r\nDEVICEADDRESS\r\n\"Handle %2d\"h\r\n\"Fixture %11s\"n\r\n\"DMX %03d\"d\r\n"
           "\"\"\r\n\"\"\r\n\"Set to 4 DMX, 8bit\"\r\n\"\"\r\n\"\"\r\nDAEND\r\n; \r\nMINDMX=1\r\n"
           "MAXDMX=508\r\nDIVBY=1\r\n; \r\n; \r\nDMX\r\n";
}

QByteArray Tail(const QByteArray& patch = "hello") {
    return "END\r\n; \r\n; \r\nTEXT\r\n" + patch +
           "\r\nEND\r\nATTR\r\nobsolete\r\nEND\r\n; \r\n; \r\n";
}

const QByteArray kLine = "3 1 L 1 100 1N F 1 \"Tilt\" 128 0 0  ;default\r\n";

}  // namespace

QJsonValue TestInput::data(const char* name) {
    QFile file(dataPath(QStringLiteral("input_tables.json")));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll())[name]
                                          : QJsonValue();
}

void TestInput::addRows(const char* table) {
    QVERIFY(data(table).isArray());
    for (const QJsonValue& row : data(table).toArray()) {
        QTestData& added = QTest::newRow(qPrintable(row[0].toString()));
        for (qsizetype i = 1; i < row.toArray().size(); ++i) added << row[i].toString();
    }
}

void TestInput::channelLines_data() {
    QTest::addColumn<QString>("lines");  // "/" between lines
    QTest::addColumn<QString>("rows");   // cells 0 to 14 with "|", "/" between rows
    addRows("channel lines");
}

void TestInput::channelLines() {
    QFETCH(QString, lines);
    QFETCH(QString, rows);
    input::ChannelRows reader;
    int number = 0;
    for (const QString& line : lines.split(u'/')) QCOMPARE(reader.add(line, ++number), QString());
    QCOMPARE(reader.finish(), QString());
    QStringList got;
    for (const QStringList& cells : reader.rows()) got.append(cells.join(u'|'));
    QCOMPARE(got.join(u'/'), rows);
}

void TestInput::wholeFile_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");  // device|manufacturer|model|kind|pan|tilt|patch
    const QByteArray file = Head() + kLine + Tail();
    const QString read = QStringLiteral("BEAM575|Lf|B 5|2|540|270|hello");
    QTest::newRow("as written") << file << read;
    QTest::newRow("LF alone ends lines") << QByteArray(file).replace("\r\n", "\n") << read;
    QTest::newRow("no end behind the last line") << file.chopped(2) << read;
    QTest::newRow("comment lines in CR CR LF")
        << "; a\r\r\n; b\r\r\n" + Head().mid(Head().indexOf("; \r\n")) + Tail() << read;
    QTest::newRow("blanks and quotes in the names")
        << Head("  A B", "\"x\" \"y\" \"z\"", "0 5 4 x") + Tail()
        << "  A B|x|y\" \"z|0|5|4 x|hello";
    QTest::newRow("the split that fits 30 characters")
        << Head("D", "\"a\" \"b\" \"" + QByteArray(28, 'c') + '"') + Tail()
        << "D|a\" \"b|" + QString(28, u'c') + "|2|540|270|hello";
    QTest::newRow("empty names, code page text")
        << Head("", "\"\" \"\x80\xE9\"", "1 180 90") + Tail() << "||\u20AC\u00E9|1|180|90|hello";
    QTest::newRow("a line END inside the patch text")
        << Head() + Tail("\r\nEND\r\nATTR\r\nobsolete\r\nEND\r\n")
        << "BEAM575|Lf|B 5|2|540|270|\r\nEND\r\nATTR\r\nobsolete\r\nEND\r\n";
}

void TestInput::wholeFile() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const input::ReadOutcome outcome = input::ReadFixtureBytes(bytes);
    QVERIFY2(outcome.fixture, qPrintable(outcome.error));
    const input::FixtureFile& f = *outcome.fixture;
    QCOMPARE(QStringList({f.nameOnDesk, f.manufacturer, f.model, QString::number(f.mirrorKind),
                          f.pan, f.tilt, f.patchText})
                 .join(u'|'),
             expected);
}

void TestInput::refused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QByteArray& bytes, int line, const char* error) {
        QTest::newRow(name) << bytes << "line " + QString::number(line) + ": " + error;
    };
    row("junk", "hello\r\nworld\r\n", 1, "DEVICE expected");
    row("no NAME", Head().replace("NAME", "NOME") + Tail(), 8, "NAME expected");
    row("kind 3", Head("D", "\"a\" \"b\"", "3 1 1") + Tail(), 12,
        "MIRROR needs a kind of 0, 1 or 2, pan and tilt");
    row("no MIRROR, DMX comes", Head().replace("MIRROR", "MIRRORS") + Tail(), 30,
        "MIRROR expected");
    row("no DMX", Head().chopped(5) + "; \r\n", 31, "DMX expected");
    row("DMX without END", Head() + kLine, 32, "the DMX section has no END");
    row("channel line too short", Head() + kLine + "3 1 L 2\r\n" + Tail(), 32,
        "not a channel line: it has fewer than 8 fields before the label");
    row("letter", Head() + "3 1 X 1 100 1N F 1 \"T\" 0 0 0  ;\r\n" + Tail(), 31,
        "unknown channel type letter \"X\"");
    row("label longer than 12", Head() + "3 1 L 1 1 1N F 1 \"abcdefghijklm\" 0 0 0  ;\r\n" + Tail(),
        31,
        "not a channel line: no label of at most 12 characters is followed by locate, highlight, "
        "lowlight and the comment");
    row("16-bit without its low byte line",
        Head() + "3 1 s 1 100 1N F 1 \"T\" 0 0 0  ;\r\n" + kLine + Tail(), 31,
        "the 16-bit channel has no low byte line behind it");
    row("unreadable byte", Head("D\x81") + Tail(), 7, "unreadable bytes");
    row("no TEXT", Head() + "END\r\n; \r\n", 33, "TEXT expected");
    row("TEXT without END", Head() + "END\r\nTEXT\r\nabc\r\n", 34, "the TEXT section has no END");
}

void TestInput::refused() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    const input::ReadOutcome outcome = input::ReadFixtureBytes(bytes);
    QVERIFY(!outcome.fixture);
    QCOMPARE(outcome.error, error);
}

void TestInput::commandLine_data() {
    QTest::addColumn<QString>("arguments");  // "|" between them
    QTest::addColumn<QString>("action");     // run, help, version or mistake
    QTest::addColumn<QString>("file");
    addRows("command lines");
}

void TestInput::commandLine() {
    QFETCH(QString, arguments);
    QFETCH(QString, action);
    QFETCH(QString, file);
    const input::CommandLine line =
        input::ParseCommandLine(arguments.split(u'|', Qt::SkipEmptyParts));
    QCOMPARE(int(line.action), QStringList({"run", "help", "version", "mistake"}).indexOf(action));
    QCOMPARE(line.file, file);
}
