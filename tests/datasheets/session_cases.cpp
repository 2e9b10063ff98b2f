// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/session_cases.h"

#include "datasheets/cXlHndlr.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using ostrand::datasheets::xlHndlr;
using ostrand::spreadsheet::CellValue;
using ostrand::toolkit::Answer;

namespace ostrand::tests {
namespace {

constexpr int patience = 30000; ///< milliseconds for an effect of another process

const QString front = SessionDesk::front;
const QString notes = SessionDesk::notes;
const QString question = u"You have modified data that belongs to the index.\r\n"
                         "Do you wish to update the index database?"_s;
const QString lostMessage =
    u"The spreadsheet application has ended unexpectedly. Changes of datasheet PT-1.xls since its "
    "last save are lost."_s;
const QString tagMessage =
    u"One cannot edit tag number from datasheet. Please, modify tag from index."_s;

CellValue text(QStringView value)
{
    return value.toString();
}

} // namespace

SessionCases::SessionCases(MakeDesk makeDesk)
    : m_makeDesk(std::move(makeDesk))
{
}

void SessionCases::init()
{
    m_desk = m_makeDesk();
    m_desk->prepare();
}

void SessionCases::see(const QStringList& expected)
{
    const auto shown = [this] {
        QStringList texts;
        for (const toolkit::Box& box : program().prompts.boxes)
            texts << box.text;
        return texts;
    };
    QTRY_COMPARE_WITH_TIMEOUT(shown().size(), expected.size(), patience);
    m_desk->settle();
    QCOMPARE(shown(), expected);
    program().prompts.boxes.clear();
}

void SessionCases::seeOne(const QString& start)
{
    QTRY_VERIFY_WITH_TIMEOUT(!program().prompts.boxes.empty(), patience);
    m_desk->settle();
    const QStringList shown = program().texts();
    QVERIFY2(shown.size() == 1 && shown[0].startsWith(start), qPrintable(shown.join(u'|')));
}

void SessionCases::seeNothing()
{
    m_desk->settle();
    QCOMPARE(program().texts(), QStringList());
}

void SessionCases::waitForEnd()
{
    QTRY_VERIFY_WITH_TIMEOUT(!xlHndlr().XlAlreadyOpen(), patience);
    m_desk->settle();
    QTRY_VERIFY_WITH_TIMEOUT(!m_desk->isWindowVisible(), patience);
    QVERIFY(m_desk->isMainWindowFree());
    QCOMPARE(program().window.ActiveTag(), SessionDesk::tag);
    QCOMPARE(program().cellText(index::column::tag), SessionDesk::tag);
}

// ---- templates

void SessionCases::aTemplateIsFoundAndLeavesNoSession()
{
    QVERIFY(xlHndlr().CkTemplateExists(u"TEST.xlt"_s));
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QCOMPARE(xlHndlr().filename(), QString());
    QCOMPARE(xlHndlr().DatasheetType(), QString());
    QVERIFY_EXCEPTION_THROWN(xlHndlr().WorksheetName(), store::Error);
    QVERIFY(m_desk->isMainWindowFree());
    seeNothing();
}

void SessionCases::aMissingTemplateIsToldAndMakesNoFile()
{
    QVERIFY(!xlHndlr().CkTemplateExists(u"NONE.xlt"_s));
    QCOMPARE(program().prompts.boxes.size(), std::size_t{1});
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::None);
    QCOMPARE(program().prompts.boxes[0].title, u"Ostrand Instrument Datasheets"_s);
    see({u"Brevane Datasheet Excel Template NONE.xlt does not exist in template directory."_s});
    QVERIFY(!xlHndlr().CopySprSht(u"NONE.xlt"_s, m_desk->path(u"sheets/made.xls"_s)));
    seeOne(u"Error while copying template to datasheet NONE.xlt.1004 : "_s);
    QVERIFY(!QFile::exists(m_desk->path(u"sheets/made.xls"_s)));
    QVERIFY(!xlHndlr().XlAlreadyOpen());
}

void SessionCases::aTemplateThatIsNoWorkbookIsTold()
{
    program().file(u"templates/BAD.xlt"_s, QByteArray("PK\x03\x04 no workbook"));
    QVERIFY(!xlHndlr().CkTemplateExists(u"BAD.xlt"_s));
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    seeOne(u"Error while checking for template existance. BAD.xlt."_s);
}

