// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What the session does when the application fails it, at moments that only the application in
// memory can be made to choose.
#include "datasheets/cXlHndlr.h"
#include "datasheets/memory_desk.h"
#include "spreadsheet/host.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::datasheets::xlHndlr;
using ostrand::tests::MemoryDesk;
using ostrand::tests::SessionDesk;
using ostrand::tests::UnsavedAnswer;
using ostrand::toolkit::Answer;

namespace {

const QString front = SessionDesk::front;
const QString lost = u"The spreadsheet application has ended unexpectedly. Changes of datasheet "
                     "PT-1.xls since its last save are lost."_s;

} // namespace

class TestSessionFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void withoutAnApplicationNothingOpens();
    void aReadOnlyTemplateIsUsedAsItIs();
    void aReadOnlyDatasheetIsToldAtSaving();
    void theUsersOwnApplicationIsNoSession();
    void templatesLeaveAnOpenSessionAlone();
    void oneApplicationServesASession();

    void aSelectionThatFailsIsToldAtTheNextChange();
    void aChartInFrontIsNoFailure();
    void aSheetLeftBehindIsNotHeard();
    void fillingCountsAsAChange();

    void aWorkbookThatCannotBeClosedIsTold();
    void aDeclinedUpdateThatCannotCloseIsToldAndEnds();
    void anApplicationGoneAtClosingIsTold();
    void anApplicationGoneAtLeavingIsToldOnce();
    void anApplicationThatDiesDuringAHandlerIsTold();
    void anApplicationThatDiesWhileFillingLeavesTheMainWindowFree();
    void aDatasheetClosedWhileFillingLeavesTheMainWindowFree();
    void anApplicationThatDiesUnderAPromptLeavesTheMainWindowFree_data();
    void anApplicationThatDiesUnderAPromptLeavesTheMainWindowFree();
    void anEndToldTwiceIsShownOnce();
    void leavingUnderAPromptIsRefused();
    void releasingADeadSessionIsQuiet();
    void theSessionEndsWithoutAMainWindow();
    void openingWithoutAMainWindowIsTold();

private:
    tests::IndexFixture& program() { return m_desk->program(); }

    std::unique_ptr<MemoryDesk> m_desk;
};

void TestSessionFaults::init()
{
    m_desk = std::make_unique<MemoryDesk>();
    m_desk->prepare();
}

void TestSessionFaults::withoutAnApplicationNothingOpens()
{
    const QString path = m_desk->giveDatasheet();
    m_desk->office.isInstalled = false;
    program().press(u"cmdDatasheet"_s);
    QVERIFY(!xlHndlr().CkTemplateExists(u"TEST.xlt"_s));
    QVERIFY(!xlHndlr().CopySprSht(u"TEST.xlt"_s, path));
    const QString words = u"429 : ActiveX component can't create object"_s;
    QCOMPARE(program().texts(),
             (QStringList{u"Error while opening Excel Spreadsheet "_s + path + u".\r\n"_s + words,
                          u"Error while checking for template existance. TEST.xlt."_s + words,
                          u"Error while copying template to datasheet TEST.xlt."_s + words}));
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isMainWindowFree());
}

void TestSessionFaults::aReadOnlyTemplateIsUsedAsItIs()
{
    QFile::setPermissions(m_desk->path(u"templates/TEST.xlt"_s), QFile::ReadOwner);
    QVERIFY(xlHndlr().CkTemplateExists(u"TEST.xlt"_s));
    QVERIFY(xlHndlr().CopySprSht(u"TEST.xlt"_s, m_desk->path(u"sheets/made.xls"_s)));
    QVERIFY(QFile::exists(m_desk->path(u"sheets/made.xls"_s)));
    QCOMPARE(program().texts(), QStringList());
}

