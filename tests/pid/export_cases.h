// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/run_desk.h"
#include "pid/run_source.h"

#include <QObject>

#include <memory>

namespace ostrand::tests {

/// What holds for exporting into whatever the P&ID database is. Each case has a project and an
/// empty instrument table of its own.
class ExportCases : public QObject
{
    Q_OBJECT

public:
    explicit ExportCases(RunSource& source)
        : m_source(source)
    {
    }

private Q_SLOTS:
    void init();
    void cleanup();

    // ---- values
    void cellsBecomeFields();
    void theDatasheetIsFilledFromTheProjectFirst();
    void valuesOfAllTypesAreWrittenAsTexts();
    void textsArriveLetterForLetter_data();
    void textsArriveLetterForLetter();
    void anEmptyCellLeavesTheField();
    void equalInstrumentsAllGetTheValue();
    void everyDatasheetIsSavedTwice();
    void theIndexStandsOnTheLastTag();

    // ---- names
    void theTagPartEndsAtTheSecondHyphen();
    void functionAndTagTakeTheirPieces();
    void aRenamedInstrumentIsNotFoundByTheNextRow();
    void aTagCellWithoutHyphenEndsTheRun();
    void aSlashInPlaceOfTheHyphenEndsTheRun();

    // ---- the map
    void aWrongSheetCostsItsRow();
    void aWrongTableOrFieldCostsItsRow_data();
    void aWrongTableOrFieldCostsItsRow();
    void aMissingInstrumentIsToldForEachFilledCell();
    void aCellThatThereIsNotCountsAsEmpty_data();
    void aCellThatThereIsNotCountsAsEmpty();
    void aCellWithAnErrorEndsTheRun();
    void aDatasheetWithoutMapIsNotSavedAgain();
    void anEmptyMapIsTold();

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
