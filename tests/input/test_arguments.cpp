// What the files named on the command line stand for: a folder for the fixture files under it,
// a pattern for its matches where no shell matched it, each in an order that every run and
// every platform gives alike, each path printed as the system writes it; and no command waits
// on what a console user cannot answer.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

#include "common/system_names.h"
#include "input/file_arguments.h"
#include "support/form_fixture.h"

namespace {

// A QLC+ fixture of one mode, "Basic", with one dimmer channel: no advice at the check.
QByteArray Qxf(const QString& model) {
    return QStringLiteral(
               "<?xml version='1.0' encoding='UTF-8'?>\n"
               "<FixtureDefinition xmlns=\"http://www.qlcplus.org/FixtureDefinition\">\n"
               " <Manufacturer>Lumenfab</Manufacturer>\n <Model>%1</Model>\n"
               " <Type>Dimmer</Type>\n <Channel Name=\"Dim\" Preset=\"IntensityDimmer\"/>\n"
               " <Mode Name=\"Basic\">\n  <Channel Number=\"0\">Dim</Channel>\n </Mode>\n"
               "</FixtureDefinition>\n")
        .arg(model)
        .toUtf8();
}

// A library as people keep one, in a fresh folder that is the working folder while it lives,
// so that the names in the tests are short and the same on every machine.
class Library {
  public:
    Library() : previous_(QDir::currentPath()) {
        QDir::setCurrent(dir_.path());
        for (const char* file :
             {"lib/a1.qxf", "lib/a2.qxf", "lib/ab.qxf", "lib/abc.qxf", "lib/B2.qxf",
              "lib/.hidden.qxf", "lib/.git/x.qxf", "lib/Martin/MAC 700.qxf",
              "lib/Martin/mac250.QXF", "lib/Robe Lighting/Robin 600.qxf"}) {
            QDir().mkpath(QFileInfo(file).path());
            WriteBytes(file, Qxf(QFileInfo(file).completeBaseName()));
        }
        QDir().mkpath("lib/empty");
        for (const char* other :
             {"lib/Robe Lighting/notes.txt", "lib/Robe Lighting/Robin.qxf.bak", "lib/empty/a.txt"})
            WriteBytes(other, "not a fixture");
#ifndef Q_OS_WIN
        // Links, which only POSIX systems make without privileges: one back to its own folder,
        // one to a folder beside, and a name with a star in it, which only they allow.
        QFile::link(".", "lib/Martin/back");
        QFile::link("../Martin", "lib/Robe Lighting/martin");
        QDir().mkpath("stars");
        WriteBytes("stars/odd*name.qxf", Qxf("Odd"));
        // A name made under Latin-1, no UTF-8: found in its folder and opened by its bytes.
        QDir().mkpath("latin");
        if (std::FILE* latin = std::fopen("latin/caf\xe9.qxf", "wb")) {
            const QByteArray bytes = Qxf("Cafe");
            std::fwrite(bytes.constData(), 1, bytes.size(), latin);
            std::fclose(latin);
        }
#endif
    }
    ~Library() {
        QDir::setCurrent(previous_);
    }

  private:
    QTemporaryDir dir_;
    QString previous_;
};

// The text as this platform writes its paths: on Windows with backslashes.
QString Native(QString text) {
#ifdef Q_OS_WIN
    text.replace(u'/', u'\\');
#endif
    return text;
}

}  // namespace