void SessionCases::aCopyCarriesTheTypeOfItsTemplate()
{
    const QString copy = m_desk->path(u"sheets/PT-1.xls"_s);
    QVERIFY(xlHndlr().CopySprSht(u"TEST.xlt"_s, copy));
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    xlHndlr().OpenXl(copy);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    QCOMPARE(xlHndlr().DatasheetType(), SessionDesk::type);
    QCOMPARE(xlHndlr().filename(), u"PT-1.xls"_s);
    QTRY_COMPARE_WITH_TIMEOUT(xlHndlr().WorksheetName(), front, patience);
    seeNothing();
}

void SessionCases::aCopyReplacesAFileOfItsName()
{
    const QString copy = program().file(u"sheets/PT-1.xls"_s, "something else");
    QVERIFY(xlHndlr().CopySprSht(u"TEST.xlt"_s, copy));
    QVERIFY(SessionDesk::storedValue(copy, front, u"A1"_s) == text(u"Made for a test"));
    seeNothing();
}

void SessionCases::aCopyIntoAMissingFolderIsTold()
{
    const QString copy = m_desk->path(u"nowhere/PT-1.xls"_s);
    QVERIFY(!xlHndlr().CopySprSht(u"TEST.xlt"_s, copy));
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    seeOne(u"Error while copying template to datasheet TEST.xlt.76 : "_s);
}

void SessionCases::theButtonMakesADatasheetAndOpensIt()
{
    QTimer::singleShot(0, this, [] {
        QTRY_VERIFY(QApplication::activeModalWidget());
        auto* window = QApplication::activeModalWidget();
        QTest::mouseClick(window->findChild<QPushButton*>(u"cmdSelect"_s), Qt::LeftButton);
    });
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    seeNothing();
    QCOMPARE(stored(u"DatasheetPath"_s), m_desk->path(u"sheets"_s));
    QCOMPARE(stored(u"DatasheetFileName"_s), u"PT-1.xls"_s);
    QCOMPARE(program().cellText(index::column::datasheetPath), m_desk->path(u"sheets"_s));
    QCOMPARE(program().cellText(index::column::datasheetFileName), u"PT-1.xls"_s);
    QCOMPARE(m_desk->cellText(front, u"D12"_s), u"Inlet pressure"_s);
}

// ---- opening

void SessionCases::openingShowsTheDatasheetAndTakesTheMainWindow()
{
    app::g_blnPidLinked = true;
    m_desk->openDatasheet();
    seeNothing();
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QVERIFY(!app::g_blnPidLinked);
    QMainWindow& window = program().window;
    for (const QString& name : {u"GridIndex"_s,
                                u"cmdDatasheet"_s,
                                u"cmdDelete"_s,
                                u"cmdSave"_s,
                                u"cmdRefresh"_s,
                                u"cmdTag"_s,
                                u"cmdImport"_s,
                                u"cmdExport"_s,
                                u"mnuEdit"_s,
                                u"mnuReport"_s,
                                u"mnuDoc"_s})
        QVERIFY2(!window.findChild<QWidget*>(name)->isEnabled(), qPrintable(name));
    for (const QString& name : {u"mnuFileNew"_s, u"mnuFileOpen"_s})
        QVERIFY2(!window.findChild<QAction*>(name)->isEnabled(), qPrintable(name));
    QVERIFY(window.findChild<QAction*>(u"mnuFileExit"_s)->isEnabled());
    QVERIFY(window.findChild<QWidget*>(u"cmdExit"_s)->isEnabled());
    QVERIFY(window.findChild<QWidget*>(u"cmdHelp"_s)->isEnabled());
}

void SessionCases::openingFillsTheMappedCells()
{
    m_desk->openDatasheet();
    QCOMPARE(m_desk->cellText(front, u"D11"_s), SessionDesk::tag);
    QCOMPARE(m_desk->cellText(front, u"D12"_s), u"Inlet pressure"_s);
    QCOMPARE(m_desk->cellText(front, u"D13"_s), u"Calder & Roe"_s);
    QCOMPARE(m_desk->cellText(front, u"H5"_s), u"C-7"_s);
    QCOMPARE(m_desk->cellText(front, u"H6"_s), u"RQ-1"_s);
    QCOMPARE(m_desk->cellText(front, u"H7"_s), QString());
    QCOMPARE(m_desk->cellText(notes, u"D11"_s), SessionDesk::tag);
    QCOMPARE(m_desk->cellText(notes, u"B14"_s), u"none"_s);
    QCOMPARE(m_desk->cellText(front, u"A1"_s), u"Made for a test"_s);
    seeNothing();
}

