// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/import_cases.h"

#include "support/workbook_file.h"

#include <QDir>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::CellValue;

namespace ostrand::tests {
namespace {

const QStringList oneUpdated{u"1 datasheet updated successfully."_s};
const QStringList noneUpdated{u"No datasheets updated....!!!"_s};

} // namespace

void ImportCases::init()
{
    m_source.reset();
    m_desk = std::make_unique<RunDesk>(m_source.path());
}

void ImportCases::cleanup()
{
    m_desk.reset();
}

// ---- values

void ImportCases::fieldsLandInCellsAndInTheIndex()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet gas"_s}, {u"MODEL_"_s, u"M-7"_s}});
    m_desk->giveSheet(u"PT-1"_s,
                      {row(u"SERVICE_"_s, u"D12"_s), row(u"MODEL_"_s, u"D13"_s)},
                      {{u"D12"_s, u"old"_s}});
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->prompts.boxes.size(), 1U);
    QVERIFY(m_desk->prompts.boxes[0].icon == toolkit::BoxIcon::Information);
    QCOMPARE(m_desk->texts(), QStringList{u"1 Datasheet updated successfully"_s});
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D12"_s), CellValue(u"Inlet gas"_s));
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D13"_s), CellValue(u"M-7"_s));
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"ServiceDescription"_s), u"Inlet gas"_s);
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-1"_s);
}

void ImportCases::datasheetsAreCounted()
{
    for (const QString& number : {u"1"_s, u"2"_s, u"3"_s, u"4"_s}) {
        if (number != u"4"_s)
            m_source.add(u"PT"_s, number, {{u"SERVICE_"_s, u"Service "_s + number}});
        m_desk->giveSheet(u"PT-"_s + number, {row(u"SERVICE_"_s, u"D12"_s)});
    }
    QCOMPARE(m_desk->import(),
             (QStringList{u"Datasheet PT-4.xls is not valid for mapping"_s,
                          u"3 Datasheets updated successfully."_s}));
    QCOMPARE(m_desk->texts(), QStringList{u"3 Datasheets updated successfully"_s});
    QCOMPARE(m_desk->fileText(u"PT-3.xls"_s, u"D12"_s), u"Service 3"_s);
}

void ImportCases::numbersDatesAndTruthValuesKeepTheirType()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"COUNT_"_s, u"12.5"_s}, {u"MADE_"_s, u"2026-03-01"_s}});
    m_source.run(u"UPDATE \""_s + table() + u"\" SET \"SAFE_\" = "_s
                 + (m_source.ignoresCase() ? u"-1"_s : u"TRUE"_s));
    m_desk->giveSheet(
        u"PT-1"_s, {row(u"COUNT_"_s, u"D1"_s), row(u"MADE_"_s, u"D2"_s), row(u"SAFE_"_s, u"D3"_s)});
    m_desk->mapCell(u"D1"_s, u"index"_s, u"ServiceDescription"_s);
    m_desk->mapCell(u"D2"_s, u"index"_s, u"Remarks"_s);
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D1"_s), CellValue(12.5));
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D2"_s),
             CellValue(QDateTime(QDate(2026, 3, 1), QTime(0, 0))));
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D3"_s), CellValue(true));
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"ServiceDescription"_s), u"12.5"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"2026-03-01"_s);
}

void ImportCases::textsLandLetterForLetter_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"O'Brien", "=1+1", "0042", "1E5", "Rücklauf °C", "流量 Ω", "\"q\" %1", "a\\b"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void ImportCases::textsLandLetterForLetter()
{
    QFETCH(QString, text);
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, text}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileCell(u"PT-1.xls"_s, u"D12"_s), CellValue(text));
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"ServiceDescription"_s), text);
}

void ImportCases::anEmptyFieldLeavesTheCell()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"MODEL_"_s, u""_s}});
    m_desk->giveSheet(u"PT-1"_s,
                      {row(u"SERVICE_"_s, u"D12"_s), row(u"MODEL_"_s, u"D13"_s)},
                      {{u"D12"_s, u"old"_s}, {u"D13"_s, u"older"_s}});
    QCOMPARE(m_desk->import(),
             (QStringList{u"'SERVICE_' column of the table '"_s + table()
                              + u"' is blank for the file 'PT-1.xls'"_s,
                          u"'MODEL_' column of the table '"_s + table()
                              + u"' is blank for the file 'PT-1.xls'"_s}
              + noneUpdated));
    QCOMPARE(m_desk->texts(), QStringList{u"No datasheets updated"_s});
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"old"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D13"_s), u"older"_s);
}

