#include <QTest>

#include "input/channel_lines.h"
#include "input/command_line.h"
#include "input/fixture_reader.h"
#include "input_test.h"

namespace {

// The head of a file as the writer puts it, up to and with the line DMX.
QByteArray Head(const QByteArray& device = "BEAM575", const QByteArray& name = "\"Lf\" \"B 5\"",
                const QByteArray& mirror = "2 540 270") {
    return "; 11-23-2026 10:00:00 Lf B 5- Created with Tolvane - Rigwright\r\n; \r\n; \r\n"
           "; file /tmp/x.R20 saved 11-23-202610:00:00\r\n; \r\n; \r\nDEVICE " +
           device + "\r\nNAME " + name + "\r\n; \r\nTYPE 1 4 M\r\n; \r\nMIRROR " + mirror +
           "\r\n; \r\nDEVICEADDRESS\r\n\"Handle %2d\"h\r\n\"Fixture %11s\"n\r\n\"DMX %03d\"d\r\n"
           "\"\"\r\n\"\"\r\n\"Set to 4 DMX, 8bit\"\r\n\"\"\r\n\"\"\r\nDAEND\r\n; \r\nMINDMX=1\r\n"
           "MAXDMX=508\r\nDIVBY=1\r\n; \r\n; \r\nDMX\r\n";
}
constexpr int kDmxLine = 30;  // the line DMX of Head()

QByteArray Tail(const QByteArray& patch = "hello") {
    return "END\r\n; \r\n; \r\nTEXT\r\n" + patch +
           "\r\nEND\r\nATTR\r\nobsolete\r\nEND\r\n; \r\n; \r\n";
}

QString Rows(const input::FixtureFile& file) {
    QStringList rows;
    for (const QStringList& cells : file.channelRows) rows.append(cells.join(u'|'));
    return rows.join(u'/');
}

}  // namespace

void TestInput::channelLines_data() {
    QTest::addColumn<QString>("lines");  // "/" between lines
    QTest::addColumn<QString>("rows");   // cells 0 to 14 with "|", "/" between rows
    const QString pan = "|E>|3|61|Pan|1|N|100|128|0|0|default";
    QTest::newRow("fadeable 16-bit pair") << "3 61 s 1 100 1N E 1 \"Pan\" 128 0 0  ;default/"
                                             "0 0 L 2 100 1N E 1 \"Pan\" 128 0 0  ;default"
                                          << "#|1|2|FADEABLE LTP" + pan;
    QTest::newRow("htp 16-bit: no letter, then H")
        << "3 61  1 100 1N E 1 \"Pan\" 128 0 0  ;default/0 0 H 2 100 1N E 1 \"Pan\" 128 0 0  "
           ";default"
        << "#|1|2|HTP (usually dimmer)" + pan;
    QTest::newRow("no type 16-bit") << "3 61  1 100 1N E 1 \"Pan\" 128 0 0  ;default/0 0  2 100 1N "
                                       "E 1 \"Pan\" 128 0 0  ;default"
                                    << "#|1|2|" + pan;
    QTest::newRow("8-bit letters")
        << "3 61 L 1 100 1N E 1 \"Pan\" 128 0 0  ;default/3 61 I 2 100 1N E 1 \"Pan\" 128 0 0  ;"
           "default/3 61 H 3 100 1N E 1 \"Pan\" 128 0 0  ;default"
        << "#|1|0|FADEABLE LTP" + pan + "/#|2|0|INDEXED LTP (not fadeable, such as gobo)" + pan +
               "/#|3|0|HTP (usually dimmer)" + pan;
    QTest::newRow("0 0 behind an 8-bit line is a row of its own")
        << "3 61 L 1 100 1N E 1 \"Pan\" 128 0 0  ;default/0 0 L 2 100 1N E 1 \"Pan\" 128 0 0  "
           ";default"
        << "#|1|0|FADEABLE LTP" + pan + "/#|2|0|FADEABLE LTP|E>|0|0|Pan|1|N|100|128|0|0|default";
    QTest::newRow("0 0 with another tail is a row of its own")
        << "3 61  1 100 1N E 1 \"Pan\" 128 0 0  ;a/0 0 H 2 100 1N E 1 \"Pan\" 128 0 0  ;b"
        << "#|1|0||E>|3|61|Pan|1|N|100|128|0|0|a/#|2|0|HTP (usually dimmer)|E>|0|0|Pan|1|N|100|128|"
           "0|0|b";
    QTest::newRow("fresh row: every field empty") << "       1 \"\" 0 0 0  ;"
                                                  << "#||0|||||||||0|0|0|";
    QTest::newRow("label with quotes, blanks and semicolons")
        << "1 1 L 4 75 2C T 1 \"a\" 0 0 0  ;x\" 5 5 5  ;tail"
        << "#|4|0|FADEABLE LTP|T>|1|1|a|2|C|75|0|0|0|x\" 5 5 5  ;tail";
    QTest::newRow("twelve characters, the rest is the comment")
        << "1 1 L 4 75 12C T 1 \"Gobo wheel r\" -1 12 255  ;my \"note\"; x"
        << "#|4|0|FADEABLE LTP|T>|1|1|Gobo wheel r|12|C|75|-1|12|255|my \"note\"; x";
}

void TestInput::channelLines() {
    QFETCH(QString, lines);
    QFETCH(QString, rows);
    input::ChannelRows reader;
    int number = 0;
    for (const QString& line : lines.split(u'/')) QCOMPARE(reader.add(line, ++number), QString());
    QCOMPARE(reader.finish(), QString());
    input::FixtureFile file;
    file.channelRows = reader.rows();
    QCOMPARE(Rows(file), rows);
}

