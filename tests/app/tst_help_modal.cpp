// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The help window beside modal windows. Clicks go the way of the window system, which leaves out
// windows that are blocked.
#include "app/frmHelp.h"
#include "app/frmOpen.h"
#include "app/help.h"
#include "app/program.h"
#include "app/state.h"
#include "fake_main_window.h"
#include "made_help.h"
#include "support/in_window.h"
#include "support/program_fixture.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using app::frmHelp;
using tests::inWindow;
using tests::ProgramFixture;

class TestHelpModal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theHelpOfAModalWindowCanBeUsedWhileItStands();
    void helpThatIsOpenAlreadyCanBeUsedBesideAModalWindow();
    void helpCanBeUsedBesideABoxOfAModalWindow();
    void theModalWindowStaysUsableToo();
    void aBoxOfTheHelpWindowBlocksIt();
    void helpStaysWhenTheModalWindowGoes();
    void helpClosesWithTheMainWindow();
    void helpGoesWhenTheMainWindowIsDeleted();

private:
    static frmHelp* help();
    QWidget& owner() { return *app::g_frmIndex->window(); }
    /// Clicks on the entry of a page, and tells whether the page came.
    static bool canBeUsed();
    static void click(QWidget& widget);

    std::unique_ptr<ProgramFixture> m_fixture;
    QStringList m_log;
};

void TestHelpModal::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    app::setInstallationFolder(m_fixture->path(u"program"_s));
    tests::compileHelp(
        app::installationFolder(),
        u"OstrandDatasheets"_s,
        {{u"contents.hhc"_s,
          tests::contentsFile({{u"One"_s, u"ID_MANUAL.htm"_s}, {u"Two"_s, u"two.htm"_s}})},
         {u"ID_MANUAL.htm"_s, tests::htmlPage(u"One"_s, u"<p>1</p>"_s)},
         {u"two.htm"_s, tests::htmlPage(u"Two"_s, u"<p>2</p>"_s)}});
    app::g_frmIndex = std::make_unique<tests::FakeMainWindow>(m_log);
    owner().show();
    QVERIFY(QTest::qWaitForWindowExposed(&owner()));
}

void TestHelpModal::cleanup()
{
    m_fixture.reset();
    QVERIFY(!help());
}

frmHelp* TestHelpModal::help()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<frmHelp*>(widget))
            return found;
    }
    return nullptr;
}

void TestHelpModal::click(QWidget& widget)
{
    QWidget* top = widget.window();
    QTest::mouseClick(
        top->windowHandle(), Qt::LeftButton, {}, widget.mapTo(top, widget.rect().center()));
    QCoreApplication::processEvents();
}

bool TestHelpModal::canBeUsed()
{
    if (!help() || !QTest::qWaitForWindowExposed(help()))
        return false;
    auto* tree = help()->findChild<QTreeWidget*>();
    const auto* browser = help()->findChild<QTextBrowser*>();
    bool can = true;
    for (const int row : {1, 0}) {
        const QPoint place =
            tree->viewport()->mapTo(help(), tree->visualItemRect(tree->topLevelItem(row)).center());
        QTest::mouseClick(help()->windowHandle(), Qt::LeftButton, {}, place);
        QCoreApplication::processEvents();
        can = can && browser->documentTitle() == (row == 1 ? u"Two"_s : u"One"_s);
    }
    return can;
}

void TestHelpModal::theHelpOfAModalWindowCanBeUsedWhileItStands()
{
    app::frmOpen open(&owner());
    inWindow(
        open,
        [&] { open.exec(); },
        [&] {
            click(*open.findChild<QPushButton*>(u"cmdHelp"_s));
            QVERIFY(canBeUsed());
            QVERIFY(open.isVisible());
            QCOMPARE(QApplication::activeModalWidget(), static_cast<QWidget*>(&open));
        });
    QCOMPARE(m_fixture->prompts.takeTexts(), QStringList());
}

void TestHelpModal::helpThatIsOpenAlreadyCanBeUsedBesideAModalWindow()
{
    app::ShowHelpTopic(&owner(), app::helpTopicManual(), true);
    QVERIFY(canBeUsed());
    app::frmOpen open(&owner());
    inWindow(
        open, [&] { open.exec(); }, [&] { QVERIFY(canBeUsed()); });
    QVERIFY(canBeUsed());
}

void TestHelpModal::helpCanBeUsedBesideABoxOfAModalWindow()
{
    app::ShowHelpTopic(&owner(), app::helpTopicManual(), true);
    app::frmOpen open(&owner());
    inWindow(
        open,
        [&] { open.exec(); },
        [&] {
            QMessageBox box(&open);
            inWindow(
                box, [&] { box.exec(); }, [&] { QVERIFY(canBeUsed()); });
            QTest::qWait(20);
            QVERIFY(canBeUsed());
            // A box of no window is not over the modal one.
            QMessageBox stray;
            inWindow(
                stray, [&] { stray.exec(); }, [&] { QVERIFY(canBeUsed()); });
            QTest::qWait(20);
            QVERIFY(canBeUsed());
        });
}

void TestHelpModal::theModalWindowStaysUsableToo()
{
    app::frmOpen open(&owner());
    inWindow(
        open,
        [&] { open.exec(); },
        [&] {
            app::ShowHelpTopic(&open, app::helpTopicManual(), true);
            QVERIFY(canBeUsed());
            click(*open.findChild<QPushButton*>(u"cmdCancel"_s));
            QVERIFY(!open.isVisible());
        });
}

void TestHelpModal::aBoxOfTheHelpWindowBlocksIt()
{
    app::ShowHelpTopic(&owner(), app::helpTopicManual(), true);
    QMessageBox box(help());
    inWindow(
        box, [&] { box.exec(); }, [&] { QVERIFY(!canBeUsed()); });
    QTest::qWait(20);
    QVERIFY(canBeUsed());
}

void TestHelpModal::helpStaysWhenTheModalWindowGoes()
{
    {
        app::frmOpen open(&owner());
        inWindow(
            open,
            [&] { open.exec(); },
            [&] { app::ShowHelpTopic(&open, app::helpTopicManual(), true); });
    }
    QVERIFY(help() && help()->isVisible());
    QVERIFY(canBeUsed());
}

void TestHelpModal::helpClosesWithTheMainWindow()
{
    app::ShowHelpTopic(&owner(), app::helpTopicManual(), true);
    const QPointer<frmHelp> open = help();
    owner().close();
    QTRY_VERIFY(!open);
}

void TestHelpModal::helpGoesWhenTheMainWindowIsDeleted()
{
    app::ShowHelpTopic(&owner(), app::helpTopicManual(), true);
    QVERIFY(help());
    app::g_frmIndex.reset();
    QVERIFY(!help());
}

QTEST_MAIN(TestHelpModal)
#include "tst_help_modal.moc"