void ImportCases::theLastRowOfACellCounts()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"first"_s}, {u"MODEL_"_s, u"last"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s), row(u"MODEL_"_s, u"D12"_s)});
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"last"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"last"_s);
}

void ImportCases::theFirstOfEqualInstrumentsCounts()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"first"_s}});
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"second"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"first"_s);
}

void ImportCases::onlyTheFirstOfTheFieldsCounts()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"one"_s}, {u"MODEL_"_s, u"two"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"MODEL_, SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"two"_s);
}

void ImportCases::theSheetsAreSavedWithTheFirstInFront()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->giveSheet(u"PT-1"_s, {{table(), u"SERVICE_"_s, u"NOTES"_s, u"B"_s, 14.0}});
    int saved = 0;
    m_desk->office.whenSaved = [&](const QString& path, const QString& sheet) {
        QCOMPARE(path, m_desk->sheetFile(u"PT-1.xls"_s));
        QCOMPARE(sheet, RunDesk::front);
        ++saved;
    };
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(saved, 1);
    const auto book = readWorkbook(m_desk->sheetFile(u"PT-1.xls"_s));
    QCOMPARE(book->sheets[1].cells.at(u"B14"_s), CellValue(u"Inlet"_s));
}

// ---- names

void ImportCases::theTagPartKeepsItsHyphens()
{
    m_source.add(u"PT"_s, u"100-A"_s, {{u"SERVICE_"_s, u"right"_s}});
    m_source.add(u"PT"_s, u"100"_s, {{u"SERVICE_"_s, u"wrong"_s}});
    m_desk->giveSheet(u"PT-100-A"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileText(u"PT-100-A.xls"_s, u"D12"_s), u"right"_s);
}

void ImportCases::aPointEndsTheLookupName()
{
    m_source.add(u"FT"_s, u"1"_s, {{u"SERVICE_"_s, u"Flow"_s}});
    m_desk->giveSheet(u"FT-1.5"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    m_desk->addTag(u"FT-1"_s);
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    QCOMPARE(m_desk->import(),
             QStringList{u"Datasheet path and file name not found for the tag 'FT-1'"_s}
                 + oneUpdated);
    QCOMPARE(m_desk->fileText(u"FT-1.5.xls"_s, u"D12"_s), u"Flow"_s);
    QCOMPARE(m_desk->stored(u"FT-1"_s, u"Remarks"_s), u"Flow"_s);
    QCOMPARE(m_desk->stored(u"FT-1.5"_s, u"Remarks"_s), u"(null)"_s);
}

void ImportCases::slashesBecomeHyphensInTheFileName()
{
    m_source.add(u"PT"_s, u"1/2"_s, {{u"SERVICE_"_s, u"Gas"_s}});
    m_desk->addSheetTag(u"PT-1/2"_s);
    m_desk->makeSheet(u"PT-1-2.xls"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileText(u"PT-1-2.xls"_s, u"D12"_s), u"Gas"_s);
}

void ImportCases::backslashesBecomeHyphensWhereThereIsNoSlash()
{
    m_source.add(u"PT"_s, u"1\\2"_s, {{u"SERVICE_"_s, u"Gas"_s}});
    m_desk->addSheetTag(u"PT-1\\2"_s);
    m_desk->makeSheet(u"PT-1-2.xls"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->import(), oneUpdated);
    QCOMPARE(m_desk->fileText(u"PT-1-2.xls"_s, u"D12"_s), u"Gas"_s);
}

void ImportCases::caseOfTheTagIsTheDatabasesMatter()
{
    m_source.add(u"PT"_s, u"1a"_s, {{u"SERVICE_"_s, u"Gas"_s}});
    m_desk->giveSheet(u"PT-1A"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    if (m_source.ignoresCase())
        QCOMPARE(m_desk->import(), oneUpdated);
    else
        QCOMPARE(m_desk->import(),
                 QStringList{u"Datasheet PT-1A.xls is not valid for mapping"_s} + noneUpdated);
}

void ImportCases::aSlashInPlaceOfTheHyphenEndsTheRun()
{
    m_desk->addSheetTag(u"FT/101"_s);
    m_desk->makeSheet(u"FT-101.xls"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->brokenImport(), QStringList());
    QCOMPARE(m_desk->texts(),
             QStringList{u"Error while importing the database\r\n9 : Subscript out of range"_s});
}

void ImportCases::anApostropheInATagIsNotEscaped()
{
    m_source.add(u"P'T"_s, u"1"_s, {{u"SERVICE_"_s, u"Gas"_s}});
    m_desk->addTag(u"P''T-1"_s);
    m_desk->execute(m_desk->project,
                    u"update qryIndex set DatasheetPath = 'x', DatasheetFileName = 'y'"_s);
    m_desk->makeSheet(u"P'T-1.xls"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    m_desk->open(m_desk->project); // the index cannot show such a tag's documents either
    m_desk->texts();
    m_desk->run(u"cmdImport"_s);
    const QStringList texts = m_desk->texts();
    const QStringList lines = m_desk->logged(u"Import.log"_s, false);
    // What a database calls such a slip differs.
    QVERIFY2(texts.value(0).startsWith(u"Error while importing the database\r\n3"_s)
                 || lines.value(0).endsWith(u"due to incorrect table or field name."_s),
             qPrintable(texts.join(u'|') + lines.join(u'|')));
    QCOMPARE(m_desk->fileText(u"P'T-1.xls"_s, u"D12"_s), QString());
}

// ---- the map

void ImportCases::aWrongSheetCostsItsRow()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->giveSheet(u"PT-1"_s,
                      {{table(), u"SERVICE_"_s, u"Datasheet"_s, u"D"_s, u"12"_s},
                       {table(), u"SERVICE_"_s, {}, u"D"_s, 13.0},
                       row(u"SERVICE_"_s, u"D14"_s)});
    QCOMPARE(m_desk->import(),
             (QStringList{u"Worksheet name 'Datasheet' for the cell 'D-12'is incorrect in 'P&ID "
                          u"database map' worksheet of 'PT-1.xls' file."_s,
                          u"Worksheet name '' for the cell 'D-13'is incorrect in 'P&ID database "
                          u"map' worksheet of 'PT-1.xls' file."_s}
              + oneUpdated));
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), QString());
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D14"_s), u"Inlet"_s);
}

