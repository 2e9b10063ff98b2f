// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "support/program_fixture.h"
#include "viewing/CViewer.h"
#include "viewing/scratch_desktop.h"

#include <QFile>
#include <QHash>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::viewing::CViewer;

/// The viewer of a system with a registry: which keys it reads, and what it makes of them.
class TestViewerRegistry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theExtensionFollowsTheLastDot_data();
    void theExtensionFollowsTheLastDot();
    void theProgramIsCutOutOfTheCommandLine_data();
    void theProgramIsCutOutOfTheCommandLine();
    void aCommandLineWithoutAProgramIsTold();
    void theSystemsFolderTakesThePlaceOfItsToken();
    void aMissingSystemFolderIsTold();

    void theProgramIsLookedUpInTwoSteps();
    void aFileStartsTheProgramWithItAlone();
    void whatIsNotRegisteredHasNoProgram();
    void aRegisteredCommandWithoutProgramIsTold();
    void aProgramThatIsGoneIsTold();
    void aFailureOfTheRegistryIsTold();

private:
    CViewer viewer();
    QStringList texts() { return m_program->prompts.takeTexts(); }

    std::unique_ptr<tests::ProgramFixture> m_program;
    std::unique_ptr<tests::ScratchDesktop> m_desktop;
    QHash<QString, QString> m_registry;
    QStringList m_asked;
};

void TestViewerRegistry::init()
{
    m_program = std::make_unique<tests::ProgramFixture>();
    m_desktop = std::make_unique<tests::ScratchDesktop>();
    m_registry.clear();
    m_asked.clear();
    qputenv("SystemRoot", "C:\\Windows");
}

void TestViewerRegistry::cleanup()
{
    qunsetenv("SystemRoot");
    m_desktop.reset();
    m_program.reset();
}

CViewer TestViewerRegistry::viewer()
{
    return CViewer([this](const QString& subKey, QString& value) {
        m_asked << subKey;
        value = m_registry.value(subKey);
        return m_registry.contains(subKey);
    });
}

void TestViewerRegistry::theExtensionFollowsTheLastDot_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::newRow("usual") << u"a.pdf"_s << u"pdf"_s;
    QTest::newRow("two dots") << u"a.b.PDF"_s << u"PDF"_s;
    QTest::newRow("dot at the end") << u"a."_s << QString();
    QTest::newRow("last dot at the end") << u"a.pdf."_s << QString();
    QTest::newRow("dot at the start") << u".pdf"_s << QString();
    QTest::newRow("dots at both ends") << u".pdf."_s << QString();
    QTest::newRow("dots at the start and inside") << u".a.pdf"_s << u"pdf"_s;
    QTest::newRow("only a dot") << u"."_s << QString();
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("no dot") << u"README"_s << u"README"_s;
}

void TestViewerRegistry::theExtensionFollowsTheLastDot()
{
    QFETCH(const QString, name);
    QFETCH(const QString, extension);
    QCOMPARE(CViewer::GetFileExtension(name), extension);
    QCOMPARE(texts(), QStringList());
}

void TestViewerRegistry::theProgramIsCutOutOfTheCommandLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("program");
    const auto row = [](const char* name, const QString& line, const QString& program) {
        QTest::newRow(name) << line << program;
    };
    row("quoted",
        uR"("C:\Program Files\View\view.exe" "%1")"_s,
        uR"(C:\Program Files\View\view.exe)"_s);
    row("not quoted", uR"(C:\View\view.exe /n %1)"_s, uR"(C:\View\view.exe)"_s);
    row("no arguments", uR"(C:\View\view.exe)"_s, uR"(C:\View\view.exe)"_s);
    row("capitals", uR"("C:\VIEW\VIEW.EXE" %1)"_s, uR"(C:\VIEW\VIEW.exe)"_s);
    row("mixed case", uR"(C:\View\View.ExE %1)"_s, uR"(C:\View\View.exe)"_s);
    row("first occurrence", uR"("C:\a.exe" "C:\b.exe")"_s, uR"(C:\a.exe)"_s);
    row("argument ahead", uR"("x" C:\view.exe %1)"_s, uR"( C:\view.exe)"_s);
    row("system root",
        uR"(%SystemRoot%\system32\NOTEPAD.EXE %1)"_s,
        uR"(C:\Windows\system32\NOTEPAD.exe)"_s);
    row("quoted system root", uR"("%SystemRoot%\pad.exe" %1)"_s, uR"(C:\Windows\pad.exe)"_s);
    row("letters that grow in capitals",
        uR"(C:\Größe ŉ ﬁ\view.exe %1)"_s,
        uR"(C:\Größe ŉ ﬁ\view.exe)"_s);
    row("only the ending", u".exe"_s, u".exe"_s);
}

void TestViewerRegistry::theProgramIsCutOutOfTheCommandLine()
{
    QFETCH(const QString, line);
    QFETCH(const QString, program);
    QCOMPARE(CViewer::ParseApplicationFile(line), program);
    QCOMPARE(texts(), QStringList());
}

void TestViewerRegistry::aCommandLineWithoutAProgramIsTold()
{
    QCOMPARE(CViewer::ParseApplicationFile(u"rundll32 shell.dll,Open %1"_s), QString());
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(texts(),
             QStringList{u"Error while parsing application file. \r\nError : 22222. Error while "
                         u"trying to parse application file, could not find '.EXE' string."_s});
    QCOMPARE(CViewer::ParseApplicationFile(QString()), QString());
    QCOMPARE(texts().size(), 1);
}

