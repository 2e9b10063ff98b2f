// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/CRegHndlr.h"
#include "app/state.h"
#include "store/error.h"
#include "support/program_fixture.h"
#include "support/without_root.h"
#include "viewing/CViewer.h"
#include "viewing/scratch_desktop.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/wait.h>

#include <cerrno>
#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::viewing::CViewer;

class TestViewer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileOpensInItsProgram();
    void everyNameReachesTheProgramAsItIs_data();
    void everyNameReachesTheProgramAsItIs();
    void aStoredPathWithTheOtherSeparatorIsFound();
    void aRelativeFolderReachesTheProgramAsAFullPath();
    void noProcessIsLeftBehind();

    void aMissingFolderOrNameIsTold();
    void aFileThatIsGoneIsTold();
    void aFileOutOfReachIsToldLikeOneThatIsGone();
    void aFolderIsNoFile();
    void aNameWithoutExtensionIsTold_data();
    void aNameWithoutExtensionIsTold();
    void aNameWithNoDotHasNoProgram();
    void anExtensionThatNobodyOpensIsTold();
    void aProgramThatDoesNotStartIsTold();
    void aProgramForTheTerminalWithoutOneIsTold();
    void theAssociatedProgramIsGivenWithoutTheFileBeingThere();
    void theKeeperOfTheRegistryIsMadeWhereThereIsNone();
    void theViewerIsMissedOnlyByWhoNeedsIt();

private:
    void install(const QByteArray& lines = "Exec=sheets %f\n");
    void view(const QString& name);
    QStringList texts() { return m_program->prompts.takeTexts(); }

    std::unique_ptr<tests::ProgramFixture> m_program;
    std::unique_ptr<tests::ScratchDesktop> m_desktop;
    CViewer m_viewer;
};

void TestViewer::init()
{
    m_program = std::make_unique<tests::ProgramFixture>();
    m_desktop = std::make_unique<tests::ScratchDesktop>();
}

void TestViewer::cleanup()
{
    m_desktop.reset();
    m_program.reset();
}

void TestViewer::install(const QByteArray& lines)
{
    m_desktop->program(u"sheets"_s);
    m_desktop->entry(
        u"share"_s, u"sheets.desktop"_s, lines + "MimeType=application/x-ostrand-sheet;\n");
}

void TestViewer::view(const QString& name)
{
    m_viewer.ViewFile(m_desktop->path(u"files"_s), name);
}

void TestViewer::aFileOpensInItsProgram()
{
    install("Exec=sheets --view %f\nPath=" + QFile::encodeName(m_desktop->path(u"bin"_s)) + '\n');
    const QString file = m_desktop->file(u"a.osh"_s);
    view(u"a.osh"_s);
    QCOMPARE(m_desktop->opened(),
             (QStringList{
                 m_desktop->path(u"bin/sheets"_s), m_desktop->path(u"bin"_s), u"--view"_s, file}));
    QCOMPARE(texts(), QStringList());
}

void TestViewer::everyNameReachesTheProgramAsItIs_data()
{
    QTest::addColumn<QString>("name");
    for (const char16_t* name : {u"two words.osh",
                                 u"it's.osh",
                                 u"say \"hello\".osh",
                                 u"a;b|c&d>e.osh",
                                 u"$(touch x) `x` $HOME.osh",
                                 u"two\nlines.osh",
                                 u"--rf.osh",
                                 u"-.osh",
                                 u"%f %u %%.osh",
                                 u"*?[a]~.osh",
                                 u"größe ⌀ 试验.osh",
                                 u"a.b.c.OSH"})
        QTest::newRow(qPrintable(QString::fromUtf16(name).simplified()))
            << QString::fromUtf16(name);
    QTest::newRow("long") << QString(200, u'x') + u".osh"_s;
}

void TestViewer::everyNameReachesTheProgramAsItIs()
{
    QFETCH(const QString, name);
    install();
    const QString file = m_desktop->file(name);
    view(name);
    QCOMPARE(m_desktop->opened().mid(2), QStringList{file});
    QCOMPARE(texts(), QStringList());
}

void TestViewer::aStoredPathWithTheOtherSeparatorIsFound()
{
    install();
    const QString file = m_desktop->file(u"sub/a.osh"_s);
    m_viewer.ViewFile(m_desktop->path(u"files\\sub"_s).replace(u'/', u'\\'), u"a.osh"_s);
    QCOMPARE(m_desktop->opened().mid(2), QStringList{file});
}

void TestViewer::aRelativeFolderReachesTheProgramAsAFullPath()
{
    install();
    const QString file = m_desktop->file(u"-dash/a.osh"_s);
    const QString before = QDir::currentPath();
    QDir::setCurrent(m_desktop->path(u"files"_s));
    m_viewer.ViewFile(u"-dash"_s, u"a.osh"_s);
    QDir::setCurrent(before);
    QCOMPARE(m_desktop->opened().mid(2), QStringList{file});
}