void ImportCases::aWrongTableOrFieldCostsItsRow_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("field");
    QTest::newRow("table") << u"Nowhere"_s << u"SERVICE_"_s;
    QTest::newRow("field") << table() << u"NOTHING_"_s;
}

void ImportCases::aWrongTableOrFieldCostsItsRow()
{
    QFETCH(QString, table);
    QFETCH(QString, field);
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->giveSheet(u"PT-1"_s,
                      {RunDesk::toFront(table, field, u"D12"_s), row(u"SERVICE_"_s, u"D14"_s)});
    QCOMPARE(m_desk->import(),
             QStringList{u"'D-12' cell of the worksheet 'DATASHEET' in datasheet 'PT-1.xls' can "
                         u"not be updated due to incorrect table or field name."_s}
                 + oneUpdated);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D14"_s), u"Inlet"_s);
}

void ImportCases::aSlipInTheSelectListCostsItsRow()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s, {row(QString(), u"D12"_s)});
    QCOMPARE(m_desk->import(),
             QStringList{u"'D-12' cell of the worksheet 'DATASHEET' in datasheet 'PT-1.xls' can "
                         u"not be updated due to incorrect table or field name."_s}
                 + noneUpdated);
}

void ImportCases::aMissingInstrumentIsToldOnce()
{
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s), row(u"MODEL_"_s, u"D13"_s)});
    QCOMPARE(m_desk->import(),
             QStringList{u"Datasheet PT-1.xls is not valid for mapping"_s} + noneUpdated);
    QCOMPARE(m_desk->texts(), QStringList{u"No datasheets updated"_s});
}

void ImportCases::aCellThatThereIsNotIsToldAndTheProjectGetsTheValue_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("row");
    QTest::newRow("no column") << QString() << u"12"_s;
    QTest::newRow("no row") << u"D"_s << QString();
    QTest::newRow("row 0") << u"D"_s << u"0"_s;
    QTest::newRow("behind the last column") << u"IW"_s << u"1"_s;
    QTest::newRow("behind the last row") << u"A"_s << u"65537"_s;
    QTest::newRow("block") << u"A1:B"_s << u"2"_s;
}

