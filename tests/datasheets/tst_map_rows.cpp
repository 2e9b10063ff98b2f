// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/cell_text.h"
#include "datasheets/failure.h"
#include "datasheets/file_name.h"
#include "datasheets/map_row.h"
#include "spreadsheet/host.h"
#include "store/database.h"
#include "support/memory_workbook.h"
#include "support/program_fixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::datasheets;
using ostrand::spreadsheet::CellValue;
using ostrand::tests::ProgramFixture;

namespace {

int numberOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (...) {
        return currentFailure().number();
    }
    return 0;
}

const QString operation = u"CXcelHndlr:PopulateXlIndex()"_s;

} // namespace

class TestMapRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aValueHasTheTextThatItReads_data();
    void aValueHasTheTextThatItReads();
    void whatIsStoredReadsAsTheCellDid_data() { aValueHasTheTextThatItReads_data(); }
    void whatIsStoredReadsAsTheCellDid();
    void aNumberStaysANumber();
    void aValueWithoutTextIsATypeMismatch();
    void everyFailureHasANumberAndWords();
    void separatorsInATagBecomeHyphens();

    void aRowIsACellOfItsSheet();
    void aNullSheetOrObjectIsAnError_data();
    void aNullSheetOrObjectIsAnError();
    void aCellTakesAndGivesText();
    void aTextBoxTakesAndGivesText();
    void aCheckBoxIsTickedByThreeMarks_data();
    void aCheckBoxIsTickedByThreeMarks();
    void anotherTypeIsNotRecognized();
    void aMissingControlIsTold();
    void aSheetIsFetchedOnce();

private:
    store::Recordset& mapRows(const QString& values);

    std::unique_ptr<ProgramFixture> m_fixture;
    std::unique_ptr<tests::MemoryOffice> m_office;
    std::shared_ptr<spreadsheet::Application> m_application;
    std::shared_ptr<spreadsheet::Workbook> m_book;
    std::shared_ptr<spreadsheet::Worksheet> m_sheet;
    std::unique_ptr<store::Recordset> m_rows;
};

void TestMapRows::init()
{
    m_fixture = std::make_unique<ProgramFixture>();
    m_office = std::make_unique<tests::MemoryOffice>();
    m_application = spreadsheet::CreateObject();
    m_book = m_application->Add();
    m_sheet = m_book->Worksheets(1);
}

void TestMapRows::cleanup()
{
    m_rows.reset();
    m_sheet.reset();
    m_book.reset();
    m_application.reset();
    m_office.reset();
    m_fixture.reset();
}

void TestMapRows::aValueHasTheTextThatItReads_data()
{
    QTest::addColumn<CellValue>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << CellValue() << QString();
    QTest::newRow("text") << CellValue(u" Aa 1.0 "_s) << u" Aa 1.0 "_s;
    QTest::newRow("whole") << CellValue(12.0) << u"12"_s;
    QTest::newRow("negative") << CellValue(-3.0) << u"-3"_s;
    QTest::newRow("zero") << CellValue(0.0) << u"0"_s;
    QTest::newRow("real") << CellValue(0.1 + 0.2) << u"0.3"_s;
    QTest::newRow("large") << CellValue(1e20) << u"1E+20"_s;
    QTest::newRow("tiny") << CellValue(1e-7) << u"1E-07"_s;
    QTest::newRow("true") << CellValue(true) << u"True"_s;
    QTest::newRow("false") << CellValue(false) << u"False"_s;
    QTest::newRow("date") << CellValue(QDateTime(QDate(2026, 3, 1), QTime(0, 0)))
                          << u"2026-03-01"_s;
    QTest::newRow("moment") << CellValue(QDateTime(QDate(2026, 3, 1), QTime(14, 5, 9)))
                            << u"2026-03-01 14:05:09"_s;
}

void TestMapRows::aValueHasTheTextThatItReads()
{
    QFETCH(const CellValue, value);
    QFETCH(const QString, text);
    QCOMPARE(textOf(value), text);
}