void SessionCases::fillingIsNotUndone()
{
    m_desk->openDatasheet();
    m_desk->undo();
    m_desk->undo();
    m_desk->settle();
    QCOMPARE(m_desk->cellText(front, u"D13"_s), u"Calder & Roe"_s);
    QCOMPARE(m_desk->cellText(notes, u"B14"_s), u"none"_s);
}

void SessionCases::theDatabaseWinsAtEveryOpening()
{
    m_desk->openDatasheet();
    m_desk->save();
    m_desk->closeWindow();
    waitForEnd();
    ProgramFixture::execute(m_desk->project(),
                            u"update qryIndex set Manufacturer = 'Other' where Tag = 'PT-1'"_s);
    program().open(m_desk->project());
    program().goTo(SessionDesk::tag);
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    QCOMPARE(m_desk->cellText(front, u"D13"_s), u"Other"_s);
    seeNothing();
}

void SessionCases::aNullValueClearsItsCell()
{
    m_desk->openDatasheet();
    m_desk->save();
    m_desk->closeWindow();
    waitForEnd();
    ProgramFixture::execute(m_desk->project(),
                            u"update qryIndex set Manufacturer = Null where Tag = 'PT-1'"_s);
    program().open(m_desk->project());
    program().goTo(SessionDesk::tag);
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    QCOMPARE(m_desk->cellText(front, u"D13"_s), QString());
    seeNothing();
}

void SessionCases::theLastDocumentOfAKindIsShown()
{
    program().addDocument(u"RQ-2"_s, u"REQUISITION"_s);
    program().addTie(SessionDesk::tag, u"RQ-2"_s, u"REQUISITION"_s);
    m_desk->openDatasheet();
    QCOMPARE(m_desk->cellText(front, u"H6"_s), u"RQ-2"_s);
    // The comparison knows the first one, so the other counts as typed.
    answer(Answer::No);
    m_desk->save();
    see({question});
}

void SessionCases::aWorkbookOfAnUnknownTypeShowsNothing()
{
    m_desk->giveDatasheet(SessionDesk::tag, u"NOBODY KNOWS"_s);
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    seeNothing();
    QCOMPARE(m_desk->cellText(front, u"D11"_s), QString());
    QVERIFY(xlHndlr().XlAlreadyOpen());
}

void SessionCases::aWorkbookWithoutTypeIsTold()
{
    m_desk->giveDatasheet(SessionDesk::tag, QString());
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    m_desk->settle();
    // Once for each of the three groups of values.
    const QStringList shown = program().texts();
    QCOMPARE(shown.size(), 3);
    for (const QString& each : shown)
        QVERIFY2(each.startsWith(u"Error while getting datasheet type. \r\n5 : "_s),
                 qPrintable(each));
    QCOMPARE(m_desk->cellText(front, u"D11"_s), QString());
    QVERIFY(!m_desk->isMainWindowFree());
}

void SessionCases::aSecondOpeningDoesNothing()
{
    const QString other = m_desk->giveDatasheet(u"PT-2"_s);
    m_desk->openDatasheet();
    xlHndlr().OpenXl(other);
    seeNothing();
    QCOMPARE(xlHndlr().filename(), u"PT-1.xls"_s);
    program().window.findChild<QAction*>(u"mnuDocDtSht"_s)->setEnabled(true);
    program().choose(u"mnuDocDtSht"_s);
    QCOMPARE(program().prompts.boxes.size(), std::size_t{1});
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::None);
    see({u"Datasheet PT-1.xls is already open.  Only one datasheet can be opened at a time."_s});
}

void SessionCases::aFileThatIsNoWorkbookIsTold()
{
    const QString path = m_desk->giveDatasheet();
    program().file(u"sheets/PT-1.xls"_s, QByteArray("PK\x03\x04 no workbook"));
    program().press(u"cmdDatasheet"_s);
    QVERIFY(program().prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    seeOne(u"Error while opening Excel Spreadsheet "_s + path + u".\r\n"_s);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isMainWindowFree());
}

