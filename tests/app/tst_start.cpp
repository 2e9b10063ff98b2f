// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/CRegHndlr.h"
#include "app/frmOpen.h"
#include "app/main_window.h"
#include "app/modMain.h"
#include "app/state.h"
#include "support/program_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;

namespace {

/// Writes down which windows appear and go, in order, and looks at each as it appears.
class WindowLog final : public QObject
{
public:
    WindowLog() { QApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(object);
        if (!widget || !widget->isWindow() || !widget->objectName().startsWith(u"frm"_s))
            return false;
        if (event->type() == QEvent::Show)
            events << u"show "_s + widget->objectName();
        else if (event->type() == QEvent::Hide)
            events << u"hide "_s + widget->objectName();
        else if (event->type() == QEvent::Paint && widget->objectName() == u"frmAbout"_s)
            lookAtStartScreen(*widget);
        return false;
    }

    QStringList events;
    QStringList startScreenButtons;
    bool startScreenPainted = false;

private:
    void lookAtStartScreen(const QWidget& screen)
    {
        startScreenPainted = true;
        for (const auto* button : screen.findChildren<QAbstractButton*>()) {
            if (button->isVisible())
                startScreenButtons << button->objectName();
        }
    }
};

/// Does something with the start window once it is open, and closes it.
template <typename Action>
void whenStartWindowOpens(Action action)
{
    auto* timer = new QTimer(QApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
        auto* window = qobject_cast<app::frmOpen*>(QApplication::activeModalWidget());
        if (!window)
            return;
        timer->deleteLater();
        timer->stop();
        const QPointer<QDialog> stillThere = window;
        action(*window);
        if (stillThere)
            stillThere->reject();
    });
    timer->start();
}

/// Clicks an option or a button; an option is hit on its circle and its caption only.
void click(const QWidget& window, const QString& name)
{
    auto* button = window.findChild<QAbstractButton*>(name);
    QVERIFY2(button && button->isEnabled() && button->isVisible(), qPrintable(name));
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
}

} // namespace

class TestStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void init();
    void cleanup();

    void theStateIsSetAnew();
    void theStartScreenComesBeforeTheMainWindow();
    void thePathOnTheCommandLineIsOpened_data();
    void thePathOnTheCommandLineIsOpened();
    void theTemplateMayBeOpenedByItsPath();
    void theSwitchInCapitalsIsAPath();
    void aMissingFileIsToldAndBringsTheDialog();
    void withoutAPathTheStartWindowAppears_data();
    void withoutAPathTheStartWindowAppears();
    void aCancelledStartWindowLeavesTheMainWindowWithoutProject();
    void theStartWindowOpensAProject();
    void aCancelledSaveDialogOfTheStartWindowLeavesNoProject();
    void closingTheMainWindowEndsTheProgram_data();
    void closingTheMainWindowEndsTheProgram();
    void closingTheMainWindowEndsTheProgramBeneathOtherWindows();
    void closingTheMainWindowBehindTheStartWindowEndsTheProgram();
    void theProgramTakesItsWholeCommandLine();

private:
    static QWidget* mainWindow() { return app::g_frmIndex->window(); }
    static QWidget* control(const QString& name) { return mainWindow()->findChild<QWidget*>(name); }
    QStringList texts() { return m_fixture->prompts.takeTexts(); }

    std::unique_ptr<ProgramFixture> m_fixture;
};

void TestStart::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
}

void TestStart::cleanup()
{
    app::End();
    m_fixture.reset();
}

void TestStart::theStateIsSetAnew()
{
    app::g_objRegHndlr.reset();
    app::g_strIndexFile = u"left over"_s;
    app::g_strNewDatasheetFolder = u"left over"_s;
    app::g_blnFolderChanged = true;
    app::g_blnPidLinked = true;
    whenStartWindowOpens([](const QWidget&) {});
    app::Main(QString());
    QVERIFY(app::g_objRegHndlr);
    QVERIFY(app::g_frmIndex);
    QCOMPARE(app::g_strIndexFile, QString());
    QCOMPARE(app::g_strNewDatasheetFolder, QString());
    QVERIFY(!app::g_blnFolderChanged);
    QVERIFY(!app::g_blnPidLinked);
    QCOMPARE(app::g_intLogoTarget, 0);
}