void TestInput::wholeFile_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");  // device|manufacturer|model|kind|pan|tilt|patch
    const QByteArray line = "3 1 L 1 100 1N F 1 \"Tilt\" 128 0 0  ;default\r\n";
    QTest::newRow("as written") << Head() + line + Tail() << "BEAM575|Lf|B 5|2|540|270|hello";
    QByteArray lf = Head() + line + Tail();
    lf.replace("\r\n", "\n");
    QTest::newRow("LF alone ends lines") << lf << "BEAM575|Lf|B 5|2|540|270|hello";
    QTest::newRow("no end behind the last line")
        << (Head() + line + Tail()).chopped(2) << "BEAM575|Lf|B 5|2|540|270|hello";
    QTest::newRow("comment lines in CR CR LF")
        << "; a\r\r\n; b\r\r\n" + Head().mid(Head().indexOf("; \r\n")) + Tail()
        << "BEAM575|Lf|B 5|2|540|270|hello";
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
        << "BEAM575|Lf|B 5|2|540|270|"
           "\r\nEND\r\nATTR\r\nobsolete"
           "\r\nEND\r\n";
}

void TestInput::wholeFile() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const input::ReadOutcome outcome = input::ReadFixtureBytes(bytes);
    QVERIFY2(outcome.fixture, qPrintable(outcome.error));
    const input::FixtureFile& f = *outcome.fixture;
    const QStringList got = {
        f.nameOnDesk, f.manufacturer, f.model,    QString::number(f.mirrorKind),
        f.pan,        f.tilt,         f.patchText};
    QCOMPARE(got.join(u'|'), expected);
}

void TestInput::refused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    const QByteArray ok = "3 1 L 1 100 1N F 1 \"Tilt\" 128 0 0  ;default\r\n";
    const QString channel = QString::number(kDmxLine + 1);
    QTest::newRow("junk") << QByteArray("hello\r\nworld\r\n") << "line 1: DEVICE expected";
    QTest::newRow("no NAME") << Head().replace("NAME", "NOME") + Tail() << "line 8: NAME expected";
    QTest::newRow("kind 3") << Head("D", "\"a\" \"b\"", "3 1 1") + Tail()
                            << "line 12: MIRROR needs a kind of 0, 1 or 2, pan and tilt";
    QTest::newRow("no MIRROR, DMX comes")
        << Head().replace("MIRROR", "MIRRORS") + Tail() << "line 30: MIRROR expected";
    QTest::newRow("no DMX") << Head().chopped(5) + "; \r\n"
                            << "line 31: DMX expected";
    QTest::newRow("DMX without END")
        << Head() + ok << "line " + QString::number(kDmxLine + 2) + ": the DMX section has no END";
    QTest::newRow("channel line too short")
        << Head() + ok + "3 1 L 2\r\n" + Tail()
        << "line " + QString::number(kDmxLine + 2) +
               ": not a channel line: it has fewer than 8 fields before the label";
    QTest::newRow("letter") << Head() + "3 1 X 1 100 1N F 1 \"T\" 0 0 0  ;\r\n" + Tail()
                            << "line " + channel + ": unknown channel type letter \"X\"";
    QTest::newRow("label longer than 12")
        << Head() + "3 1 L 1 1 1N F 1 \"abcdefghijklm\" 0 0 0  ;\r\n" + Tail()
        << "line " + channel +
               ": not a channel line: no label of at most 12 "
               "characters is followed by locate, highlight, "
               "lowlight and the comment";
    QTest::newRow("16-bit without its low byte line")
        << Head() + "3 1 s 1 100 1N F 1 \"T\" 0 0 0  ;\r\n" + ok + Tail()
        << "line " + channel + ": the 16-bit channel has no low byte line behind it";
    QTest::newRow("unreadable byte") << Head("D\x81") + Tail() << "line 7: unreadable bytes";
    QTest::newRow("no TEXT") << Head() + "END\r\n; \r\n"
                             << "line 33: TEXT expected";
    QTest::newRow("TEXT without END") << Head() + "END\r\nTEXT\r\nabc\r\n"
                                      << "line 34: the TEXT section has no END";
}

void TestInput::refused() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    const input::ReadOutcome outcome = input::ReadFixtureBytes(bytes);
    QVERIFY(!outcome.fixture);
    QCOMPARE(outcome.error, error);
}

void TestInput::commandLine_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("file");
    using A = input::CommandLine::Action;
    QTest::newRow("none") << QStringList{} << int(A::kRun) << "";
    QTest::newRow("one file") << QStringList{"a.R20"} << int(A::kRun) << "a.R20";
    QTest::newRow("help wins") << QStringList{"a.R20", "--help"} << int(A::kHelp) << "";
    QTest::newRow("two files") << QStringList{"a.R20", "b.R20"} << int(A::kMistake) << "";
    QTest::newRow("unknown option") << QStringList{"-x"} << int(A::kMistake) << "";
    QTest::newRow("Qt's own option") << QStringList{"-platform", "xcb"} << int(A::kMistake) << "";
    QTest::newRow("a name that starts with -")
        << QStringList{"--", "-a.R20"} << int(A::kRun) << "-a.R20";
}

void TestInput::commandLine() {
    QFETCH(QStringList, arguments);
    QFETCH(int, action);
    QFETCH(QString, file);
    const input::CommandLine line = input::ParseCommandLine(arguments);
    QCOMPARE(int(line.action), action);
    QCOMPARE(line.file, file);
}