void TestSessionFaults::aReadOnlyDatasheetIsToldAtSaving()
{
    m_desk->openDatasheet();
    QFile::setPermissions(m_desk->path(u"sheets/PT-1.xls"_s), QFile::ReadOwner);
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    program().prompts.answers = {Answer::Yes};
    m_desk->save();
    QCOMPARE(program().texts().back(),
             u"Error while saving datasheet PT-1.xls.\r\n70 : Permission denied"_s);
    QVERIFY(m_desk->isWindowVisible());
    QCOMPARE(program().stored(SessionDesk::tag, u"Manufacturer"_s), u"Halden"_s);
    // The way out is another name; the database has the values already.
    m_desk->saveAs(m_desk->path(u"sheets/other.xls"_s));
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(xlHndlr().filename(), u"other.xls"_s);
    m_desk->closeWindow();
    QVERIFY(m_desk->isMainWindowFree());
}

void TestSessionFaults::theUsersOwnApplicationIsNoSession()
{
    const auto users = spreadsheet::CreateObject();
    users->Add();
    users->setVisible(true);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    m_desk->openDatasheet();
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QCOMPARE(m_desk->office.applications(), 2);
}

void TestSessionFaults::templatesLeaveAnOpenSessionAlone()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D30"_s, u"unsaved"_s);
    QVERIFY(xlHndlr().CkTemplateExists(u"TEST.xlt"_s));
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QCOMPARE(m_desk->cellText(front, u"D30"_s), u"unsaved"_s);
}

void TestSessionFaults::oneApplicationServesASession()
{
    QCOMPARE(m_desk->office.applications(), 0);
    xlHndlr().CkTemplateExists(u"TEST.xlt"_s);
    QCOMPARE(m_desk->office.applications(), 0);
    m_desk->openDatasheet();
    QCOMPARE(m_desk->office.applications(), 1);
    m_desk->office.answers = {UnsavedAnswer::Discard};
    m_desk->closeWindow();
    QCOMPARE(m_desk->office.applications(), 0);
}

void TestSessionFaults::aSelectionThatFailsIsToldAtTheNextChange()
{
    m_desk->openDatasheet();
    m_desk->office.failSelection(spreadsheet::Error(1004, u"No sheet"_s));
    m_desk->selectSheet(front);
    QCOMPARE(program().texts(), QStringList());
    m_desk->typeIn(front, u"D30"_s, u"x"_s);
    QCOMPARE(program().prompts.boxes.size(), std::size_t{1});
    QCOMPARE(program().prompts.boxes[0].title, u"Error"_s);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().texts(),
             QStringList{u"Error while editing spreadsheet. \r\nError : 1004. No sheet"_s});
    QVERIFY(m_desk->isWindowVisible());
    m_desk->typeIn(front, u"D30"_s, u"y"_s);
    QCOMPARE(program().texts(), QStringList());
}

void TestSessionFaults::aChartInFrontIsNoFailure()
{
    m_desk->openDatasheet();
    m_desk->office.failSelection(spreadsheet::Error(13, u"Type mismatch"_s));
    m_desk->selectSheet(front);
    m_desk->typeIn(front, u"D30"_s, u"x"_s);
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(xlHndlr().WorksheetName(), front);
}

/// A change on a sheet that is not the current one is not noticed at saving, only at closing.
void TestSessionFaults::aSheetLeftBehindIsNotHeard()
{
    m_desk->openDatasheet();
    m_desk->save();
    m_desk->selectSheet(SessionDesk::notes);
    m_desk->office.failSelection(spreadsheet::Error(13, u"Type mismatch"_s));
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    m_desk->save();
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(program().stored(SessionDesk::tag, u"Manufacturer"_s), u"Calder & Roe"_s);
    m_desk->closeWindow();
    QCOMPARE(program().texts().size(), 1);
}

/// The first save after opening runs the check, although nobody has typed.
void TestSessionFaults::fillingCountsAsAChange()
{
    m_desk->openDatasheet();
    tests::ProgramFixture::execute(m_desk->project(),
                                   u"update qryProjectInfo set attributeValue = 'C-8'"_s);
    QVERIFY(program().tags().Field(u"Manufacturer"_s).text() == u"Calder & Roe"_s);
    program().tags().Edit();
    program().tags().SetField(u"Manufacturer"_s, u"Halden"_s);
    program().tags().Update();
    m_desk->save();
    QCOMPARE(program().texts().size(), 1);
}

