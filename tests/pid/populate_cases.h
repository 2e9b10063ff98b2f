// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/pid_source.h"
#include "pid/populate_desk.h"

#include <QObject>

#include <functional>
#include <memory>

namespace ostrand::tests {

/// What holds for populating from whatever the P&ID database is. Each case has a project and a
/// P&ID database of its own.
class PopulateCases : public QObject
{
    Q_OBJECT

public:
    using MakeSource = std::function<std::unique_ptr<PidSource>()>;
    explicit PopulateCases(MakeSource makeSource)
        : m_makeSource(std::move(makeSource))
    {
    }

private Q_SLOTS:
    void init();
    void cleanup();

    // ---- the list
    void instrumentsAreListedInTheOrderOfTheirTags();
    void whatLacksFunctionOrTagIsNotListed();
    void emptyTextsAreListed();
    void equalInstrumentsAreNumbered();
    void caseTellsInstrumentsApartWhereTheDatabaseSaysSo();
    void aBlankAtTheEndTellsTagsApart();
    void textsAreListedAsTheyStand();
    void withoutInstrumentsThereIsNoWindow();
    void anApostropheEndsTheLoadingWithoutAWord_data();
    void anApostropheEndsTheLoadingWithoutAWord();
    void aStarTakesTheTagsBehindItIntoItsGroup();
    void aStarThatFindsMoreThanThereIsEndsTheLoading();
    void aTagThatIsNotLikeItselfEndsTheLoading();

    // ---- inserting
    void chosenLinesBecomeTagsWithTheirService();
    void anInstrumentWithoutServiceGetsOneBlank();
    void theGridShowsTheNewTags();
    void aKnownTagStaysAsItIs();
    void theSameChoiceAgainAddsNothing();
    void withNothingChosenNothingIsAdded();
    void cancelAddsNothing();
    void textsAreStoredAsTheyStand();

    // ---- the report
    void aLineAndItsTwinBecomeTwoTagsAndOneEntry();
    void aTwinAloneIsReported();
    void aTagThatEndsInABracketIsReported();
    void aCommaPutsTheReportOutOfStep();
    void theReportIsOfTheLastRunAlone();

private:
    void fill(const std::vector<PidRow>& rows) { m_source->fill(rows); }

    MakeSource m_makeSource;
    std::unique_ptr<PidSource> m_source;
    std::unique_ptr<PopulateDesk> m_desk;
};

} // namespace ostrand::tests