void SessionCases::aMissingFileIsToldAndNoLeavesItSo()
{
    const QString path = m_desk->giveDatasheet();
    QFile::remove(path);
    answer(Answer::No);
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().prompts.boxes.size(), std::size_t{1});
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Question);
    QVERIFY(program().prompts.boxes[0].buttons == toolkit::BoxButtons::YesNo);
    see({u"Error while trying to open file "_s + path
         + u". File either doesn't exist or has been moved.\r\n\r\n"
           "Do you wish to locate datasheet?\r\n\r\n"
           "To create a new datasheet delete datasheet file name and datasheet file path from "
           "tag record in the index."_s});
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isMainWindowFree());
    QVERIFY(program().prompts.fileRequests.empty());
}

void SessionCases::aMissingFileIsLocatedAndOpened()
{
    const QString path = m_desk->giveDatasheet();
    QDir(m_desk->path(QString())).mkdir(u"moved"_s);
    QVERIFY(QFile::rename(path, m_desk->path(u"moved/found.xls"_s)));
    answer(Answer::Yes);
    program().prompts.files = {m_desk->path(u"moved/found.xls"_s)};
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    QCOMPARE(xlHndlr().filename(), u"found.xls"_s);
    QCOMPARE(stored(u"DatasheetPath"_s), m_desk->path(u"moved"_s));
    QCOMPARE(stored(u"DatasheetFileName"_s), u"found.xls"_s);
    QVERIFY(!m_desk->isMainWindowFree());
}

void SessionCases::aCancelledLocationLeavesTheRecord()
{
    QFile::remove(m_desk->giveDatasheet());
    answer(Answer::Yes);
    program().prompts.files = {std::nullopt};
    program().press(u"cmdDatasheet"_s);
    QCOMPARE(program().prompts.fileRequests.size(), std::size_t{1});
    QCOMPARE(program().texts().size(), 1);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QCOMPARE(stored(u"DatasheetPath"_s), m_desk->path(u"sheets"_s));
    QCOMPARE(stored(u"DatasheetFileName"_s), u"PT-1.xls"_s);
}

// ---- saving

void SessionCases::savingWithoutDifferencesAsksNothing()
{
    m_desk->openDatasheet();
    const QString path = m_desk->path(u"sheets/PT-1.xls"_s);
    m_desk->typeIn(front, u"D30"_s, u"unmapped"_s);
    m_desk->save();
    QTRY_VERIFY_WITH_TIMEOUT(SessionDesk::storedValue(path, front, u"D30"_s) == text(u"unmapped"),
                             patience);
    seeNothing();
    QVERIFY(m_desk->isWindowVisible());
    QVERIFY(xlHndlr().XlAlreadyOpen());
}

void SessionCases::savingWithYesUpdatesTheDatabaseAndTheFile()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->save();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{1}, patience);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::None);
    QVERIFY(program().prompts.boxes[0].buttons == toolkit::BoxButtons::YesNo);
    QCOMPARE(program().prompts.boxes[0].title, u"Update index database?"_s);
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    QCOMPARE(stored(u"ServiceDescription"_s), u"Inlet pressure"_s);
    QTRY_VERIFY_WITH_TIMEOUT(
        SessionDesk::storedValue(m_desk->path(u"sheets/PT-1.xls"_s), front, u"D13"_s)
            == text(u"Halden"),
        patience);
    QVERIFY(m_desk->isWindowVisible());
    QVERIFY(xlHndlr().XlAlreadyOpen());
}

void SessionCases::savingWithNoPutsTheDatabaseBackAndSavesNothing()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    m_desk->typeIn(front, u"D30"_s, u"unmapped"_s);
    answer(Answer::No);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
    QTRY_COMPARE_WITH_TIMEOUT(m_desk->cellText(front, u"D13"_s), u"Calder & Roe"_s, patience);
    QCOMPARE(m_desk->cellText(front, u"D30"_s), u"unmapped"_s);
    QVERIFY(m_desk->isWindowVisible());
    QVERIFY(SessionDesk::storedValue(m_desk->path(u"sheets/PT-1.xls"_s), front, u"D30"_s)
            == CellValue());
}

void SessionCases::savingTwiceAsksOnce()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    m_desk->save();
    seeNothing();
    m_desk->typeIn(front, u"D13"_s, u"Third"_s);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"Third"_s);
}