class TestArguments : public QObject {
    Q_OBJECT
  private slots:
    // "|" between arguments and between the files they stand for; a file's error behind ": ".
    void filesOfArguments_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<bool>("match");
        QTest::addColumn<QString>("files");
        const QString martin = "lib/Martin/MAC 700.qxf|lib/Martin/mac250.QXF";
        const QString robe = "lib/Robe Lighting/Robin 600.qxf";
        QTest::newRow("a folder, its folders, sorted without regard to case")
            << "lib" << false
            << "lib/a1.qxf|lib/a2.qxf|lib/ab.qxf|lib/abc.qxf|lib/B2.qxf|" + martin + u'|' + robe;
        QTest::newRow("a folder written with its slash") << "lib/Martin/" << false << martin;
#ifndef Q_OS_WIN
        // The loop back is walked no further; the link beside is walked where it stands.
        QTest::newRow("links to folders")
            << "lib/Robe Lighting" << false
            << "lib/Robe Lighting/martin/MAC 700.qxf|lib/Robe Lighting/martin/mac250.QXF|" + robe;
#endif
        QTest::newRow("a folder with no fixture file")
            << "lib/empty" << false << "lib/empty: no fixture file (.qxf or .R20) in this folder";
        QTest::newRow("names in the order given, there or not")
            << "lib/zz.qxf|lib/a1.qxf" << true << "lib/zz.qxf|lib/a1.qxf";
        QTest::newRow("star") << "lib/a*.qxf" << true
                              << "lib/a1.qxf|lib/a2.qxf|lib/ab.qxf|lib/abc.qxf";
        QTest::newRow("question mark")
            << "lib/a?.qxf" << true << "lib/a1.qxf|lib/a2.qxf|lib/ab.qxf";
        QTest::newRow("left as typed where the shell matches")
            << "lib/a*.qxf" << false << "lib/a*.qxf";
        QTest::newRow("no match") << "lib/z*.qxf|lib/a1.qxf" << true << "lib/z*.qxf|lib/a1.qxf";
        QTest::newRow("folder parts and blanks")
            << "lib/Robe*/R?bin *.qxf" << true << "lib/Robe Lighting/Robin 600.qxf";
        QTest::newRow("hidden names only when asked for")
            << "lib/.h*|lib/*.git" << true << "lib/.hidden.qxf|lib/*.git";
        QTest::newRow("a matched folder stands for its files") << "lib/Mar*" << true << martin;
#ifdef Q_OS_WIN
        // File names on Windows are the same in any case.
        QTest::newRow("case") << "lib/martin/m*.qxf" << true
                              << "lib/martin/MAC 700.qxf|lib/martin/mac250.QXF";
        QTest::newRow("every folder")
            << "lib/*/*.qxf" << true
            << "lib/Martin/MAC 700.qxf|lib/Martin/mac250.QXF|lib/Robe Lighting/Robin 600.qxf";
#else
        QTest::newRow("case") << "lib/Martin/m*.qxf" << true << "lib/Martin/m*.qxf";
        QTest::newRow("every folder")
            << "lib/*/*.qxf" << true << "lib/Martin/MAC 700.qxf|lib/Robe Lighting/Robin 600.qxf";
        QTest::newRow("a star in a name") << "stars/odd*name.qxf" << false << "stars/odd*name.qxf";
#endif
        QTest::newRow("from the root")
            << "{cwd}/lib/ab*" << true << "{cwd}/lib/ab.qxf|{cwd}/lib/abc.qxf";
    }
    void filesOfArguments() {
        QFETCH(QString, arguments);
        QFETCH(bool, match);
        QFETCH(QString, files);
        const Library library;
        const QString cwd = QDir::currentPath();
        QStringList got;
        // Typed as the system writes paths, read back in Qt's own form.
        const QStringList typed = Native(arguments.replace("{cwd}", cwd)).split(u'|');
        for (const input::NamedFile& file : input::FilesOfArguments(typed, match))
            got << QDir::fromNativeSeparators(file.path) +
                       (file.error.isEmpty() ? QString() : ": " + file.error);
        QCOMPARE(got.join(u'|'), files.replace("{cwd}", cwd));
    }

    // The commands take folders and patterns as they take files; each file is named as the
    // system writes paths.
    void commands_data() {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<bool>("match");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("printed");
        QTest::addColumn<QString>("errors");
        const auto ok = [](const QStringList& files) {
            QString lines;
            for (const QString& file : files) lines += file + " (mode \"Basic\"): ok\n";
            return lines;
        };
        QTest::newRow("check a folder")
            << "--check|lib/Martin" << false << 0
            << ok({"lib/Martin/MAC 700.qxf", "lib/Martin/mac250.QXF"}) << "";
        QTest::newRow("check a folder with no fixture file")
            << "--check|lib/empty|lib/ab.qxf" << false << 1 << ok({"lib/ab.qxf"})
            << "lib/empty: no fixture file (.qxf or .R20) in this folder\n";
        QTest::newRow("check a pattern") << "--check|lib/a?.qxf" << true << 0
                                         << ok({"lib/a1.qxf", "lib/a2.qxf", "lib/ab.qxf"}) << "";
        QTest::newRow("a pattern that matches nothing")
            << "--check|lib/z*.qxf" << true << 1 << ""
            << "lib/z*.qxf: No such file or directory\n";
        QTest::newRow("convert a folder")
            << "--convert|--to|out|lib/Martin" << false << 0
            << "{cwd}/out/Lumenfab-MAC700-Basic.R20\n{cwd}/out/Lumenfab-mac250-Basic.R20\n"
            << "";
        QTest::newRow("convert patterns in folders")
            << "--convert|--to|out|lib/R*/*.qxf" << true << 0
            << "{cwd}/out/Lumenfab-Robin600-Basic.R20\n"
            << "";
#ifndef Q_OS_WIN
        QTest::newRow("a star in a name")
            << "--check|stars/odd*name.qxf" << false << 0 << ok({"stars/odd*name.qxf"}) << "";
        QTest::newRow("a name in no UTF-8")
            << "--check|latin" << false << 0 << ok({common::FromSystemBytes("latin/caf\xe9.qxf")})
            << "";
#endif
    }
    void commands() {
        QFETCH(QString, arguments);
        QFETCH(bool, match);
        QFETCH(int, code);
        QFETCH(QString, printed);
        QFETCH(QString, errors);
        const Library library;
        const QString cwd = QDir::currentPath();
        QString out, err;
        const int ran = RunLibraryCommand(Native(arguments).split(u'|'), &out, &err, false, match);
        QCOMPARE(out, Native(printed.replace("{cwd}", cwd)));
        QCOMPARE(err, Native(errors));
        QCOMPARE(ran, code);
    }

    // Nothing a console user cannot answer waits for them: it is a line on standard error and
    // an exit code. Qt's notes stay out of the way of the refusals.
    void nothingWaits_data() {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("fatalWarnings");  // QT_FATAL_WARNINGS
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("said");
        QTest::newRow("a note") << "warning"
                                << "" << 0 << "";
        QTest::newRow("a critical message") << "critical"
                                            << "" << 0 << "a critical message\n";
        QTest::newRow("a fatal message")
            << "fatal"
            << "" << 3 << "rigwright: could not load the platform plugin\n";
        QTest::newRow("a note made fatal") << "warning"
                                           << "1" << 3 << "rigwright: a warning\n";
        QTest::newRow("the second note made fatal") << "warning|warning|critical"
                                                    << "2" << 3 << "rigwright: a warning\n";
        QTest::newRow("an exception nobody catches") << "throw"
                                                     << "" << 3 << "rigwright: out of memory\n";
    }
    void nothingWaits() {
        QFETCH(QString, steps);
        QFETCH(QString, fatalWarnings);
        QFETCH(int, code);
        QFETCH(QString, said);
        QProcess run;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove("QT_FATAL_WARNINGS");
        env.remove("QT_FATAL_CRITICALS");
        if (!fatalWarnings.isEmpty()) env.insert("QT_FATAL_WARNINGS", fatalWarnings);
        run.setProcessEnvironment(env);
        run.start(qEnvironmentVariable("RIGWRIGHT_STOPPING"), steps.split(u'|'));
        QVERIFY2(run.waitForStarted(), qPrintable(run.errorString()));
        QVERIFY(run.waitForFinished(20000));
        // Windows writes a line's end on standard error as CR LF.
        QCOMPARE(QString::fromLocal8Bit(run.readAllStandardError()).replace("\r\n", "\n"), said);
        QCOMPARE(run.exitStatus(), QProcess::NormalExit);
        QCOMPARE(run.exitCode(), code);
    }
};

RIGWRIGHT_TEST_CLASS(TestArguments)
#include "test_arguments.moc"