void TestSessionFaults::aWorkbookThatCannotBeClosedIsTold()
{
    m_desk->openDatasheet();
    m_desk->office.closeFailure = spreadsheet::Error(1004, u"Close failed"_s);
    program().press(u"cmdExit"_s);
    QCOMPARE(program().prompts.boxes.at(0).title, u"Ostrand Instrument Datasheets"_s);
    QCOMPARE(program().texts(), QStringList{u"Error while closing. 1004 Close failed"_s});
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isMainWindowFree());
    QVERIFY(!program().window.isVisible());
}

void TestSessionFaults::aDeclinedUpdateThatCannotCloseIsToldAndEnds()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    program().prompts.whileOpen = [this](const toolkit::Box& box) {
        if (box.buttons == toolkit::BoxButtons::YesNo)
            m_desk->office.closeFailure = spreadsheet::Error(1004, u"Close failed"_s);
    };
    m_desk->office.answers = {UnsavedAnswer::Discard};
    m_desk->closeWindow();
    QCOMPARE(program().texts().back(), u"Error while closing. 1004 Close failed"_s);
    QVERIFY(m_desk->isMainWindowFree());
    // Nothing is left of the flag that would skip the next session's check.
    program().prompts.whileOpen = {};
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    m_desk->closeWindow();
    QCOMPARE(program().texts().size(), 1);
}

void TestSessionFaults::anApplicationGoneAtClosingIsTold()
{
    m_desk->openDatasheet();
    m_desk->office.kill();
    QVERIFY(xlHndlr().CloseOpenDatasheet());
    QCOMPARE(program().texts(), QStringList{lost});
    QVERIFY(m_desk->isMainWindowFree());
    m_desk->office.tellLost();
    QCOMPARE(program().texts(), QStringList());
}

void TestSessionFaults::anApplicationGoneAtLeavingIsToldOnce()
{
    m_desk->openDatasheet();
    m_desk->office.kill();
    program().press(u"cmdExit"_s);
    QCOMPARE(program().texts(), QStringList{lost});
    QVERIFY(!program().window.isVisible());
}

/// The calls of a handler fail one after the other; then comes the word that all is over.
void TestSessionFaults::anApplicationThatDiesDuringAHandlerIsTold()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D11"_s, u"PT-9"_s);
    program().prompts.whileOpen = [this](const toolkit::Box& box) {
        if (box.icon == toolkit::BoxIcon::Information)
            m_desk->office.kill();
    };
    m_desk->save();
    program().prompts.whileOpen = {};
    const QStringList shown = program().texts();
    QVERIFY2(shown.size() == 3, qPrintable(shown.join(u'|')));
    QCOMPARE(shown[1],
             u"Error while checking differences between Excel Datasheet and index. \r\n"
             "Error : 462. The spreadsheet application has ended"_s);
    QVERIFY(shown[2].startsWith(u"Error while checking differences between Excel Datasheet and "
                                "document cross reference. \r\n"_s));
    QVERIFY(xlHndlr().XlAlreadyOpen());
    m_desk->office.tellLost();
    QCOMPARE(program().texts(), QStringList{lost});
    QVERIFY(m_desk->isMainWindowFree());
}

void TestSessionFaults::anApplicationThatDiesWhileFillingLeavesTheMainWindowFree()
{
    m_desk->giveDatasheet();
    m_desk->office.whenWritten = [this] { m_desk->office.kill(); };
    program().prompts.whileOpen = [this](const toolkit::Box&) { m_desk->office.tellLost(); };
    program().press(u"cmdDatasheet"_s);
    QVERIFY(program().texts().contains(lost));
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isMainWindowFree());
}