void TestMapRows::whatIsStoredReadsAsTheCellDid()
{
    QFETCH(const CellValue, value);
    QFETCH(const QString, text);
    const QString project = m_fixture->emptyProject();
    ProgramFixture::execute(project, u"insert into [index] (PlantItemNo) values ('T-1')"_s);
    const auto database = store::DBEngine::OpenDatabase(project);
    const auto rows = database.OpenRecordset(u"qryIndex"_s);
    rows->Edit();
    rows->SetField(u"Manufacturer"_s, storedValue(value));
    rows->Update();
    QCOMPARE(ProgramFixture::value(project, u"select Manufacturer from qryIndex"_s),
             text.isEmpty() ? u"(null)"_s : text);
}

void TestMapRows::aNumberStaysANumber()
{
    QVERIFY(storedValue(12.0).isInteger());
    QVERIFY(storedValue(12.5).isReal());
    QVERIFY(storedValue(u"12"_s).isText());
    QVERIFY(storedValue(QString()).isNull());
}

void TestMapRows::aValueWithoutTextIsATypeMismatch()
{
    for (const CellValue& value :
         {CellValue(spreadsheet::CellError{u"#N/A"_s}), CellValue(spreadsheet::ManyCells())}) {
        QCOMPARE(numberOf([&] { textOf(value); }), 13);
        QCOMPARE(numberOf([&] { storedValue(value); }), 13);
    }
}

void TestMapRows::everyFailureHasANumberAndWords()
{
    const auto failure = [](const auto& error) -> QString {
        try {
            throw error;
        } catch (...) {
            const store::Error found = currentFailure();
            return QString::number(found.number()) + u" "_s + found.description();
        }
    };
    QCOMPARE(failure(store::Error(3022, u"twice"_s)), u"3022 twice"_s);
    QCOMPARE(failure(spreadsheet::Error(1004, u"gone"_s)), u"1004 gone"_s);
    QCOMPARE(failure(std::runtime_error("odd")), u"51 odd"_s);
}

void TestMapRows::separatorsInATagBecomeHyphens()
{
    QCOMPARE(datasheetNameOf(uR"(PT/1\2 'a'.b)"_s), u"PT-1-2 'a'.b.xls"_s);
}

store::Recordset& TestMapRows::mapRows(const QString& values)
{
    const QString project = m_fixture->emptyProject();
    ProgramFixture::execute(project, u"delete from Map"_s);
    ProgramFixture::execute(
        project,
        u"insert into Map (DatasheetType, Worksheet, object, Field, TableName) values ("_s + values
            + u")"_s);
    m_rows = store::DBEngine::OpenDatabase(project).OpenRecordset(u"qryMap"_s);
    return *m_rows;
}

void TestMapRows::aRowIsACellOfItsSheet()
{
    std::vector<MapRow> rows;
    forEachMapRow(mapRows(u"'T', 'DATASHEET', 'D11', 'Tag', 'index'"_s),
                  [&rows](const MapRow& row) { rows.push_back(row); });
    QCOMPARE(rows.size(), std::size_t{1});
    QCOMPARE(rows[0].worksheet, u"DATASHEET"_s);
    QCOMPARE(rows[0].object, u"D11"_s);
    QCOMPARE(rows[0].field, u"Tag"_s);
    QCOMPARE(rows[0].objectType, u"cell"_s);
    QVERIFY(rows[0].isComplete());
    for (QString MapRow::*part : {&MapRow::worksheet, &MapRow::object, &MapRow::objectType}) {
        MapRow row = rows[0];
        row.*part = QString();
        QVERIFY(!row.isComplete());
    }
}

void TestMapRows::aNullSheetOrObjectIsAnError_data()
{
    QTest::addColumn<QString>("values");
    QTest::newRow("sheet") << u"'T', Null, 'D11', 'Tag', 'index'"_s;
    QTest::newRow("object") << u"'T', 'DATASHEET', Null, 'Tag', 'index'"_s;
}

