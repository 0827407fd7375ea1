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

// Files that are read, and what is read of them: device, manufacturer, model, kind, pan, tilt,
// patch text, then the rows of the grid with "|" between cells and "/" between rows; files
// that are refused, and why.
void TestInput::read_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QString& name, const QByteArray& bytes, const QString& expected) {
        QTest::newRow(qPrintable(name)) << bytes << expected;
    };
    const QString pages = QStringLiteral("BEAM575|Lf|B 5|2|540|270|hello|");
    for (const QJsonValue& r : data("channel lines").toArray())
        row(r[0].toString(),
            Head() + r[1].toString().toUtf8().replace('/', "\r\n") + "\r\n" + Tail(),
            pages + r[2].toString());
    const QByteArray file = Head() + kLine + Tail();
    const QString tilt = pages + "#|1|0|FADEABLE LTP|F>|3|1|Tilt|1|N|100|128|0|0|default";
    row("as written", file, tilt);
    row("LF alone ends lines", QByteArray(file).replace("\r\n", "\n"), tilt);
    row("no end behind the last line", file.chopped(2), tilt);
    row("comment lines in CR CR LF",
        "; a\r\r\n; b\r\r\n" + Head().mid(Head().indexOf("; \r\n")) + Tail(), pages);
    row("blanks and quotes in the names", Head("  A B", "\"x\" \"y\" \"z\"", "0 5 4 x") + Tail(),
        "  A B|x|y\" \"z|0|5|4 x|hello|");
    row("the split that fits 30 characters",
        Head("D", "\"a\" \"b\" \"" + QByteArray(28, 'c') + '"') + Tail(),
        "D|a\" \"b|" + QString(28, u'c') + "|2|540|270|hello|");
    row("empty names, code page text", Head("", "\"\" \"\x80\xE9\"", "1 180 90") + Tail(),
        "||\u20AC\u00E9|1|180|90|hello|");
    row("a line END inside the patch text", Head() + Tail("\r\nEND\r\nATTR\r\nobsolete\r\nEND\r\n"),
        "BEAM575|Lf|B 5|2|540|270|\r\nEND\r\nATTR\r\nobsolete\r\nEND\r\n|");

    const auto refused = [&](const char* name, const QByteArray& bytes, int line, const char* why) {
        row(name, bytes, "line " + QString::number(line) + ": " + why);
    };
    refused("junk", "hello\r\nworld\r\n", 1, "DEVICE expected");
    refused("no NAME", Head().replace("NAME", "NOME") + Tail(), 8, "NAME expected");
    refused("kind 3", Head("D", "\"a\" \"b\"", "3 1 1") + Tail(), 12,
            "MIRROR needs a kind of 0, 1 or 2, pan and tilt");
    refused("no MIRROR, DMX comes", Head().replace("MIRROR", "MIRRORS") + Tail(), 30,
            "MIRROR expected");
    refused("no DMX", Head().chopped(5) + "; \r\n", 31, "DMX expected");
    refused("DMX without END", Head() + kLine, 32, "the DMX section has no END");
    refused("channel line too short", Head() + kLine + "3 1 L 2\r\n" + Tail(), 32,
            "not a channel line: it has fewer than 8 fields before the label");
    refused("letter", Head() + "3 1 X 1 100 1N F 1 \"T\" 0 0 0  ;\r\n" + Tail(), 31,
            "unknown channel type letter \"X\"");
    refused(
        "label longer than 12", Head() + "3 1 L 1 1 1N F 1 \"abcdefghijklm\" 0 0 0  ;\r\n" + Tail(),
        31,
        "not a channel line: no label of at most 12 characters is followed by locate, highlight, "
        "lowlight and the comment");
    refused("16-bit without its low byte line",
            Head() + "3 1 s 1 100 1N F 1 \"T\" 0 0 0  ;\r\n" + kLine + Tail(), 31,
            "the 16-bit channel has no low byte line behind it");
    refused("unreadable byte", Head("D\x81") + Tail(), 7, "unreadable bytes");
    refused("no TEXT", Head() + "END\r\n; \r\n", 33, "TEXT expected");
    refused("TEXT without END", Head() + "END\r\nTEXT\r\nabc\r\n", 34,
            "the TEXT section has no END");
}

void TestInput::read() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const input::ReadOutcome outcome = input::ReadFixtureBytes(bytes);
    const input::FixtureFile f = outcome.fixture.value_or(input::FixtureFile());
    QStringList read = {f.nameOnDesk, f.manufacturer, f.model,     QString::number(f.mirrorKind),
                        f.pan,        f.tilt,         f.patchText, QString()};
    for (const QStringList& cells : f.channelRows) read.last() += cells.join(u'|') + u'/';
    read.last().chop(1);
    QCOMPARE(outcome.fixture ? read.join(u'|') : outcome.error, expected);
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