void TestViewerRegistry::theSystemsFolderTakesThePlaceOfItsToken()
{
    QCOMPARE(CViewer::ExpandSystemRoot(u"%SystemRoot%\\pad.exe"_s), u"C:\\Windows\\pad.exe"_s);
    QCOMPARE(CViewer::ExpandSystemRoot(u"C:\\pad.exe"_s), u"C:\\pad.exe"_s);
    QCOMPARE(CViewer::ExpandSystemRoot(u"%systemroot%\\pad.exe"_s), u"%systemroot%\\pad.exe"_s);
    // The token is taken to stand at the start, wherever it is.
    QCOMPARE(CViewer::ExpandSystemRoot(u"12%SystemRoot%\\pad.exe"_s), u"C:\\Windowst%\\pad.exe"_s);
    QCOMPARE(texts(), QStringList());
}

void TestViewerRegistry::aMissingSystemFolderIsTold()
{
    qunsetenv("SystemRoot");
    QCOMPARE(CViewer::ExpandSystemRoot(u"%SystemRoot%\\pad.exe"_s), u"%SystemRoot%\\pad.exe"_s);
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(texts(),
             QStringList{u"Error checking for application file alias. \r\nError : 76. This system "
                         u"has no such folder."_s});
}

void TestViewerRegistry::theProgramIsLookedUpInTwoSteps()
{
    m_registry = {{u"SOFTWARE\\Classes\\.osh"_s, u"Sheet.1"_s},
                  {u"SOFTWARE\\Classes\\Sheet.1\\shell\\open\\command"_s,
                   u"\"C:\\Program Files\\Sheet.EXE\" /n \"%1\""_s}};
    QCOMPARE(viewer().GetAssociatedApp(u"a.osh"_s), u"C:\\Program Files\\Sheet.exe"_s);
    QCOMPARE(m_asked,
             (QStringList{u"SOFTWARE\\Classes\\.osh"_s,
                          u"SOFTWARE\\Classes\\Sheet.1\\shell\\open\\command"_s}));
    QCOMPARE(texts(), QStringList());
}

void TestViewerRegistry::aFileStartsTheProgramWithItAlone()
{
    const QString program = m_desktop->program(u"my sheets.exe"_s);
    m_registry = {{u"SOFTWARE\\Classes\\.osh"_s, u"Sheet.1"_s},
                  {u"SOFTWARE\\Classes\\Sheet.1\\shell\\open\\command"_s,
                   u'"' + program + u"\" /n \"%1\""_s}};
    const QString file = m_desktop->file(u"a b.osh"_s);
    viewer().ViewFile(m_desktop->path(u"files"_s), u"a b.osh"_s);
    const QStringList opened = m_desktop->opened();
    QCOMPARE(opened.value(0), program);
    QCOMPARE(opened.mid(2), QStringList{file});
    QCOMPARE(texts(), QStringList());
}

void TestViewerRegistry::whatIsNotRegisteredHasNoProgram()
{
    m_desktop->file(u"a.osh"_s);
    m_desktop->file(u"README"_s);
    const QString folder = m_desktop->path(u"files"_s);
    viewer().ViewFile(folder, u"a.osh"_s);
    QCOMPARE(texts(), QStringList{u"Could not find application to open file a.osh"_s});
    m_registry = {{u"SOFTWARE\\Classes\\.osh"_s, u"Sheet.1"_s}};
    viewer().ViewFile(folder, u"a.osh"_s);
    QCOMPARE(texts(), QStringList{u"Could not find application to open file a.osh"_s});
    viewer().ViewFile(folder, u"README"_s);
    QCOMPARE(m_asked.last(), u"SOFTWARE\\Classes\\.README"_s);
    QCOMPARE(texts(), QStringList{u"Could not find application to open file README"_s});
}

void TestViewerRegistry::aRegisteredCommandWithoutProgramIsTold()
{
    m_registry = {{u"SOFTWARE\\Classes\\.osh"_s, u"Sheet.1"_s},
                  {u"SOFTWARE\\Classes\\Sheet.1\\shell\\open\\command"_s, u"open.com %1"_s}};
    m_desktop->file(u"a.osh"_s);
    viewer().ViewFile(m_desktop->path(u"files"_s), u"a.osh"_s);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 2);
    QVERIFY(shown[0].startsWith(u"Error while parsing application file. "_s));
    QCOMPARE(shown[1], u"Could not find application to open file a.osh"_s);
}

void TestViewerRegistry::aProgramThatIsGoneIsTold()
{
    m_registry = {{u"SOFTWARE\\Classes\\.osh"_s, u"Sheet.1"_s},
                  {u"SOFTWARE\\Classes\\Sheet.1\\shell\\open\\command"_s, u"/nowhere/v.exe"_s}};
    m_desktop->file(u"a.osh"_s);
    viewer().ViewFile(m_desktop->path(u"files"_s), u"a.osh"_s);
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(texts(),
             QStringList{u"Error while viewing document. \r\nError : 53. File not found"_s});
}

void TestViewerRegistry::aFailureOfTheRegistryIsTold()
{
    const CViewer broken(
        [](const QString&, QString&) -> bool { throw store::Error(70, u"Permission denied"_s); });
    QCOMPARE(broken.GetAssociatedApp(u"a.osh"_s), QString());
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(
        texts(),
        QStringList{u"Error while loading file handler form. \r\nError : 70. Permission denied"_s});
}

QTEST_MAIN(TestViewerRegistry)
#include "tst_viewer_registry.moc"