void SessionCases::anEntryThatIsStillOpenCountsAtSaving()
{
    m_desk->openDatasheet();
    m_desk->save(); // from here on only a change has it look for differences
    m_desk->settle();
    m_desk->beginTyping(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
}

void SessionCases::anEntryThatIsStillOpenCountsAtClosing()
{
    m_desk->openDatasheet();
    m_desk->save();
    m_desk->settle();
    m_desk->beginTyping(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->closeWindow();
    see({question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    QVERIFY(SessionDesk::storedValue(m_desk->path(u"sheets/PT-1.xls"_s), front, u"D13"_s)
            == text(u"Halden"));
}

void SessionCases::savingUnderAnotherNameUpdatesTheDatabase()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->saveAs(m_desk->path(u"sheets/copy.xls"_s));
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    for (const QString& name : {u"sheets/PT-1.xls"_s, u"sheets/copy.xls"_s}) {
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_desk->path(name)), patience);
        QTRY_VERIFY_WITH_TIMEOUT(SessionDesk::storedValue(m_desk->path(name), front, u"D13"_s)
                                     == text(u"Halden"),
                                 patience);
    }
    QCOMPARE(xlHndlr().filename(), u"copy.xls"_s);
    QCOMPARE(stored(u"DatasheetFileName"_s), u"PT-1.xls"_s);
}

void SessionCases::aSaveThatFailsIsToldAndKeepsTheSession()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    QVERIFY(QDir().rename(m_desk->path(u"sheets"_s), m_desk->path(u"away"_s)));
    answer(Answer::Yes);
    m_desk->save();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{2}, patience);
    QVERIFY(program().prompts.boxes[1].icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().prompts.boxes[1].title, u"Ostrand Instrument Datasheets"_s);
    const QStringList shown = program().texts();
    QVERIFY2(shown[1].startsWith(u"Error while saving datasheet PT-1.xls.\r\n"_s),
             qPrintable(shown[1]));
    m_desk->settle();
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isWindowVisible());
    QVERIFY(!m_desk->isMainWindowFree());
    QCOMPARE(m_desk->cellText(front, u"D13"_s), u"Halden"_s);
    // With the folder back, saving goes on where it failed.
    QVERIFY(QDir().rename(m_desk->path(u"away"_s), m_desk->path(u"sheets"_s)));
    m_desk->save();
    QTRY_VERIFY_WITH_TIMEOUT(
        SessionDesk::storedValue(m_desk->path(u"sheets/PT-1.xls"_s), front, u"D13"_s)
            == text(u"Halden"),
        patience);
}

// ---- closing

void SessionCases::closingWithoutDifferencesEndsTheSession()
{
    m_desk->openDatasheet();
    m_desk->save();
    m_desk->settle();
    m_desk->closeWindow();
    waitForEnd();
    seeNothing();
    QCOMPARE(m_desk->unsavedQuestions(), 0);
    QCOMPARE(xlHndlr().filename(), QString());
}

void SessionCases::unmappedChangesAreTheApplicationsOwnQuestion_data()
{
    QTest::addColumn<UnsavedAnswer>("given");
    QTest::newRow("save") << UnsavedAnswer::Save;
    QTest::newRow("discard") << UnsavedAnswer::Discard;
    QTest::newRow("cancel") << UnsavedAnswer::Cancel;
}