void TestSessionFaults::aDatasheetClosedWhileFillingLeavesTheMainWindowFree()
{
    m_desk->giveDatasheet();
    tests::ProgramFixture::execute(
        m_desk->project(),
        u"insert into Map (DatasheetType, Worksheet, object, Field, TableName) values ('"_s
            + SessionDesk::type + u"', 'NOWHERE', 'D30', 'Tag', 'index')"_s);
    m_desk->office.answers = {UnsavedAnswer::Discard};
    program().prompts.whileOpen = [this](const toolkit::Box& box) {
        if (box.title != u"ERROR!"_s)
            return;
        program().prompts.whileOpen = {};
        m_desk->closeWindow();
    };
    program().press(u"cmdDatasheet"_s);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isMainWindowFree());
}

void TestSessionFaults::anApplicationThatDiesUnderAPromptLeavesTheMainWindowFree_data()
{
    QTest::addColumn<bool>("closing");
    QTest::newRow("saving") << false;
    QTest::newRow("closing") << true;
}

void TestSessionFaults::anApplicationThatDiesUnderAPromptLeavesTheMainWindowFree()
{
    QFETCH(const bool, closing);
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    program().prompts.answers = {Answer::Yes};
    program().prompts.whileOpen = [this](const toolkit::Box& box) {
        if (box.buttons == toolkit::BoxButtons::YesNo)
            m_desk->kill();
    };
    closing ? m_desk->closeWindow() : m_desk->save();
    program().prompts.whileOpen = {};
    const QStringList shown = program().texts();
    QCOMPARE(shown.size(), 2);
    QCOMPARE(shown.back(), lost);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isMainWindowFree());
    QCOMPARE(program().stored(SessionDesk::tag, u"Manufacturer"_s), u"Calder & Roe"_s);
}

void TestSessionFaults::anEndToldTwiceIsShownOnce()
{
    m_desk->openDatasheet();
    program().prompts.whileOpen = [this](const toolkit::Box&) { m_desk->office.tellLost(); };
    m_desk->kill();
    m_desk->office.tellLost();
    QCOMPARE(program().texts(), QStringList{lost});
}

void TestSessionFaults::leavingUnderAPromptIsRefused()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    program().prompts.whileOpen = [this](const toolkit::Box& box) {
        if (box.buttons == toolkit::BoxButtons::YesNo)
            QVERIFY(!program().window.close());
    };
    m_desk->save();
    QVERIFY(program().window.isVisible());
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QCOMPARE(program().texts().size(), 1);
}

void TestSessionFaults::releasingADeadSessionIsQuiet()
{
    m_desk->openDatasheet();
    m_desk->kill();
    program().texts();
    datasheets::g_objXlHndlr.reset();
    QCOMPARE(program().texts(), QStringList());
    datasheets::g_objXlHndlr = std::make_unique<datasheets::cXlHndlr>();
}

void TestSessionFaults::theSessionEndsWithoutAMainWindow()
{
    const QString path = m_desk->path(u"sheets/alone.xls"_s);
    SessionDesk::makeWorkbook(path, u"NOBODY KNOWS"_s);
    xlHndlr().OpenXl(path);
    QVERIFY(xlHndlr().XlAlreadyOpen());
    const auto window = std::move(app::g_frmIndex);
    m_desk->office.answers = {UnsavedAnswer::Discard};
    m_desk->closeWindow();
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    // The checks tell that they had nothing to compare with.
    QCOMPARE(program().texts().filter(u"91. Object variable not set"_s).size(), 2);
    app::g_frmIndex = nullptr;
    xlHndlr().RefreshIndexDb();
    QCOMPARE(program().texts(),
             QStringList{u"Error while refreshing index database \r\nError : 91. Object variable "
                         "not set"_s});
}

void TestSessionFaults::openingWithoutAMainWindowIsTold()
{
    const QString path = m_desk->path(u"sheets/alone.xls"_s);
    SessionDesk::makeWorkbook(path);
    const auto window = std::move(app::g_frmIndex);
    xlHndlr().OpenXl(path);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QCOMPARE(program().texts().back(),
             u"Error while opening Excel Spreadsheet "_s + path
                 + u".\r\n91 : Object variable not set"_s);
}

QTEST_MAIN(TestSessionFaults)
#include "tst_session_faults.moc"
