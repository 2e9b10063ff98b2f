// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/CRegHndlr.h"
#include "app/fake_main_window.h"
#include "app/frmOpen.h"
#include "app/program.h"
#include "app/state.h"
#include "support/program_fixture.h"

#include <QAccessible>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::tests::ProgramFixture;

class TestFrmOpen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowIsModalAndTitled();
    void theControlsHaveTheirCaptions();
    void newIndexIsSelectedAtFirst();
    void theOptionsExcludeEachOther();
    void aSelectedOptionStaysSelectedWhenItIsClickedAgain();
    void theOptionsAreReachedByKeyboard();
    void anEmptyListOffersOnlyMoreFiles();
    void theListOffersTheRecentProjectsThatExist();
    void everyControlHasAnAccessibleName();

    void okWithNewIndexCreatesAProject();
    void enterPressesOk();
    void okWithNothingSelectedHasTheUserPick();
    void okWithMoreFilesHasTheUserPick();
    void okWithAnEntryOpensIt();
    void okWithNewIndexLeavesTheSelectedEntryAlone();
    void aDoubleClickOpensTheEntry();
    void aDoubleClickOnMoreFilesHasTheUserPick();
    void cancelAndEscapeOpenNothing();
    void helpAsksForTheManualAndLeavesTheWindowOpen();

    void loadingWithoutTheRecentListIsTold();
    void openingWithoutTheMainWindowIsTold();
    void creatingWithoutTheMainWindowIsTold();

private:
    /// Shows the window anew.
    void open();
    template <typename Control>
    Control* control(const QString& name)
    {
        return m_window->findChild<Control*>(name);
    }
    void click(const QString& name)
    {
        auto* button = control<QAbstractButton>(name);
        QVERIFY2(button && button->isEnabled() && button->isVisible(), qPrintable(name));
        // An option is hit on its circle and its caption only.
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
    }
    QListWidget& list() { return *control<QListWidget>(u"lstFiles"_s); }
    QPoint placeOf(int row) { return list().visualItemRect(list().item(row)).center(); }
    QStringList offered();
    QStringList texts() { return m_fixture->prompts.takeTexts(); }

    std::unique_ptr<ProgramFixture> m_fixture;
    std::unique_ptr<app::frmOpen> m_window;
    QStringList m_log;
};

void TestFrmOpen::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    m_log.clear();
    app::g_frmIndex = std::make_unique<tests::FakeMainWindow>(m_log);
}

void TestFrmOpen::cleanup()
{
    m_window.reset();
    m_fixture.reset();
}

void TestFrmOpen::open()
{
    m_window = std::make_unique<app::frmOpen>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

QStringList TestFrmOpen::offered()
{
    QStringList items;
    for (int i = 0; i < list().count(); ++i)
        items << list().item(i)->text();
    return items;
}

void TestFrmOpen::theWindowIsModalAndTitled()
{
    open();
    QCOMPARE(m_window->windowTitle(), u"Select Project Instrument Index"_s);
    QVERIFY(m_window->isModal());
}

void TestFrmOpen::theControlsHaveTheirCaptions()
{
    open();
    QCOMPARE(control<QRadioButton>(u"optNew"_s)->text(), u"New Index"_s);
    QCOMPARE(control<QRadioButton>(u"optOpen"_s)->text(), u"Open Existing Index"_s);
    QCOMPARE(control<QPushButton>(u"CmdOk"_s)->text(), u"&OK"_s);
    QCOMPARE(control<QPushButton>(u"cmdCancel"_s)->text(), u"&Cancel"_s);
    QCOMPARE(control<QPushButton>(u"cmdHelp"_s)->text(), u"&Help"_s);
    const auto frameOf = [this](const QString& name) {
        return control<QWidget>(name)->parentWidget()->objectName();
    };
    QCOMPARE(frameOf(u"optNew"_s), u"Frame1"_s);
    QCOMPARE(frameOf(u"Image1"_s), u"Frame1"_s);
    QCOMPARE(frameOf(u"optOpen"_s), u"Frame2"_s);
    QCOMPARE(frameOf(u"lstFiles"_s), u"Frame2"_s);
    QCOMPARE(frameOf(u"Image2"_s), u"Frame2"_s);
}

void TestFrmOpen::newIndexIsSelectedAtFirst()
{
    open();
    QVERIFY(control<QRadioButton>(u"optNew"_s)->isChecked());
    QVERIFY(!control<QRadioButton>(u"optOpen"_s)->isChecked());
    QVERIFY(!list().isEnabled());
    QVERIFY(control<QPushButton>(u"CmdOk"_s)->isDefault());
}

void TestFrmOpen::theOptionsExcludeEachOther()
{
    open();
    click(u"optOpen"_s);
    QVERIFY(!control<QRadioButton>(u"optNew"_s)->isChecked());
    QVERIFY(control<QRadioButton>(u"optOpen"_s)->isChecked());
    QVERIFY(list().isEnabled());
    click(u"optNew"_s);
    QVERIFY(control<QRadioButton>(u"optNew"_s)->isChecked());
    QVERIFY(!control<QRadioButton>(u"optOpen"_s)->isChecked());
    QVERIFY(!list().isEnabled());
}

void TestFrmOpen::aSelectedOptionStaysSelectedWhenItIsClickedAgain()
{
    open();
    click(u"optNew"_s);
    QVERIFY(control<QRadioButton>(u"optNew"_s)->isChecked());
    QVERIFY(!list().isEnabled());
    click(u"optOpen"_s);
    click(u"optOpen"_s);
    QVERIFY(control<QRadioButton>(u"optOpen"_s)->isChecked());
    QVERIFY(!control<QRadioButton>(u"optNew"_s)->isChecked());
    QVERIFY(list().isEnabled());
}

void TestFrmOpen::theOptionsAreReachedByKeyboard()
{
    open();
    auto* optOpen = control<QRadioButton>(u"optOpen"_s);
    optOpen->setFocus();
    QTest::keyClick(optOpen, Qt::Key_Space);
    QVERIFY(optOpen->isChecked());
    QVERIFY(list().isEnabled());
}

void TestFrmOpen::anEmptyListOffersOnlyMoreFiles()
{
    open();
    QCOMPARE(offered(), QStringList{u"More files..."_s});
    QCOMPARE(list().currentRow(), -1);
    QCOMPARE(texts(), QStringList());
}

void TestFrmOpen::theListOffersTheRecentProjectsThatExist()
{
    const QString a = m_fixture->file(u"a.mdb"_s, "x");
    const QString b = m_fixture->file(u"b.mdb"_s, "x");
    app::g_objRegHndlr->SaveIndexLocation(a);
    app::g_objRegHndlr->SaveIndexLocation(m_fixture->path(u"gone.mdb"_s));
    app::g_objRegHndlr->SaveIndexLocation(b);
    open();
    QCOMPARE(offered(), (QStringList{u"More files..."_s, b, a}));
}

void TestFrmOpen::everyControlHasAnAccessibleName()
{
    open();
    for (const auto* widget : m_window->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith(u"qt_"_s))
            continue;
        auto* face = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
        QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
    }
}