void SessionCases::unmappedChangesAreTheApplicationsOwnQuestion()
{
    QFETCH(const UnsavedAnswer, given);
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D30"_s, u"unmapped"_s);
    m_desk->answerUnsaved(given);
    m_desk->closeWindow();
    QTRY_COMPARE_WITH_TIMEOUT(m_desk->unsavedQuestions(), 1, patience);
    const QString path = m_desk->path(u"sheets/PT-1.xls"_s);
    if (given != UnsavedAnswer::Cancel) {
        waitForEnd();
        QVERIFY((SessionDesk::storedValue(path, front, u"D30"_s) == text(u"unmapped"))
                == (given == UnsavedAnswer::Save));
        seeNothing();
        return;
    }
    seeNothing();
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isWindowVisible());
    QVERIFY(!m_desk->isMainWindowFree());
    QCOMPARE(m_desk->cellText(front, u"D30"_s), u"unmapped"_s);
    // The session is whole: its checks go on, at saving and at closing.
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->closeWindow();
    see({question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
}

void SessionCases::closingWithYesUpdatesTheDatabaseAndTheFile()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->closeWindow();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{1}, patience);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Question);
    QCOMPARE(program().prompts.boxes[0].title, u"Ostrand Instrument Datasheets"_s);
    see({question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    QCOMPARE(program().cellText(6), u"Halden"_s);
    QVERIFY(SessionDesk::storedValue(m_desk->path(u"sheets/PT-1.xls"_s), front, u"D13"_s)
            == text(u"Halden"));
    QCOMPARE(m_desk->unsavedQuestions(), 0);
}

void SessionCases::closingWithNoDropsAllEdits()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    m_desk->typeIn(front, u"D30"_s, u"unmapped"_s);
    answer(Answer::No);
    m_desk->closeWindow();
    see({question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
    const QString path = m_desk->path(u"sheets/PT-1.xls"_s);
    QVERIFY(SessionDesk::storedValue(path, front, u"D13"_s) == CellValue());
    QVERIFY(SessionDesk::storedValue(path, front, u"D30"_s) == CellValue());
    QCOMPARE(m_desk->unsavedQuestions(), 0);
}

void SessionCases::aCloseThatCannotSaveKeepsTheSession()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    QVERIFY(QDir().rename(m_desk->path(u"sheets"_s), m_desk->path(u"away"_s)));
    answer(Answer::Yes);
    m_desk->closeWindow();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{2}, patience);
    const QStringList shown = program().texts();
    QVERIFY2(shown[1].startsWith(u"Error while saving datasheet PT-1.xls.\r\n"_s),
             qPrintable(shown[1]));
    m_desk->settle();
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isWindowVisible());
    QVERIFY(!m_desk->isMainWindowFree());
    QVERIFY(QDir().rename(m_desk->path(u"away"_s), m_desk->path(u"sheets"_s)));
    m_desk->answerUnsaved(UnsavedAnswer::Save);
    m_desk->closeWindow();
    waitForEnd();
    QVERIFY(SessionDesk::storedValue(m_desk->path(u"sheets/PT-1.xls"_s), front, u"D13"_s)
            == text(u"Halden"));
}

void SessionCases::anotherSessionFollows()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::No);
    m_desk->closeWindow();
    see({question});
    waitForEnd();
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    // The closing of the session before has left nothing behind that would skip a check.
    m_desk->typeIn(front, u"D13"_s, u"Second"_s);
    answer(Answer::Yes);
    m_desk->closeWindow();
    see({question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Second"_s);
}

void SessionCases::quittingTheApplicationAsksAsClosingDoes()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->quitApplication();
    see({question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
}

void SessionCases::aLinkedProjectHasImportAndExportBackAfterwards()
{
    ProgramFixture::execute(m_desk->project(),
                            u"update qryProjectInfo set attributeValue = 'pid.mdb' where "
                            u"attributeName = 'DefaultP&IDDatabase'"_s);
    program().open(m_desk->project());
    QVERIFY(app::g_blnPidLinked);
    m_desk->openDatasheet();
    QVERIFY(!app::g_blnPidLinked);
    m_desk->save();
    m_desk->closeWindow();
    waitForEnd();
    QVERIFY(app::g_blnPidLinked);
    QVERIFY(program().window.findChild<QWidget*>(u"cmdImport"_s)->isEnabled());
    QVERIFY(program().window.findChild<QWidget*>(u"cmdExport"_s)->isEnabled());
}

void SessionCases::theWindowIsHiddenWhileAPromptIsUp()
{
    m_desk->openDatasheet();
    QList<bool> visible;
    program().prompts.whileOpen = [&](const toolkit::Box&) {
        visible << m_desk->isWindowVisible();
    };
    m_desk->typeIn(front, u"D11"_s, u"PT-9"_s);
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::No);
    m_desk->save();
    see({tagMessage, question});
    QCOMPARE(visible, (QList<bool>{false, false}));
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::No);
    m_desk->closeWindow();
    see({question});
    QCOMPARE(visible, (QList<bool>{false, false, false}));
    waitForEnd();
}

// ---- what counts as a difference

void SessionCases::aChangedTagIsRestoredAndTold()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D11"_s, u"PT-9"_s);
    m_desk->typeIn(notes, u"D11"_s, u"PT-8"_s);
    m_desk->save();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{2}, patience);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Information);
    see({tagMessage, tagMessage});
    QCOMPARE(m_desk->cellText(front, u"D11"_s), SessionDesk::tag);
    QCOMPARE(m_desk->cellText(notes, u"D11"_s), SessionDesk::tag);
    QVERIFY(m_desk->isWindowVisible());
    QCOMPARE(stored(u"Tag"_s), SessionDesk::tag);
}

void SessionCases::aChangedTagBesideAnotherChangeLeavesTheTagAlone()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D11"_s, u"PT-9"_s);
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    m_desk->closeWindow();
    see({tagMessage, question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    QCOMPARE(program().stored(u"PT-9"_s, u"Tag"_s), u"(none)"_s);
}

void SessionCases::anEmptiedCellSetsTheFieldToNull()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, QString());
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"(null)"_s);
}

