// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/catalogue.h"
#include "maker/csv.h"

#include <QTest>

using namespace ostrand::maker;

namespace {

/// The message of the failure that parsing ends in; "" when it does not fail.
QByteArray failureOf(std::string_view text)
{
    try {
        CsvTable::parse(text, "x.csv");
    } catch (const InputError& error) {
        return error.what();
    }
    return {};
}

/// The message of the failure that a catalogue made of one column ends in.
QByteArray catalogueFailureOf(const std::string& row)
{
    try {
        Catalogue(CsvTable::parse("Table,Column,Type,Length,Rules\n" + row, "columns.csv"));
    } catch (const InputError& error) {
        return error.what();
    }
    return {};
}

} // namespace

class tst_csv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsAreReadAsWritten_data();
    void cellsAreReadAsWritten();
    void anEmptyCellInQuotesIsNotBlank();
    void rowsKnowTheirLines();
    void aMarkOfByteOrderIsNoPartOfTheFirstName();
    void faultsNameFileAndLine_data();
    void faultsNameFileAndLine();
    void aMissingColumnIsNamed();
    void aMissingFileIsNamed();
    void typesAndLengthsOfColumnsAreChecked();
};

void tst_csv::cellsAreReadAsWritten_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QList<QByteArray>>("cells");
    using Cells = QList<QByteArray>;
    QTest::newRow("plain") << QByteArray("a,b\n1,2\n") << Cells{"1", "2"};
    QTest::newRow("no line break at the end") << QByteArray("a,b\n1,2") << Cells{"1", "2"};
    QTest::newRow("CR LF") << QByteArray("a,b\r\n1,2\r\n") << Cells{"1", "2"};
    QTest::newRow("empty cells") << QByteArray("a,b\n,\n") << Cells{"", ""};
    QTest::newRow("blanks stay") << QByteArray("a,b\n 1 , 2\n") << Cells{" 1 ", " 2"};
    QTest::newRow("quoted comma") << QByteArray("a,b\n\"1,5\",2\n") << Cells{"1,5", "2"};
    QTest::newRow("doubled quote") << QByteArray("a,b\n\"\"\"x\"\"\",2\n") << Cells{"\"x\"", "2"};
    QTest::newRow("empty quotes") << QByteArray("a,b\n\"\",2\n") << Cells{"", "2"};
    QTest::newRow("line breaks in quotes stay")
        << QByteArray("a,b\n\"1\r\n2\n3\",4\r\n") << Cells{"1\r\n2\n3", "4"};
    QTest::newRow("a lone CR is a character") << QByteArray("a,b\n1\r2,3\n") << Cells{"1\r2", "3"};
    QTest::newRow("beyond ASCII") << QByteArray("a,b\n\xC2\xB0"
                                                "C,2\n")
                                  << Cells{"\xC2\xB0"
                                           "C",
                                           "2"};
}

void tst_csv::cellsAreReadAsWritten()
{
    QFETCH(QByteArray, text);
    QFETCH(QList<QByteArray>, cells);
    const CsvTable table = CsvTable::parse(text.toStdString(), "x.csv");
    QCOMPARE(table.rows().size(), 1U);
    QList<QByteArray> found;
    for (const std::string& cell : table.rows().front().cells)
        found.append(QByteArray::fromStdString(cell));
    QCOMPARE(found, cells);
}

void tst_csv::anEmptyCellInQuotesIsNotBlank()
{
    const CsvTable table = CsvTable::parse("a,b,c\n,\"\",x\n", "x.csv");
    const CsvTable::Row& row = table.rows().front();
    QVERIFY(row.isBlank(0));
    QVERIFY(!row.isBlank(1));
    QVERIFY(row.cells[1].empty());
    QVERIFY(!row.isBlank(2));
}

void tst_csv::rowsKnowTheirLines()
{
    const CsvTable table = CsvTable::parse("a\n\"1\n2\"\n3\n", "x.csv");
    QCOMPARE(table.rows().size(), 2U);
    QCOMPARE(table.rows().at(0).line, 2);
    QCOMPARE(table.rows().at(1).line, 4);
}

void tst_csv::aMarkOfByteOrderIsNoPartOfTheFirstName()
{
    const CsvTable table = CsvTable::parse("\xEF\xBB\xBFname,b\n", "x.csv");
    QCOMPARE(table.column("name"), 0U);
    QVERIFY(table.rows().empty());
}

void tst_csv::faultsNameFileAndLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("too few") << QByteArray("a,b\n1,2\n1\n")
                             << QByteArray("x.csv:3: 2 cells expected, 1 found");
    QTest::newRow("too many") << QByteArray("a,b\n1,2,3\n")
                              << QByteArray("x.csv:2: 2 cells expected, 3 found");
    QTest::newRow("blank line") << QByteArray("a,b\n\n1,2\n")
                                << QByteArray("x.csv:2: 2 cells expected, 1 found");
    QTest::newRow("open quote") << QByteArray("a,b\n1,2\n\"1,2\n3,4\n")
                                << QByteArray("x.csv:3: a quote is not closed");
    QTest::newRow("quote inside") << QByteArray("a,b\n1\",2\n")
                                  << QByteArray("x.csv:2: a quote stands inside an unquoted cell");
    QTest::newRow("text behind a quote")
        << QByteArray("a,b\n\"1\"x,2\n")
        << QByteArray("x.csv:2: text stands behind a closing quote");
    QTest::newRow("nothing") << QByteArray()
                             << QByteArray("x.csv:1: the row of column names is missing");
}

void tst_csv::faultsNameFileAndLine()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, message);
    QCOMPARE(failureOf(text.toStdString()), message);
}

void tst_csv::aMissingColumnIsNamed()
{
    const CsvTable table = CsvTable::parse("a,b\n", "x.csv");
    QCOMPARE(table.column("b"), 1U);
    QVERIFY_EXCEPTION_THROWN(table.column("c"), InputError);
}

void tst_csv::aMissingFileIsNamed()
{
    try {
        CsvTable::read("no such folder/x.csv");
        QFAIL("read a file that is not there");
    } catch (const InputError& error) {
        QVERIFY(QByteArray(error.what()).startsWith("no such folder/x.csv"));
    }
}

void tst_csv::typesAndLengthsOfColumnsAreChecked()
{
    QCOMPARE(catalogueFailureOf("t,c,Text,50,\n"), QByteArray());
    QCOMPARE(catalogueFailureOf("t,c,Memo,,\n"), QByteArray());
    QCOMPARE(catalogueFailureOf("t,c,Number,,\n"),
             QByteArray("columns.csv:2: unknown type Number"));
    for (const char* row : {"t,c,Text,,\n", "t,c,Text,0,\n", "t,c,Text,5x,\n", "t,c,Memo,50,\n"}) {
        QCOMPARE(catalogueFailureOf(row),
                 QByteArray("columns.csv:2: a Text, and nothing else, has a length"));
    }
}

QTEST_GUILESS_MAIN(tst_csv)
#include "tst_csv.moc"
