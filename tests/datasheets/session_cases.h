// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "datasheets/session_desk.h"

#include <QObject>

#include <functional>
#include <memory>

namespace ostrand::tests {

/// What holds for a datasheet session with whatever application stands behind it. Each case has a
/// desk of its own.
class SessionCases : public QObject
{
    Q_OBJECT

public:
    using MakeDesk = std::function<std::unique_ptr<SessionDesk>()>;
    explicit SessionCases(MakeDesk makeDesk);

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    // ---- templates
    void aTemplateIsFoundAndLeavesNoSession();
    void aMissingTemplateIsToldAndMakesNoFile();
    void aTemplateThatIsNoWorkbookIsTold();
    void aCopyCarriesTheTypeOfItsTemplate();
    void aCopyReplacesAFileOfItsName();
    void aCopyIntoAMissingFolderIsTold();
    void theButtonMakesADatasheetAndOpensIt();

    // ---- opening
    void openingShowsTheDatasheetAndTakesTheMainWindow();
    void openingFillsTheMappedCells();
    void fillingIsNotUndone();
    void theDatabaseWinsAtEveryOpening();
    void aNullValueClearsItsCell();
    void theLastDocumentOfAKindIsShown();
    void aWorkbookOfAnUnknownTypeShowsNothing();
    void aWorkbookWithoutTypeIsTold();
    void aSecondOpeningDoesNothing();
    void aFileThatIsNoWorkbookIsTold();
    void aMissingFileIsToldAndNoLeavesItSo();
    void aMissingFileIsLocatedAndOpened();
    void aCancelledLocationLeavesTheRecord();

    // ---- saving
    void savingWithoutDifferencesAsksNothing();
    void savingWithYesUpdatesTheDatabaseAndTheFile();
    void savingWithNoPutsTheDatabaseBackAndSavesNothing();
    void savingTwiceAsksOnce();
    void anEntryThatIsStillOpenCountsAtSaving();
    void anEntryThatIsStillOpenCountsAtClosing();
    void savingUnderAnotherNameUpdatesTheDatabase();
    void aSaveThatFailsIsToldAndKeepsTheSession();

    // ---- closing
    void closingWithoutDifferencesEndsTheSession();
    void unmappedChangesAreTheApplicationsOwnQuestion_data();
    void unmappedChangesAreTheApplicationsOwnQuestion();
    void closingWithYesUpdatesTheDatabaseAndTheFile();
    void closingWithNoDropsAllEdits();
    void aCloseThatCannotSaveKeepsTheSession();
    void anotherSessionFollows();
    void quittingTheApplicationAsksAsClosingDoes();
    void aLinkedProjectHasImportAndExportBackAfterwards();
    void theWindowIsHiddenWhileAPromptIsUp();

    // ---- what counts as a difference
    void aChangedTagIsRestoredAndTold();
    void aChangedTagBesideAnotherChangeLeavesTheTagAlone();
    void anEmptiedCellSetsTheFieldToNull();
    void anEmptyCellOverANullFieldIsNoDifference();
    void whatIsTypedIsStoredAsItReads_data();
    void whatIsTypedIsStoredAsItReads();
    void aNumberTypedOverATextFromTheDatabaseIsANumber();
    void aDifferenceOfCaseCounts();
    void anErrorValueEndsTheCheckWithAMessage();
    void onlyTheCurrentSheetIsWritten();

    // ---- documents
    void aNewDocumentIsCreatedAndTied();
    void aKnownDocumentIsOnlyTied();
    void anEmptiedDocumentLosesItsTieOnly();
    void aQuoteInADocumentNumberIsStored();
    void documentsOfTheOtherSheetAreNotCompared();

    // ---- the program's end and the application's
    void leavingTheProgramClosesTheDatasheet();
    void leavingTheProgramIsOffWhileTheDatasheetStaysOpen();
    void releasingTheSessionClosesTheDatasheet();
    void anApplicationThatDiesGivesTheMainWindowBack();
    void anApplicationThatDiesUnderTheQuestionIsToldOnce_data();
    void anApplicationThatDiesUnderTheQuestionIsToldOnce();
    void anApplicationThatDiesUnderItsOwnQuestionIsToldOnce();

private:
    IndexFixture& program() { return m_desk->program(); }
    /// Waits until exactly these boxes were shown.
    void see(const QStringList& expected);
    /// Waits until a box was shown whose text begins so, and no other.
    void seeOne(const QString& start);
    void seeNothing();
    /// What the database holds for the desk's tag.
    QString stored(const QString& field) { return program().stored(SessionDesk::tag, field); }
    void answer(toolkit::Answer answer) { program().prompts.answers = {answer}; }
    void waitForEnd();

    MakeDesk m_makeDesk;
    std::unique_ptr<SessionDesk> m_desk;
};

} // namespace ostrand::tests