void SessionCases::anEmptyCellOverANullFieldIsNoDifference()
{
    m_desk->openDatasheet(u"PT-2"_s);
    m_desk->typeIn(front, u"D12"_s, u"x"_s);
    m_desk->typeIn(front, u"D12"_s, QString());
    m_desk->save();
    seeNothing();
    QCOMPARE(program().stored(u"PT-2"_s, u"ServiceDescription"_s), u"(null)"_s);
}

void SessionCases::whatIsTypedIsStoredAsItReads_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("whole number") << u"12"_s << u"12"_s;
    QTest::newRow("real number") << u"12.5"_s << u"12.5"_s;
    QTest::newRow("tiny number") << u"0.0000001"_s << u"1E-07"_s;
    QTest::newRow("formula") << u"=6*2"_s << u"12"_s;
    QTest::newRow("truth value") << u"TRUE"_s << u"True"_s;
    QTest::newRow("date") << u"2026-03-01"_s << u"2026-03-01"_s;
    QTest::newRow("text") << u"12 bar(g)"_s << u"12 bar(g)"_s;
}

void SessionCases::whatIsTypedIsStoredAsItReads()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, kept);
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, typed);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), kept);
    // The next check agrees.
    m_desk->answerUnsaved(UnsavedAnswer::Save);
    m_desk->closeWindow();
    waitForEnd();
    seeNothing();
}

void SessionCases::aNumberTypedOverATextFromTheDatabaseIsANumber()
{
    ProgramFixture::execute(
        m_desk->project(),
        u"update [index] set Manufacturer = '0012' where PlantItemNo = 'PT-1'"_s);
    program().press(u"cmdRefresh"_s);
    program().goTo(SessionDesk::tag);
    m_desk->openDatasheet();
    QCOMPARE(m_desk->cellText(front, u"D13"_s), u"0012"_s);
    m_desk->typeIn(front, u"D13"_s, u"0034"_s);
    QTRY_COMPARE_WITH_TIMEOUT(m_desk->cellText(front, u"D13"_s), u"34"_s, patience);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"34"_s);
    QVERIFY(SessionDesk::storedValue(m_desk->path(u"sheets/PT-1.xls"_s), front, u"D13"_s)
            == CellValue(34.0));
}

void SessionCases::aDifferenceOfCaseCounts()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"CALDER & ROE"_s);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"CALDER & ROE"_s);
}

void SessionCases::anErrorValueEndsTheCheckWithAMessage()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"=NA()"_s);
    m_desk->save();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{1}, patience);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().prompts.boxes[0].title, u"Error"_s);
    see({u"Error while checking differences between Excel Datasheet and index. \r\n"
         "Error : 13. Type mismatch"_s});
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);

    m_desk->typeIn(front, u"D13"_s, u"Calder & Roe"_s);
    m_desk->typeIn(front, u"H6"_s, u"=NA()"_s);
    m_desk->save();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{1}, patience);
    QCOMPARE(program().prompts.boxes[0].title, u"Error"_s);
    see({u"Error while checking differences between Excel Datasheet and document cross "
         "reference. \r\nError : 13. Type mismatch"_s});
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ-1/REQUISITION"_s});
}

void SessionCases::onlyTheCurrentSheetIsWritten()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    m_desk->selectSheet(notes);
    QTRY_COMPARE_WITH_TIMEOUT(xlHndlr().WorksheetName(), notes, patience);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
    // It is found again at closing, and written from its own sheet.
    m_desk->selectSheet(front);
    QTRY_COMPARE_WITH_TIMEOUT(xlHndlr().WorksheetName(), front, patience);
    answer(Answer::Yes);
    m_desk->closeWindow();
    see({question});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
}

// ---- documents

void SessionCases::aNewDocumentIsCreatedAndTied()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"H7"_s, u"PO-9"_s);
    answer(Answer::Yes);
    m_desk->closeWindow();
    see({question});
    waitForEnd();
    QCOMPARE(program().ties(SessionDesk::tag), (QStringList{u"PO-9/"_s, u"RQ-1/"_s}));
    QCOMPARE(ProgramFixture::value(m_desk->project(),
                                   u"select docType from document where docNo = 'PO-9'"_s),
             u"PURCHASE ORDER"_s);
}

