// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/export_cases.h"

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::CellValue;

namespace ostrand::tests {
namespace {

const QStringList modified{u"Database modified."_s};
const QStringList notModified{u"Database not modified"_s};

} // namespace

void ExportCases::init()
{
    m_source.reset();
    m_desk = std::make_unique<RunDesk>(m_source.path());
}

void ExportCases::cleanup()
{
    m_desk.reset();
}

// ---- values

void ExportCases::cellsBecomeFields()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"old"_s}});
    m_source.add(u"PT"_s, u"2"_s, {{u"SERVICE_"_s, u"other"_s}});
    m_desk->giveSheet(u"PT-1"_s,
                      {row(u"SERVICE_"_s, u"D12"_s), row(u"MODEL_"_s, u"D13"_s)},
                      {{u"D12"_s, u"Inlet gas"_s}, {u"D13"_s, u"M-7"_s}});
    QCOMPARE(m_desk->exportAll(), modified);
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Information);
    QCOMPARE(m_desk->texts(), QStringList{u"Database modified"_s});
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"Inlet gas"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"MODEL_"_s), u"M-7"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"2"_s, u"SERVICE_"_s), u"other"_s);
}

void ExportCases::theDatasheetIsFilledFromTheProjectFirst()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)}, {{u"D12"_s, u"old"_s}});
    m_desk->execute(m_desk->project, u"update [index] set ServiceDescription = 'New service'"_s);
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    m_desk->setAttribute(u"contract"_s, u"C-9"_s);
    m_desk->mapCell(u"H5"_s, u"IndexTitleInfo"_s, u"contract"_s);
    m_desk->addDocument(u"PO-5"_s, u"PURCHASE ORDER"_s);
    m_desk->addTie(u"PT-1"_s, u"PO-5"_s, u"PURCHASE ORDER"_s);
    m_desk->mapCell(u"H7"_s, u"document"_s, u"PURCHASE ORDER"_s);
    QCOMPARE(m_desk->exportAll(), modified);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"D12"_s), u"New service"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"H5"_s), u"C-9"_s);
    QCOMPARE(m_desk->fileText(u"PT-1.xls"_s, u"H7"_s), u"PO-5"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"New service"_s);
}

void ExportCases::valuesOfAllTypesAreWrittenAsTexts()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(
        u"PT-1"_s,
        {row(u"SERVICE_"_s, u"D1"_s),
         row(u"MODEL_"_s, u"D2"_s),
         row(u"REMARKS_"_s, u"D3"_s),
         row(u"COUNT_"_s, u"D1"_s),
         row(u"MADE_"_s, u"D2"_s)},
        {{u"D1"_s, 12.5}, {u"D2"_s, QDateTime(QDate(2026, 3, 1), QTime(0, 0))}, {u"D3"_s, true}});
    QCOMPARE(m_desk->exportAll(), modified);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"12.5"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"MODEL_"_s), u"2026-03-01"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"REMARKS_"_s), u"True"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"COUNT_"_s), u"12.5"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"MADE_"_s), u"2026-03-01"_s);
}

void ExportCases::textsArriveLetterForLetter_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"O'Brien",
                             "=1+1",
                             "0042",
                             "1E5",
                             "Rücklauf °C",
                             "流量 Ω",
                             "\"q\" %1",
                             "a\\b",
                             "[x]",
                             "a-b-c"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void ExportCases::textsArriveLetterForLetter()
{
    QFETCH(QString, text);
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)}, {{u"D12"_s, text}});
    QCOMPARE(m_desk->exportAll(), modified);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), text);
}

void ExportCases::anEmptyCellLeavesTheField()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"SERVICE_"_s, u"kept"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->exportAll(),
             QStringList{u"The cell 'D-12' of the worksheet 'DATASHEET' is blank"_s} + notModified);
    QCOMPARE(m_desk->texts(), QStringList{u"Database not modified"_s});
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"kept"_s);
}

void ExportCases::equalInstrumentsAllGetTheValue()
{
    m_source.add(u"PT"_s, u"1"_s, {{u"MODEL_"_s, u"a"_s}});
    m_source.add(u"PT"_s, u"1"_s, {{u"MODEL_"_s, u"b"_s}});
    m_desk->giveSheet(u"PT-1"_s, {row(u"MODEL_"_s, u"D12"_s)}, {{u"D12"_s, u"new"_s}});
    QCOMPARE(m_desk->exportAll(), modified);
    m_source.run(u"DELETE FROM \""_s + table() + u"\" WHERE \"MODEL_\" <> 'new'"_s);
    m_source.run(u"UPDATE \""_s + table() + u"\" SET \"TAG_\" = '2'"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"2"_s, u"count(*)"_s), u"2"_s);
}

void ExportCases::everyDatasheetIsSavedTwice()
{
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)}, {{u"D12"_s, u"x"_s}});
    QStringList saved;
    m_desk->office.whenSaved = [&](const QString& path, const QString& sheet) {
        saved << path.section(u'/', -1) + u' ' + sheet;
    };
    m_desk->exportAll();
    QCOMPARE(saved, (QStringList{u"PT-1.xls DATASHEET"_s, u"PT-1.xls DATASHEET"_s}));
}

