// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/run_desk.h"
#include "pid/run_source.h"

#include <QObject>

#include <memory>

namespace ostrand::tests {

/// What holds for importing from whatever the P&ID database is. Each case has a project and an
/// empty instrument table of its own.
class ImportCases : public QObject
{
    Q_OBJECT

public:
    explicit ImportCases(RunSource& source)
        : m_source(source)
    {
    }

private Q_SLOTS:
    void init();
    void cleanup();

    // ---- values
    void fieldsLandInCellsAndInTheIndex();
    void datasheetsAreCounted();
    void numbersDatesAndTruthValuesKeepTheirType();
    void textsLandLetterForLetter_data();
    void textsLandLetterForLetter();
    void anEmptyFieldLeavesTheCell();
    void theLastRowOfACellCounts();
    void theFirstOfEqualInstrumentsCounts();
    void onlyTheFirstOfTheFieldsCounts();
    void theSheetsAreSavedWithTheFirstInFront();

    // ---- names
    void theTagPartKeepsItsHyphens();
    void aPointEndsTheLookupName();
    void slashesBecomeHyphensInTheFileName();
    void backslashesBecomeHyphensWhereThereIsNoSlash();
    void caseOfTheTagIsTheDatabasesMatter();
    void aSlashInPlaceOfTheHyphenEndsTheRun();
    void anApostropheInATagIsNotEscaped();

    // ---- the map
    void aWrongSheetCostsItsRow();
    void aWrongTableOrFieldCostsItsRow_data();
    void aWrongTableOrFieldCostsItsRow();
    void aSlipInTheSelectListCostsItsRow();
    void aMissingInstrumentIsToldOnce();
    void aCellThatThereIsNotIsToldAndTheProjectGetsTheValue_data();
    void aCellThatThereIsNotIsToldAndTheProjectGetsTheValue();
    void aDatasheetWithoutMapIsLeftAsItIs();
    void anEmptyMapIsTold();
    void aWorkbookWithoutTypeEndsTheRun();

    // ---- tags without a datasheet
    void tagsWithoutAPlaceAreTold();
    void aMissingFileIsTold();
    void aNameWithoutHyphenIsTold();
    void withoutADatasheetFoundTheRunSaysSo();

private:
    QString table() const { return m_source.table(); }
    MapLine row(const QString& field, const QString& cell) const
    {
        return RunDesk::toFront(table(), field, cell);
    }

    RunSource& m_source;
    std::unique_ptr<RunDesk> m_desk;
};

} // namespace ostrand::tests