void TestStart::theStartScreenComesBeforeTheMainWindow()
{
    WindowLog log;
    whenStartWindowOpens([](const QWidget&) {});
    app::Main(QString());
    QCOMPARE(log.events,
             (QStringList{u"show frmAbout"_s,
                          u"show frmIndex"_s,
                          u"hide frmAbout"_s,
                          u"show frmOpen"_s,
                          u"hide frmOpen"_s}));
    QVERIFY(log.startScreenPainted);
    QCOMPARE(log.startScreenButtons, QStringList());
}

void TestStart::thePathOnTheCommandLineIsOpened_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("between");
    QTest::addColumn<QString>("behind");
    QTest::newRow("plain") << QString() << QString() << QString();
    QTest::newRow("in quotes") << u"\""_s << QString() << u"\""_s;
    QTest::newRow("quotes anywhere") << u"\"\""_s << u"\""_s << u"\"\"\""_s;
}

void TestStart::thePathOnTheCommandLineIsOpened()
{
    QFETCH(const QString, before);
    QFETCH(const QString, between);
    QFETCH(const QString, behind);
    const QString project = m_fixture->sampleProject(u"my plant.mdb"_s);
    WindowLog log;
    app::Main(before + project.left(9) + between + project.mid(9) + behind);
    QCOMPARE(app::g_strIndexFile, project);
    QCOMPARE(texts(), QStringList());
    QVERIFY(mainWindow()->isVisible());
    QVERIFY(control(u"GridIndex"_s)->isEnabled());
    QCOMPARE(mainWindow()->findChild<QLabel*>(u"Panel2"_s)->text(), u"my plant.mdb"_s);
    QCOMPARE(log.events.filter(u"frmOpen"_s), QStringList());
    QVERIFY(m_fixture->prompts.fileRequests.empty());
}

void TestStart::theTemplateMayBeOpenedByItsPath()
{
    const QString project = m_fixture->emptyProject(u"index.mdb"_s);
    app::Main(project);
    QCOMPARE(texts(), QStringList());
    QCOMPARE(app::g_strIndexFile, project);
    QVERIFY(control(u"GridIndex"_s)->isEnabled());
}

void TestStart::theSwitchInCapitalsIsAPath()
{
    WindowLog log;
    app::Main(u"/CMD"_s);
    QCOMPARE(log.events.filter(u"frmOpen"_s), QStringList());
    const QStringList shown = texts();
    QVERIFY2(shown.contains(u"File /CMD does not exist or has been moved."_s),
             qPrintable(shown.join(u'|')));
    QCOMPARE(m_fixture->prompts.fileRequests.size(), std::size_t{1});
    QVERIFY(mainWindow()->isVisible());
}

void TestStart::aMissingFileIsToldAndBringsTheDialog()
{
    const QString missing = m_fixture->path(u"gone.mdb"_s);
    const QString other = m_fixture->emptyProject(u"other.mdb"_s);
    m_fixture->prompts.files = {other};
    app::Main(missing);
    QCOMPARE(texts(), QStringList{u"File "_s + missing + u" does not exist or has been moved."_s});
    QCOMPARE(m_fixture->prompts.fileRequests.size(), std::size_t{1});
    QCOMPARE(m_fixture->prompts.fileRequests[0].title, u"Open project..."_s);
    QCOMPARE(app::g_strIndexFile, other);
    QVERIFY(control(u"GridIndex"_s)->isEnabled());
}

void TestStart::withoutAPathTheStartWindowAppears_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::newRow("empty") << QString();
    QTest::newRow("the switch") << u"/cmd"_s;
}

void TestStart::withoutAPathTheStartWindowAppears()
{
    QFETCH(const QString, commandLine);
    bool seen = false;
    whenStartWindowOpens([&](const QDialog& window) {
        seen = true;
        QVERIFY(window.isModal());
        QVERIFY(mainWindow()->isVisible());
        QVERIFY(!control(u"GridIndex"_s)->isEnabled());
    });
    app::Main(commandLine);
    QVERIFY(seen);
    QCOMPARE(texts(), QStringList());
}