void ExportCases::theIndexStandsOnTheLastTag()
{
    m_desk->giveSheet(u"PT-1"_s, {});
    m_desk->giveSheet(u"PT-2"_s, {});
    m_desk->addTag(u"PT-3"_s);
    m_desk->exportAll();
    QCOMPARE(m_desk->tags().Field(u"Tag"_s).text(), u"PT-2"_s);
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-2"_s);
    QCOMPARE(m_desk->panel(1), u"Record: 2 of 3"_s);
}

// ---- names

void ExportCases::theTagPartEndsAtTheSecondHyphen()
{
    m_source.add(u"PT"_s, u"100-A"_s);
    m_source.add(u"PT"_s, u"100"_s);
    m_desk->giveSheet(u"PT-100-A"_s, {row(u"SERVICE_"_s, u"D12"_s)}, {{u"D12"_s, u"Gas"_s}});
    QCOMPARE(m_desk->exportAll(), modified);
    QCOMPARE(m_source.stored(u"PT"_s, u"100"_s, u"SERVICE_"_s), u"Gas"_s);
    QCOMPARE(m_source.stored(u"PT"_s, u"100-A"_s, u"SERVICE_"_s), u"(null)"_s);
}

void ExportCases::functionAndTagTakeTheirPieces()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s, {row(u"FUNCTION_"_s, u"D11"_s)}, {{u"D11"_s, u"FT-9-A"_s}});
    QCOMPARE(m_desk->exportAll(), modified);
    QCOMPARE(m_source.stored(u"FT"_s, u"1"_s, u"TAG_"_s), u"1"_s);
    m_desk->giveSheet(u"FT-1"_s, {row(u"TAG_"_s, u"D11"_s)}, {{u"D11"_s, u"FT-9-A"_s}});
    m_desk->exportAll();
    QCOMPARE(m_source.stored(u"FT"_s, u"9"_s, u"FUNCTION_"_s), u"FT"_s);
}

void ExportCases::aRenamedInstrumentIsNotFoundByTheNextRow()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s,
                      {row(u"TAG_"_s, u"D11"_s), row(u"SERVICE_"_s, u"D12"_s)},
                      {{u"D11"_s, u"PT-2"_s}, {u"D12"_s, u"Gas"_s}});
    QCOMPARE(m_desk->exportAll(),
             QStringList{u"Column 'SERVICE_' of the Table '"_s + table()
                         + u"'can not be updated because the Function 'PT' and tag '1' combination "
                           u"is invalid"_s}
                 + modified);
    QCOMPARE(m_source.stored(u"PT"_s, u"2"_s, u"SERVICE_"_s), u"(null)"_s);
}

void ExportCases::aTagCellWithoutHyphenEndsTheRun()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s,
                      {row(u"SERVICE_"_s, u"D12"_s), row(u"TAG_"_s, u"D11"_s)},
                      {{u"D11"_s, u"PT1"_s}, {u"D12"_s, u"Gas"_s}});
    QCOMPARE(m_desk->brokenExport(), QStringList());
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_desk->texts(),
             QStringList{u"Error while updating the database\r\n9 : Subscript out of range"_s});
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"Gas"_s);
}

void ExportCases::aSlashInPlaceOfTheHyphenEndsTheRun()
{
    m_desk->addSheetTag(u"FT/101"_s);
    m_desk->makeSheet(u"FT-101.xls"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->brokenExport(), QStringList());
    QCOMPARE(m_desk->texts(),
             QStringList{u"Error while updating the database\r\n9 : Subscript out of range"_s});
}

// ---- the map

void ExportCases::aWrongSheetCostsItsRow()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(
        u"PT-1"_s,
        {{table(), u"SERVICE_"_s, u"Sheet9"_s, u"D"_s, u"12"_s}, row(u"SERVICE_"_s, u"D12"_s)},
        {{u"D12"_s, u"Gas"_s}});
    QCOMPARE(m_desk->exportAll(),
             QStringList{u"Worksheet name 'Sheet9' for the cell 'D-12'is incorrect in 'P&ID "
                         u"database map' worksheet of 'PT-1.xls' file."_s}
                 + modified);
}

void ExportCases::aWrongTableOrFieldCostsItsRow_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("field");
    QTest::newRow("table") << u"Nowhere"_s << u"SERVICE_"_s;
    QTest::newRow("field") << table() << u"NOTHING_"_s;
    QTest::newRow("no field") << table() << QString();
}

void ExportCases::aWrongTableOrFieldCostsItsRow()
{
    QFETCH(QString, table);
    QFETCH(QString, field);
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s,
                      {RunDesk::toFront(table, field, u"D12"_s), row(u"SERVICE_"_s, u"D12"_s)},
                      {{u"D12"_s, u"Gas"_s}});
    QCOMPARE(m_desk->exportAll(),
             QStringList{u"Column name '"_s + field + u"' or table name '"_s + table
                         + u"' may be incorrect in 'P&ID database map' of the datasheet "
                           u"'PT-1.xls'."_s}
                 + modified);
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"Gas"_s);
}