void TestMapRows::aNullSheetOrObjectIsAnError()
{
    QFETCH(const QString, values);
    const store::Recordset& rows = mapRows(values);
    QCOMPARE(numberOf([&] { readMapRow(rows); }), 94);
}

void TestMapRows::aCellTakesAndGivesText()
{
    const MapRow row{u"Sheet1"_s, u"B2"_s, u"Tag"_s, u"cell"_s};
    writeValue(*m_sheet, row, u"0012"_s, operation);
    QVERIFY(readValue(*m_sheet, row, operation) == CellValue(u"0012"_s));
    writeValue(*m_sheet, row, QString(), operation);
    QVERIFY(readValue(*m_sheet, row, operation) == CellValue());
}

void TestMapRows::aTextBoxTakesAndGivesText()
{
    dynamic_cast<tests::MemorySheet&>(*m_sheet).addControl(u"TextBox1"_s, u"old"_s);
    const MapRow row{u"Sheet1"_s, u"TextBox1"_s, u"Tag"_s, u"textbox"_s};
    QVERIFY(readValue(*m_sheet, row, operation) == CellValue(u"old"_s));
    writeValue(*m_sheet, row, u"new"_s, operation);
    QVERIFY(readValue(*m_sheet, row, operation) == CellValue(u"new"_s));
}

void TestMapRows::aCheckBoxIsTickedByThreeMarks_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("ticked");
    for (const QString& mark : {u"X"_s, u"y"_s, u"v"_s, u"V"_s})
        QTest::newRow(qPrintable(mark)) << mark << true;
    for (const QString& other : {u""_s, u"N"_s, u"XX"_s, u"True"_s, u"1"_s})
        QTest::newRow(qPrintable(u"not "_s + other)) << other << false;
}

void TestMapRows::aCheckBoxIsTickedByThreeMarks()
{
    QFETCH(const QString, value);
    QFETCH(const bool, ticked);
    dynamic_cast<tests::MemorySheet&>(*m_sheet).addControl(u"CheckBox1"_s, !ticked);
    const MapRow row{u"Sheet1"_s, u"CheckBox1"_s, u"Tag"_s, u"checkbox"_s};
    writeValue(*m_sheet, row, value, operation);
    QVERIFY(readValue(*m_sheet, row, operation) == CellValue(ticked));
}

void TestMapRows::anotherTypeIsNotRecognized()
{
    const MapRow row{u"Sheet1"_s, u"B2"_s, u"Tag"_s, u"slider"_s};
    const auto refused = [](const auto& action) -> QString {
        try {
            action();
        } catch (const ObjectTypeError& error) {
            return error.source() + u" "_s + QString::number(error.number()) + u" "_s
                   + error.description();
        }
        return QString();
    };
    const QString expected = operation + u" 20001 Unrecognize object type!"_s;
    QCOMPARE(refused([&] { writeValue(*m_sheet, row, u"x"_s, operation); }), expected);
    QCOMPARE(refused([&] { readValue(*m_sheet, row, operation); }), expected);
    QCOMPARE(refused([&] { requireCell(row, operation); }), expected);
    const MapRow box{u"Sheet1"_s, u"T"_s, u"Tag"_s, u"textbox"_s};
    QCOMPARE(refused([&] { requireCell(box, operation); }), expected);
}

void TestMapRows::aMissingControlIsTold()
{
    const MapRow row{u"Sheet1"_s, u"None"_s, u"Tag"_s, u"textbox"_s};
    QCOMPARE(numberOf([&] { writeValue(*m_sheet, row, u"x"_s, operation); }), 9);
}

void TestMapRows::aSheetIsFetchedOnce()
{
    Sheets sheets(m_book);
    QCOMPARE(&sheets.sheet(u"Sheet1"_s), &sheets.sheet(u"Sheet1"_s));
    QCOMPARE(sheets.sheet(u"sheet1"_s).Name(), u"Sheet1"_s);
    QCOMPARE(numberOf([&] { sheets.sheet(u"Other"_s); }), 9);
}

QTEST_MAIN(TestMapRows)
#include "tst_map_rows.moc"