void TestStart::aCancelledStartWindowLeavesTheMainWindowWithoutProject()
{
    whenStartWindowOpens([](QDialog& window) {
        click(window, u"cmdCancel"_s);
        QVERIFY(!window.isVisible());
    });
    app::Main(QString());
    QVERIFY(mainWindow()->isVisible());
    QVERIFY(!control(u"GridIndex"_s)->isEnabled());
    QCOMPARE(app::g_strIndexFile, QString());
    QCOMPARE(texts(), QStringList());
}

void TestStart::theStartWindowOpensAProject()
{
    const QString project = m_fixture->sampleProject();
    m_fixture->prompts.files = {project};
    whenStartWindowOpens([](QDialog& window) {
        click(window, u"optOpen"_s);
        click(window, u"CmdOk"_s);
    });
    app::Main(QString());
    QCOMPARE(app::g_strIndexFile, project);
    QVERIFY(control(u"GridIndex"_s)->isEnabled());
    QCOMPARE(app::g_objRegHndlr->GetLastIndexLocation(), project);
}

void TestStart::aCancelledSaveDialogOfTheStartWindowLeavesNoProject()
{
    whenStartWindowOpens([](QDialog& window) {
        click(window, u"CmdOk"_s);
        QVERIFY(!window.isVisible());
    });
    app::Main(QString());
    QCOMPARE(m_fixture->prompts.fileRequests.size(), std::size_t{1});
    QVERIFY(m_fixture->prompts.fileRequests[0].save);
    QVERIFY(!control(u"GridIndex"_s)->isEnabled());
    QCOMPARE(texts(), QStringList());
}

void TestStart::closingTheMainWindowEndsTheProgram_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("the window's own button") << QString();
    QTest::newRow("the button Exit") << u"cmdExit"_s;
    QTest::newRow("the menu entry Exit") << u"mnuFileExit"_s;
}

void TestStart::closingTheMainWindowEndsTheProgram()
{
    QFETCH(const QString, how);
    app::Main(m_fixture->sampleProject());
    QTimer::singleShot(0, mainWindow(), [how] {
        if (how.isEmpty())
            mainWindow()->close();
        else if (auto* action = mainWindow()->findChild<QAction*>(how))
            action->trigger();
        else
            click(*mainWindow(), how);
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!app::g_frmIndex);
    QVERIFY(!app::g_objRegHndlr);
    QCOMPARE(texts(), QStringList());
}

void TestStart::closingTheMainWindowEndsTheProgramBeneathOtherWindows()
{
    app::Main(m_fixture->sampleProject());
    QTimer::singleShot(0, mainWindow(), [] {
        mainWindow()->findChild<QAction*>(u"muHelpAbout"_s)->trigger();
        QVERIFY(mainWindow()->findChild<QWidget*>(u"frmAbout"_s)->isVisible());
        mainWindow()->close();
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!app::g_frmIndex);
}

void TestStart::closingTheMainWindowBehindTheStartWindowEndsTheProgram()
{
    whenStartWindowOpens([](const QWidget&) { mainWindow()->close(); });
    app::Main(QString());
    QTRY_VERIFY(!app::g_frmIndex);
    QVERIFY(!app::g_objRegHndlr);
}

void TestStart::theProgramTakesItsWholeCommandLine()
{
    const QString project = m_fixture->emptyProject(u"my  plant.mdb"_s);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_CONFIG_HOME"_s, m_fixture->path(u"config"_s));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QString::fromUtf8(OSTRAND_PROGRAM), {project});
    const auto firstEntry = [this] {
        const QSettings settings(
            m_fixture->path(u"config/Ostrand/Ostrand Instrument Datasheets.conf"_s),
            QSettings::IniFormat);
        return settings.value(u"FileLocation/Index1"_s).toString();
    };
    QTRY_COMPARE_WITH_TIMEOUT(firstEntry(), project, 20000);
    QCOMPARE(program.state(), QProcess::Running);
    program.kill();
    QVERIFY(program.waitForFinished());
}

QTEST_MAIN(TestStart)
#include "tst_start.moc"