void ExportCases::aMissingInstrumentIsToldForEachFilledCell()
{
    m_desk->giveSheet(
        u"PT-1"_s,
        {row(u"SERVICE_"_s, u"D12"_s), row(u"MODEL_"_s, u"D13"_s), row(u"REMARKS_"_s, u"D14"_s)},
        {{u"D12"_s, u"Gas"_s}, {u"D14"_s, u"none"_s}});
    const auto missing = [this](const QString& field) -> QString {
        return u"Column '"_s + field + u"' of the Table '"_s + table()
               + u"'can not be updated because the Function 'PT' and tag '1' combination is "
                 u"invalid"_s;
    };
    QCOMPARE(m_desk->exportAll(),
             (QStringList{missing(u"SERVICE_"_s),
                          u"The cell 'D-13' of the worksheet 'DATASHEET' is blank"_s,
                          missing(u"REMARKS_"_s)}
              + notModified));
    QCOMPARE(m_source.stored(u"PT"_s, u"1"_s, u"SERVICE_"_s), u"(none)"_s);
}

void ExportCases::aCellThatThereIsNotCountsAsEmpty_data()
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

void ExportCases::aCellThatThereIsNotCountsAsEmpty()
{
    QFETCH(QString, column);
    QFETCH(QString, row);
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s, {{table(), u"SERVICE_"_s, RunDesk::front, column, row}});
    QCOMPARE(m_desk->exportAll(),
             (QStringList{u"Datasheet 'PT-1.xls' cell information is incorrect in P&ID database "
                          u"map worksheet."_s,
                          u"The cell '"_s + column + u'-' + row
                              + u"' of the worksheet 'DATASHEET' is blank"_s}
              + notModified));
}

void ExportCases::aCellWithAnErrorEndsTheRun()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(
        u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)}, {{u"D12"_s, spreadsheet::CellError{u"#N/A"_s}}});
    QCOMPARE(m_desk->brokenExport(), QStringList());
    QCOMPARE(m_desk->texts(),
             QStringList{u"Error while updating the database\r\n13 : Type mismatch"_s});
}

void ExportCases::aDatasheetWithoutMapIsNotSavedAgain()
{
    m_desk->addSheetTag(u"PT-1"_s);
    writeWorkbook(m_desk->sheetFile(u"PT-1.xls"_s),
                  {.properties = {{u"DatasheetType"_s, RunDesk::type}},
                   .sheets = {{.name = RunDesk::front}}});
    int saved = 0;
    m_desk->office.whenSaved = [&](const QString&, const QString&) { ++saved; };
    QCOMPARE(m_desk->exportAll(),
             QStringList{u" P&ID database map' worksheet not found in 'PT-1.xls' datasheet."_s}
                 + notModified);
    QCOMPARE(saved, 1);
}

void ExportCases::anEmptyMapIsTold()
{
    m_desk->giveSheet(u"PT-1"_s, {});
    QCOMPARE(m_desk->exportAll(),
             QStringList{u"'P&ID database map' worksheet is blank in 'PT-1.xls' Datasheet. "_s}
                 + notModified);
}

// ---- tags without a datasheet

void ExportCases::tagsWithoutAPlaceAreTold()
{
    m_desk->makeSheet(u"PT-1.xls"_s, {});
    m_desk->addTag(u"PT-1"_s);
    QCOMPARE(m_desk->exportAll(),
             (QStringList{u"Datasheet path and filename not found for the tag 'PT-1'"_s,
                          u"Datasheets not present in the 'datasheets' folder."_s}));
}

void ExportCases::aMissingFileIsTold()
{
    m_source.add(u"PT"_s, u"1"_s);
    m_desk->giveSheet(u"PT-1"_s, {row(u"SERVICE_"_s, u"D12"_s)}, {{u"D12"_s, u"Gas"_s}});
    m_desk->addSheetTag(u"PT-9"_s);
    QCOMPARE(m_desk->exportAll(),
             QStringList{u"Datasheet 'PT-9.xls' not found '"_s + m_desk->folder() + u'\''}
                 + modified);
}

void ExportCases::aNameWithoutHyphenIsTold()
{
    m_desk->giveSheet(u"PT1"_s, {row(u"SERVICE_"_s, u"D12"_s)});
    QCOMPARE(m_desk->exportAll(),
             QStringList{u"Datasheet name 'PT1.xls' is not valid for mapping"_s} + notModified);
}

void ExportCases::withoutADatasheetFoundTheRunSaysSo()
{
    m_desk->addSheetTag(u"PT-1"_s);
    m_desk->makeSheet(u"other.xls"_s, {});
    QCOMPARE(m_desk->exportAll(),
             (QStringList{u"Datasheet 'PT-1.xls' not found '"_s + m_desk->folder() + u'\'',
                          u"Datasheets not present in the 'datasheets' folder."_s}));
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(m_desk->texts(), QStringList{u"No datasheet present in the 'datasheets' folder"_s});
}

} // namespace ostrand::tests