void TestFrmOpen::okWithNewIndexCreatesAProject()
{
    open();
    click(u"CmdOk"_s);
    QCOMPARE(m_log, QStringList{u"CreateIndex"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmOpen::enterPressesOk()
{
    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(m_log, QStringList{u"CreateIndex"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmOpen::okWithNothingSelectedHasTheUserPick()
{
    open();
    click(u"optOpen"_s);
    click(u"CmdOk"_s);
    QCOMPARE(m_log, QStringList{u"OpenIndex()"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmOpen::okWithMoreFilesHasTheUserPick()
{
    app::g_objRegHndlr->SaveIndexLocation(m_fixture->file(u"a.mdb"_s, "x"));
    open();
    click(u"optOpen"_s);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(0));
    QCOMPARE(list().currentRow(), 0);
    click(u"CmdOk"_s);
    QCOMPARE(m_log, QStringList{u"OpenIndex()"_s});
}

void TestFrmOpen::okWithAnEntryOpensIt()
{
    const QString a = m_fixture->file(u"a.mdb"_s, "x");
    app::g_objRegHndlr->SaveIndexLocation(a);
    open();
    click(u"optOpen"_s);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(1));
    click(u"CmdOk"_s);
    QCOMPARE(m_log, QStringList{u"OpenIndex("_s + a + u")"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmOpen::okWithNewIndexLeavesTheSelectedEntryAlone()
{
    app::g_objRegHndlr->SaveIndexLocation(m_fixture->file(u"a.mdb"_s, "x"));
    open();
    click(u"optOpen"_s);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(1));
    click(u"optNew"_s);
    click(u"CmdOk"_s);
    QCOMPARE(m_log, QStringList{u"CreateIndex"_s});
}

void TestFrmOpen::aDoubleClickOpensTheEntry()
{
    const QString a = m_fixture->file(u"a.mdb"_s, "x");
    app::g_objRegHndlr->SaveIndexLocation(a);
    open();
    click(u"optOpen"_s);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(1));
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, placeOf(1));
    QCOMPARE(m_log, QStringList{u"OpenIndex("_s + a + u")"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmOpen::aDoubleClickOnMoreFilesHasTheUserPick()
{
    open();
    click(u"optOpen"_s);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, placeOf(0));
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, placeOf(0));
    QCOMPARE(m_log, QStringList{u"OpenIndex()"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmOpen::cancelAndEscapeOpenNothing()
{
    open();
    click(u"cmdCancel"_s);
    QVERIFY(!m_window->isVisible());
    open();
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
    QCOMPARE(m_log, QStringList());
    QCOMPARE(texts(), QStringList());
}

void TestFrmOpen::helpAsksForTheManualAndLeavesTheWindowOpen()
{
    app::setInstallationFolder(m_fixture->path(u"nowhere"_s));
    open();
    click(u"cmdHelp"_s);
    QCOMPARE(texts(),
             QStringList{u"Unable to launch HTML Help,\r\n"
                         u"or the topic you requested does not exist"_s});
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_log, QStringList());
}

void TestFrmOpen::loadingWithoutTheRecentListIsTold()
{
    app::g_objRegHndlr.reset();
    open();
    QCOMPARE(m_fixture->prompts.boxes.size(), std::size_t{1});
    QVERIFY(m_fixture->prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(texts(),
             QStringList{u"Error while loading file handler form. \r\n"
                         u"Error : 91. Object variable not set"_s});
    QCOMPARE(offered(), QStringList{u"More files..."_s});
}

void TestFrmOpen::openingWithoutTheMainWindowIsTold()
{
    app::g_frmIndex.reset();
    open();
    click(u"optOpen"_s);
    click(u"CmdOk"_s);
    QCOMPARE(texts(),
             QStringList{u"Error while opening index. \r\n"
                         u"Error : 91. Object variable not set"_s});
    QVERIFY(!m_window->isVisible());
}

void TestFrmOpen::creatingWithoutTheMainWindowIsTold()
{
    app::g_frmIndex.reset();
    open();
    click(u"CmdOk"_s);
    QCOMPARE(texts(),
             QStringList{u"Error while creating index. \r\n"
                         u"Error : 91. Object variable not set"_s});
    QVERIFY(!m_window->isVisible());
}

QTEST_MAIN(TestFrmOpen)
#include "tst_frm_open.moc"
