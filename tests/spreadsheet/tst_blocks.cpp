// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Many cells read and written at a time.
#include "spreadsheet/office_fixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::CellValue;
using spreadsheet::CellWrite;
using tests::OfficeFixture;

class TestBlocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    static void cleanupTestCase() { spreadsheet::endHost(); }

    void textsBelowOneAnotherStayLetterForLetter();
    void valuesKeepTheirTypes();
    void aCellOfDatesKeepsItsOwnFormat();
    void numberFormatsOfTextsStay();
    void emptyTextsEmptyTheirCells();
    void theLastValueOfACellCounts();
    void protectedSheetsAreWrittenCellByCell();
    void whatIsNoCellIsRefused_data();
    void whatIsNoCellIsRefused();
    void changesAreToldOnce();
    void blocksAreReadWithTheirTypes();
    void whatIsNoBlockIsRefused();
    void valuesOutliveTheFile();

private:
    CellValue value(const QString& cell) const { return m_sheet->Range(cell)->Value(); }

    OfficeFixture m_office;
    std::shared_ptr<spreadsheet::Application> m_application;
    std::shared_ptr<spreadsheet::Workbook> m_book;
    std::shared_ptr<spreadsheet::Worksheet> m_sheet;
};

void TestBlocks::init()
{
    m_application = spreadsheet::CreateObject();
    m_book = m_application->Add();
    m_sheet = m_book->Worksheets(1);
}

void TestBlocks::cleanup()
{
    m_book->Close(spreadsheet::SaveChanges::No);
    m_sheet.reset();
    m_book.reset();
    m_application.reset();
}

void TestBlocks::textsBelowOneAnotherStayLetterForLetter()
{
    const QStringList texts{u"0012"_s,
                            u"1E5"_s,
                            u"=1+1"_s,
                            u"'quoted"_s,
                            u"3/5/2024"_s,
                            u" blanks "_s,
                            u"10 %"_s,
                            u"TRUE"_s,
                            u"Größe Ω 温度"_s,
                            u"two\nlines"_s,
                            u"#N/A"_s,
                            u"plain"_s};
    std::vector<CellWrite> cells;
    for (int i = 0; i < texts.size(); ++i)
        cells.push_back({u"B%1"_s.arg(i + 3), texts[i]});
    cells.push_back({u"D3"_s, u"beside"_s});
    m_sheet->write(cells);
    for (int i = 0; i < texts.size(); ++i)
        QVERIFY2(value(u"B%1"_s.arg(i + 3)) == CellValue(texts[i]), qPrintable(texts[i]));
    QVERIFY(value(u"D3"_s) == CellValue(u"beside"_s));
}

void TestBlocks::valuesKeepTheirTypes()
{
    const QDateTime day(QDate(2026, 3, 1), QTime(0, 0));
    const QDateTime moment(QDate(2026, 3, 1), QTime(13, 14, 15));
    m_sheet->write({{u"A1"_s, 12.5},
                    {u"A2"_s, u"between"_s},
                    {u"A3"_s, day},
                    {u"A4"_s, moment},
                    {u"A5"_s, true},
                    {u"A6"_s, false},
                    {u"A7"_s, u"below"_s},
                    {u"A8"_s, u"and below"_s}});
    QVERIFY(value(u"A1"_s) == CellValue(12.5));
    QVERIFY(value(u"A2"_s) == CellValue(u"between"_s));
    QVERIFY(value(u"A3"_s) == CellValue(day));
    QVERIFY(value(u"A4"_s) == CellValue(moment));
    QVERIFY(value(u"A5"_s) == CellValue(true));
    QVERIFY(value(u"A6"_s) == CellValue(false));
    QVERIFY(value(u"A8"_s) == CellValue(u"and below"_s));
}

void TestBlocks::aCellOfDatesKeepsItsOwnFormat()
{
    m_sheet->write({{u"A1"_s, QDateTime(QDate(2026, 3, 1), QTime(8, 30))}});
    m_sheet->write({{u"A1"_s, QDateTime(QDate(2027, 4, 2), QTime(0, 0))}});
    QVERIFY(value(u"A1"_s) == CellValue(QDateTime(QDate(2027, 4, 2), QTime(0, 0))));
    m_sheet->write({{u"A1"_s, 7.0}});
    m_sheet->write({{u"A1"_s, u"text"_s}});
    QVERIFY(value(u"A1"_s) == CellValue(u"text"_s));
}

/// A date stays one when a text was there meanwhile: the cells are of two formats.
void TestBlocks::numberFormatsOfTextsStay()
{
    m_sheet->write({{u"A1"_s, QDateTime(QDate(2026, 3, 1), QTime(0, 0))}, {u"A2"_s, 5.0}});
    m_sheet->write({{u"A1"_s, u"0012"_s}, {u"A2"_s, u"0013"_s}, {u"A3"_s, u"0014"_s}});
    QVERIFY(value(u"A1"_s) == CellValue(u"0012"_s));
    QVERIFY(value(u"A3"_s) == CellValue(u"0014"_s));
    m_sheet->write({{u"A1"_s, 40000.0}, {u"A2"_s, 40000.0}, {u"A3"_s, 40000.0}});
    QVERIFY(std::holds_alternative<QDateTime>(value(u"A1"_s)));
    QVERIFY(value(u"A2"_s) == CellValue(40000.0));
    QVERIFY(value(u"A3"_s) == CellValue(40000.0));
}