void TestViewer::noProcessIsLeftBehind()
{
    install();
    m_desktop->file(u"a.osh"_s);
    view(u"a.osh"_s);
    QVERIFY(!m_desktop->opened().isEmpty());
    // Neither a running child nor one that ended and waits to be noticed.
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void TestViewer::aMissingFolderOrNameIsTold()
{
    m_viewer.ViewFile(QString(), u"a.osh"_s);
    m_viewer.ViewFile(u"/d"_s, QString());
    for (const toolkit::Box& box : m_program->prompts.boxes) {
        QCOMPARE(box.text, u"File path or file name is missing!"_s);
        QVERIFY(box.icon == toolkit::BoxIcon::Information);
        QCOMPARE(box.title, u"Ostrand Instrument Datasheets"_s);
    }
    QCOMPARE(texts().size(), 2);
}

void TestViewer::aFileThatIsGoneIsTold()
{
    install();
    view(u"gone.osh"_s);
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Information);
    QCOMPARE(texts(), QStringList{u"File has been moved or deleted."_s});
    QVERIFY(!m_desktop->hasOpened());
}

void TestViewer::aFileOutOfReachIsToldLikeOneThatIsGone()
{
    install();
    m_desktop->file(u"a.osh"_s);
    {
        const tests::WithoutRoot user;
        QFile::setPermissions(m_desktop->path(u"files"_s), {});
        view(u"a.osh"_s);
    }
    QCOMPARE(texts(), QStringList{u"File has been moved or deleted."_s});
}

void TestViewer::aFolderIsNoFile()
{
    install();
    m_desktop->file(u"folder.osh/a.osh"_s);
    view(u"folder.osh"_s);
    QCOMPARE(texts(), QStringList{u"File has been moved or deleted."_s});
}

void TestViewer::aNameWithoutExtensionIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("dot at the start") << u".osh"_s;
    QTest::newRow("dot at the end") << u"a.osh."_s;
}

void TestViewer::aNameWithoutExtensionIsTold()
{
    QFETCH(const QString, name);
    install();
    m_desktop->file(name);
    view(name);
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Information);
    QCOMPARE(texts(),
             (QStringList{u"File extension is missing for file "_s + name,
                          u"Could not find application to open file "_s + name}));
    QVERIFY(!m_desktop->hasOpened());
}

void TestViewer::aNameWithNoDotHasNoProgram()
{
    m_desktop->program(u"reader"_s);
    m_desktop->entry(u"share"_s, u"reader.desktop"_s, "Exec=reader %f\nMimeType=text/x-readme;\n");
    m_desktop->file(u"README"_s);
    view(u"README"_s);
    QCOMPARE(texts(), QStringList{u"Could not find application to open file README"_s});
    QVERIFY(!m_desktop->hasOpened());
}

void TestViewer::anExtensionThatNobodyOpensIsTold()
{
    install();
    m_desktop->file(u"a.oso"_s);
    view(u"a.oso"_s);
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Information);
    QCOMPARE(texts(), QStringList{u"Could not find application to open file a.oso"_s});
}

void TestViewer::aProgramThatDoesNotStartIsTold()
{
    install();
    m_desktop->list(u"bin/sheets"_s, "#!/nowhere/interpreter\n");
    m_desktop->file(u"a.osh"_s);
    view(u"a.osh"_s);
    QVERIFY(m_program->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    const QStringList shown = texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while viewing document. \r\nError : 5. "_s),
             qPrintable(shown[0]));
    QVERIFY2(shown[0].contains(u"No such file or directory"_s), qPrintable(shown[0]));
}

void TestViewer::aProgramForTheTerminalWithoutOneIsTold()
{
    install("Exec=sheets %f\nTerminal=true\n");
    m_desktop->file(u"a.osh"_s);
    view(u"a.osh"_s);
    QCOMPARE(texts(),
             (QStringList{u"Error while loading file handler form. \r\nError : 53. A Program runs "
                          u"in a terminal window, and no terminal program was found."_s,
                          u"Could not find application to open file a.osh"_s}));
}

void TestViewer::theAssociatedProgramIsGivenWithoutTheFileBeingThere()
{
    install();
    QCOMPARE(m_viewer.GetAssociatedApp(u"any.osh"_s), m_desktop->path(u"bin/sheets"_s));
    QCOMPARE(m_viewer.GetAssociatedApp(u"any.oso"_s), QString());
    QCOMPARE(m_viewer.GetAssociatedApp(u"any"_s), QString());
    QCOMPARE(texts(), QStringList());
}

void TestViewer::theKeeperOfTheRegistryIsMadeWhereThereIsNone()
{
    app::g_objRegHndlr.reset();
    m_viewer.GetAssociatedApp(u"any.osh"_s);
    QVERIFY(app::g_objRegHndlr);
}

void TestViewer::theViewerIsMissedOnlyByWhoNeedsIt()
{
    QVERIFY(!viewing::g_objViewer);
    QVERIFY_THROWS_EXCEPTION(store::Error, viewing::viewer());
    viewing::g_objViewer = std::make_unique<CViewer>();
    QCOMPARE(&viewing::viewer(), viewing::g_objViewer.get());
    viewing::g_objViewer.reset();
}

QTEST_MAIN(TestViewer)
#include "tst_viewer.moc"