void SessionCases::aKnownDocumentIsOnlyTied()
{
    program().addDocument(u"RQ-5"_s, u"REQUISITION"_s);
    ProgramFixture::execute(m_desk->project(),
                            u"update document set Title = 'kept' where docNo = 'RQ-5'"_s);
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"H6"_s, u"RQ-5"_s);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ-5/"_s});
    QCOMPARE(ProgramFixture::value(m_desk->project(),
                                   u"select Title from document where docNo = 'RQ-5'"_s),
             u"kept"_s);
}

void SessionCases::anEmptiedDocumentLosesItsTieOnly()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"H6"_s, QString());
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(program().ties(SessionDesk::tag), QStringList());
    QCOMPARE(ProgramFixture::value(m_desk->project(),
                                   u"select docType from document where docNo = 'RQ-1'"_s),
             u"REQUISITION"_s);
}

void SessionCases::aQuoteInADocumentNumberIsStored()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"H6"_s, u"RQ'7"_s);
    answer(Answer::Yes);
    m_desk->save();
    see({question});
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ'7/"_s});
    m_desk->closeWindow();
    waitForEnd();
    seeNothing();
}

void SessionCases::documentsOfTheOtherSheetAreNotCompared()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"H6"_s, u"RQ-9"_s);
    m_desk->selectSheet(notes);
    QTRY_COMPARE_WITH_TIMEOUT(xlHndlr().WorksheetName(), notes, patience);
    m_desk->answerUnsaved(UnsavedAnswer::Discard);
    m_desk->closeWindow();
    waitForEnd();
    seeNothing();
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ-1/REQUISITION"_s});
}

// ---- the program's end and the application's

void SessionCases::leavingTheProgramClosesTheDatasheet()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    program().press(u"cmdExit"_s);
    see({question});
    QTRY_VERIFY_WITH_TIMEOUT(!program().window.isVisible(), patience);
    QVERIFY(!xlHndlr().XlAlreadyOpen());
    QTRY_VERIFY_WITH_TIMEOUT(!m_desk->isWindowVisible(), patience);
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
}

void SessionCases::leavingTheProgramIsOffWhileTheDatasheetStaysOpen()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D30"_s, u"unmapped"_s);
    m_desk->answerUnsaved(UnsavedAnswer::Cancel);
    program().choose(u"mnuFileExit"_s);
    QTRY_COMPARE_WITH_TIMEOUT(m_desk->unsavedQuestions(), 1, patience);
    seeNothing();
    QVERIFY(program().window.isVisible());
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QVERIFY(m_desk->isWindowVisible());
    QVERIFY(!m_desk->isMainWindowFree());
}

void SessionCases::releasingTheSessionClosesTheDatasheet()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    datasheets::g_objXlHndlr.reset();
    see({question});
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!m_desk->isWindowVisible(), patience);
    QVERIFY(m_desk->isMainWindowFree());
}

void SessionCases::anApplicationThatDiesGivesTheMainWindowBack()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    m_desk->kill();
    QTRY_COMPARE_WITH_TIMEOUT(program().prompts.boxes.size(), std::size_t{1}, patience);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    see({lostMessage});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
    // The next session starts the application anew.
    program().press(u"cmdDatasheet"_s);
    QTRY_VERIFY_WITH_TIMEOUT(m_desk->isWindowVisible(), patience);
    QCOMPARE(m_desk->cellText(front, u"D13"_s), u"Calder & Roe"_s);
}

void SessionCases::anApplicationThatDiesUnderTheQuestionIsToldOnce_data()
{
    QTest::addColumn<bool>("closes");
    QTest::newRow("saving") << false;
    QTest::newRow("closing") << true;
}

void SessionCases::anApplicationThatDiesUnderTheQuestionIsToldOnce()
{
    QFETCH(const bool, closes);
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    answer(Answer::Yes);
    program().prompts.whileOpen = [this](const toolkit::Box& box) {
        if (box.text == question)
            m_desk->kill();
    };
    if (closes)
        m_desk->closeWindow();
    else
        m_desk->save();
    see({question, lostMessage});
    waitForEnd();
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
}

void SessionCases::anApplicationThatDiesUnderItsOwnQuestionIsToldOnce()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D30"_s, u"unmapped"_s);
    m_desk->answerUnsaved(UnsavedAnswer::Death);
    m_desk->closeWindow();
    see({lostMessage});
    waitForEnd();
}

} // namespace ostrand::tests