void TestBlocks::emptyTextsEmptyTheirCells()
{
    m_sheet->write({{u"A1"_s, u"a"_s}, {u"A2"_s, u"b"_s}, {u"A3"_s, u"c"_s}});
    m_sheet->write({{u"A1"_s, QString()}, {u"A2"_s, u"new"_s}, {u"A3"_s, std::monostate{}}});
    QVERIFY(value(u"A1"_s) == CellValue());
    QVERIFY(value(u"A2"_s) == CellValue(u"new"_s));
    QVERIFY(value(u"A3"_s) == CellValue());
}

void TestBlocks::theLastValueOfACellCounts()
{
    m_sheet->write({{u"A1"_s, u"a"_s}, {u"A2"_s, u"b"_s}, {u"A1"_s, u"last"_s}});
    QVERIFY(value(u"A1"_s) == CellValue(u"last"_s));
    QVERIFY(value(u"A2"_s) == CellValue(u"b"_s));
}

/// Protection keeps the user from writing, and blocks from being written in one call.
void TestBlocks::protectedSheetsAreWrittenCellByCell()
{
    spreadsheet::CellStyle open;
    open.locked = false;
    m_sheet->design().setStyle(u"A2:A3"_s, open);
    m_sheet->Protect();
    m_sheet->write({{u"A1"_s, u"one"_s},
                    {u"A2"_s, u"0012"_s},
                    {u"A3"_s, u"three"_s},
                    {u"A4"_s, u"four"_s},
                    {u"C1"_s, 3.0},
                    {u"C2"_s, true}});
    QVERIFY(value(u"A1"_s) == CellValue(u"one"_s));
    QVERIFY(value(u"A2"_s) == CellValue(u"0012"_s));
    QVERIFY(value(u"A3"_s) == CellValue(u"three"_s));
    QVERIFY(value(u"A4"_s) == CellValue(u"four"_s));
    QVERIFY(value(u"C1"_s) == CellValue(3.0));
}

void TestBlocks::whatIsNoCellIsRefused_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<int>("number");
    QTest::newRow("empty") << QString() << 1004;
    QTest::newRow("name") << u"nowhere"_s << 1004;
    QTest::newRow("row 0") << u"A0"_s << 1004;
    QTest::newRow("block") << u"A1:B2"_s << 13;
}

void TestBlocks::whatIsNoCellIsRefused()
{
    QFETCH(QString, cell);
    QFETCH(int, number);
    try {
        m_sheet->write({{cell, u"x"_s}});
        QFAIL("no error");
    } catch (const spreadsheet::Error& error) {
        QCOMPARE(error.number(), number);
    }
}

void TestBlocks::changesAreToldOnce()
{
    int changes = 0;
    m_sheet->subscribe([&changes] { ++changes; });
    m_sheet->write({{u"A1"_s, u"a"_s}, {u"A2"_s, u"b"_s}, {u"C7"_s, 3.0}});
    QTRY_COMPARE(changes, 1);
    QTest::qWait(300);
    QCOMPARE(changes, 1);
    m_sheet->write({});
    QTest::qWait(300);
    QCOMPARE(changes, 1);
    m_sheet->subscribe({});
}

void TestBlocks::blocksAreReadWithTheirTypes()
{
    m_sheet->write({{u"A1"_s, u"0012"_s}, {u"B1"_s, 12.5}, {u"B2"_s, true}});
    m_sheet->design().setFormula(u"A3"_s, u"=6*2"_s);
    m_sheet->design().setFormula(u"B3"_s, u"=NA()"_s);
    const spreadsheet::CellValues values = m_sheet->Values(u"A1:C3"_s);
    QCOMPARE(values.size(), 3U);
    QCOMPARE(values[0].size(), 3U);
    QVERIFY(values[0][0] == CellValue(u"0012"_s));
    QVERIFY(values[0][1] == CellValue(12.5));
    QVERIFY(values[0][2] == CellValue());
    QVERIFY(values[1][1] == CellValue(1.0));
    QVERIFY(values[2][0] == CellValue(12.0));
    QVERIFY(std::holds_alternative<spreadsheet::CellError>(values[2][1]));
}

void TestBlocks::whatIsNoBlockIsRefused()
{
    try {
        m_sheet->Values(u"nowhere:there"_s);
        QFAIL("no error");
    } catch (const spreadsheet::Error& error) {
        QCOMPARE(error.number(), 1004);
    }
}

void TestBlocks::valuesOutliveTheFile()
{
    const QDateTime day(QDate(2026, 3, 1), QTime(0, 0));
    m_sheet->write({{u"A1"_s, u"=1+1"_s}, {u"A2"_s, u"0012"_s}, {u"B1"_s, day}, {u"B2"_s, 0.1}});
    m_book->SaveAs(m_office.path(u"blocks.xls"_s), spreadsheet::FileFormat::Workbook);
    const auto again = m_application->Open(m_office.path(u"blocks.xls"_s));
    const auto sheet = again->Worksheets(1);
    QVERIFY(sheet->Range(u"A1"_s)->Value() == CellValue(u"=1+1"_s));
    QVERIFY(sheet->Range(u"A2"_s)->Value() == CellValue(u"0012"_s));
    QVERIFY(sheet->Range(u"B1"_s)->Value() == CellValue(day));
    QVERIFY(sheet->Range(u"B2"_s)->Value() == CellValue(0.1));
    again->Close(spreadsheet::SaveChanges::No);
}

QTEST_GUILESS_MAIN(TestBlocks)
#include "tst_blocks.moc"
