// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/map_sheet.h"
#include "spreadsheet/host.h"
#include "support/memory_workbook.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using spreadsheet::CellValue;
using spreadsheet::CellWrite;

class TestMapSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theHeadingIsNotRead();
    void aSheetWithNothingHasNoRows();
    void readingStopsAtTheFirstRowWithoutTable();
    void emptyCellsOfARowAreEmptyTexts();
    void numbersAreReadAsTexts();
    void tenThousandRowsAreRead();
    void theLastRowOfABlockIsRead_data();
    void theLastRowOfABlockIsRead();
    void anErrorInACellIsRaised();
    void anErrorBehindTheLastRowIsNotSeen();

private:
    void write(const std::vector<CellWrite>& cells) { m_sheet->write(cells); }
    pid::MapRows read() { return pid::readMapRows(*m_sheet); }

    tests::MemoryOffice m_office;
    std::shared_ptr<spreadsheet::Application> m_application;
    std::shared_ptr<spreadsheet::Workbook> m_book;
    std::shared_ptr<spreadsheet::Worksheet> m_sheet;
};

void TestMapSheet::init()
{
    m_sheet.reset();
    m_book.reset();
    m_application = spreadsheet::CreateObject();
    m_book = m_application->Add();
    m_sheet = m_book->Worksheets(1);
}

void TestMapSheet::theHeadingIsNotRead()
{
    write({{u"A1"_s, u"Table"_s},
           {u"B1"_s, u"Field"_s},
           {u"A2"_s, u"T"_s},
           {u"B2"_s, u"F"_s},
           {u"C2"_s, u"DATASHEET"_s},
           {u"D2"_s, u"D"_s},
           {u"E2"_s, u"12"_s},
           {u"F2"_s, u"more"_s}});
    const pid::MapRows rows = read();
    QCOMPARE(rows.size(), 1U);
    QCOMPARE(rows[0].table, u"T"_s);
    QCOMPARE(rows[0].field, u"F"_s);
    QCOMPARE(rows[0].worksheet, u"DATASHEET"_s);
    QCOMPARE(rows[0].column, u"D"_s);
    QCOMPARE(rows[0].row, u"12"_s);
    QCOMPARE(rows[0].cell(), u"D12"_s);
}

void TestMapSheet::aSheetWithNothingHasNoRows()
{
    QVERIFY(read().empty());
    write({{u"A1"_s, u"Table"_s}, {u"B2"_s, u"F"_s}, {u"A3"_s, u"T"_s}});
    QVERIFY(read().empty());
}

void TestMapSheet::readingStopsAtTheFirstRowWithoutTable()
{
    write({{u"A2"_s, u"T"_s}, {u"A3"_s, u"U"_s}, {u"B4"_s, u"F"_s}, {u"A5"_s, u"V"_s}});
    const pid::MapRows rows = read();
    QCOMPARE(rows.size(), 2U);
    QCOMPARE(rows[1].table, u"U"_s);
}

void TestMapSheet::emptyCellsOfARowAreEmptyTexts()
{
    write({{u"A2"_s, u"T"_s}, {u"D2"_s, u"D"_s}});
    const pid::MapRows rows = read();
    QCOMPARE(rows.size(), 1U);
    QVERIFY(rows[0].field.isEmpty() && rows[0].worksheet.isEmpty() && rows[0].row.isEmpty());
    QCOMPARE(rows[0].cell(), u"D"_s);
}

void TestMapSheet::numbersAreReadAsTexts()
{
    write({{u"A2"_s, 7.0}, {u"B2"_s, 1.5}, {u"E2"_s, 12.0}});
    const pid::MapRows rows = read();
    QCOMPARE(rows.size(), 1U);
    QCOMPARE(rows[0].table, u"7"_s);
    QCOMPARE(rows[0].field, u"1.5"_s);
    QCOMPARE(rows[0].row, u"12"_s);
}

void TestMapSheet::tenThousandRowsAreRead()
{
    constexpr int count = 10'000;
    std::vector<CellWrite> cells;
    for (int i = 0; i < count; ++i) {
        cells.push_back({u"A"_s + QString::number(i + 2), u"T"_s});
        cells.push_back({u"B"_s + QString::number(i + 2), QString::number(i)});
    }
    write(cells);
    const pid::MapRows rows = read();
    QCOMPARE(rows.size(), static_cast<std::size_t>(count));
    QCOMPARE(rows.back().field, QString::number(count - 1));
}

void TestMapSheet::theLastRowOfABlockIsRead_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {255, 256, 257, 511, 512, 513})
        QTest::addRow("%d", count) << count;
}

void TestMapSheet::theLastRowOfABlockIsRead()
{
    QFETCH(int, count);
    std::vector<CellWrite> cells;
    for (int i = 0; i < count; ++i)
        cells.push_back({u"A"_s + QString::number(i + 2), QString::number(i)});
    write(cells);
    const pid::MapRows rows = read();
    QCOMPARE(rows.size(), static_cast<std::size_t>(count));
    QCOMPARE(rows.back().table, QString::number(count - 1));
}

void TestMapSheet::anErrorInACellIsRaised()
{
    write({{u"A2"_s, u"T"_s}, {u"C2"_s, spreadsheet::CellError{u"#REF!"_s}}});
    try {
        read();
        QFAIL("no error");
    } catch (const spreadsheet::Error& error) {
        QCOMPARE(error.number(), 13);
    }
}

void TestMapSheet::anErrorBehindTheLastRowIsNotSeen()
{
    write({{u"A2"_s, u"T"_s}, {u"C3"_s, spreadsheet::CellError{u"#REF!"_s}}});
    QCOMPARE(read().size(), 1U);
}

QTEST_GUILESS_MAIN(TestMapSheet)
#include "tst_map_sheet.moc"