void ImportCases::aCellThatThereIsNotIsToldAndTheProjectGetsTheValue()
{
    QFETCH(QString, column);
    QFETCH(QString, row);
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->giveSheet(u"PT-1"_s, {{table(), u"SERVICE_"_s, RunDesk::front, column, row}});
    m_desk->mapCell(column + row, u"index"_s, u"Remarks"_s);
    QCOMPARE(m_desk->import(),
             QStringList{u"Datasheet 'PT-1.xls' cell information is incorrect in P&ID database "
                         u"map worksheet."_s}
                 + oneUpdated);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"Inlet"_s);
}

void ImportCases::aDatasheetWithoutMapIsLeftAsItIs()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->addSheetTag(u"PT-1"_s);
    writeWorkbook(m_desk->sheetFile(u"PT-1.xls"_s),
                  {.properties = {},
                   .sheets = {{.name = RunDesk::front},
                              {u"P&ID database map"_s,
                               {{u"A2"_s, table()},
                                {u"B2"_s, u"SERVICE_"_s},
                                {u"C2"_s, RunDesk::front},
                                {u"D2"_s, u"D"_s},
                                {u"E2"_s, u"12"_s}}}}});
    bool saved = false;
    m_desk->office.whenSaved = [&](const QString&, const QString&) { saved = true; };
    QCOMPARE(m_desk->import(),
             QStringList{u"'P&ID database map' worksheet not found in PT-1.xls datasheet."_s}
                 + noneUpdated);
    QVERIFY(!saved);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), QString());
}

void ImportCases::anEmptyMapIsTold()
{
    m_desk->giveSheet(u"PT-1"_s, {});
    bool saved = false;
    m_desk->office.whenSaved = [&](const QString&, const QString&) { saved = true; };
    QCOMPARE(m_desk->import(),
             QStringList{u"'P&ID database map' worksheet is blank in 'PT-1.xls' datasheet."_s}
                 + noneUpdated);
    QVERIFY(saved);
}

void ImportCases::aWorkbookWithoutTypeEndsTheRun()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    auto book = readWorkbook(m_desk->sheetFile(u"PT-1.xls"_s));
    book->properties.clear();
    writeWorkbook(m_desk->sheetFile(u"PT-1.xls"_s), *book);
    QCOMPARE(m_desk->brokenImport(), QStringList());
    QCOMPARE(m_desk->texts(),
             QStringList{u"Error while importing the database\r\n5 : There is no such property"_s});
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), QString());
}

// ---- tags without a datasheet

void ImportCases::tagsWithoutAPlaceAreTold()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    m_desk->makeSheet(u"PT-2.xls"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    m_desk->addTag(u"PT-2"_s);
    m_desk->addTag(u"PT-3"_s);
    m_desk->execute(m_desk->project,
                    u"update qryIndex set DatasheetPath = 'x' where Tag = 'PT-3'"_s);
    QCOMPARE(m_desk->import(),
             (QStringList{u"Datasheet path and file name not found for the tag 'PT-2'"_s,
                          u"Datasheet path and file name not found for the tag 'PT-3'"_s}
              + oneUpdated));
}

void ImportCases::aMissingFileIsTold()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"Inlet"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    m_desk->addSheetTag(u"PT-1/9"_s);
    QCOMPARE(m_desk->import(),
             QStringList{u"Datasheet 'PT-1/9.xls' not found in '"_s + m_desk->folder() + u'\''}
                 + oneUpdated);
}

void ImportCases::aNameWithoutHyphenIsTold()
{
    m_desk->giveSheet(u"PT1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->import(),
             QStringList{u"Datasheet name :- 'PT1.xls' is not valid for mapping."_s} + noneUpdated);
}

void ImportCases::withoutADatasheetFoundTheRunSaysSo()
{
    m_desk->addSheetTag(u"PT-1"_s);
    m_desk->makeSheet(u"other.xls"_s, {});
    QCOMPARE(m_desk->import(),
             (QStringList{u"Datasheet 'PT-1.xls' not found in '"_s + m_desk->folder() + u'\'',
                          u"Datasheets not present in 'datasheets' folder."_s}));
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_desk->texts(), QStringList{u"No datasheet present in the 'datasheets' folder"_s});
}

} // namespace ostrand::tests
