// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/cXlHndlr.h"
#include "datasheets/memory_desk.h"

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::datasheets::xlHndlr;
using ostrand::tests::MemoryDesk;
using ostrand::tests::ProgramFixture;
using ostrand::tests::SessionDesk;

namespace {

const QString front = SessionDesk::front;
const QString indexFailure =
    u"Error while populating index data into Excel Spreadsheet PT-1.xls.\r\n"_s;

} // namespace

class TestPopulation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void aMapRowWithoutSheetOrObjectIsSkipped();
    void aMapRowWithNullEndsItsPass();
    void aMissingSheetEndsItsPassAndTheOthersRun_data();
    void aMissingSheetEndsItsPassAndTheOthersRun();
    void aBadReferenceEndsItsPass();
    void theCaseOfTheTableNameDoesNotMatter();
    void aFieldOfSeveralRowsIsWrittenToAll();
    void aQuoteInTheTagEndsTheDocumentPass();
    void withoutASessionEveryPassIsTold();
    void aFailureOfAMessageEndsThePopulation();
    void theFirstCellOfAReferenceStandsBeforeTheColon();
    void aReferenceThatIsNullIsTold();
    void aFormOfManyCellsIsFilled();

private:
    void map(const QString& worksheet,
             const QString& object,
             const QString& field,
             const QString& table);
    tests::IndexFixture& program() { return m_desk->program(); }

    std::unique_ptr<MemoryDesk> m_desk;
};

void TestPopulation::init()
{
    m_desk = std::make_unique<MemoryDesk>();
    m_desk->prepare();
}

void TestPopulation::map(const QString& worksheet,
                         const QString& object,
                         const QString& field,
                         const QString& table)
{
    ProgramFixture::execute(
        m_desk->project(),
        u"insert into Map (DatasheetType, Worksheet, object, Field, TableName) values ('"_s
            + SessionDesk::type + u"', "_s + worksheet + u", "_s + object + u", '"_s + field
            + u"', '"_s + table + u"')"_s);
}

void TestPopulation::aMapRowWithoutSheetOrObjectIsSkipped()
{
    map(u"''"_s, u"'D20'"_s, u"Location"_s, u"index"_s);
    map(u"'DATASHEET'"_s, u"''"_s, u"Location"_s, u"index"_s);
    map(u"'DATASHEET'"_s, u"'D21'"_s, u"Location"_s, u"index"_s);
    m_desk->openDatasheet();
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(m_desk->cellText(front, u"D21"_s), u"FIELD"_s);
}

void TestPopulation::aMapRowWithNullEndsItsPass()
{
    map(u"Null"_s, u"'D20'"_s, u"Tag"_s, u"index"_s);
    m_desk->openDatasheet();
    QCOMPARE(program().texts(), QStringList{indexFailure + u"94 : Invalid use of Null"_s});
    QCOMPARE(m_desk->cellText(front, u"D12"_s), QString());
    QCOMPARE(m_desk->cellText(front, u"H6"_s), u"RQ-1"_s);
}

void TestPopulation::aMissingSheetEndsItsPassAndTheOthersRun_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("start");
    QTest::newRow("index") << u"Tag"_s << u"index"_s << indexFailure;
    QTest::newRow("title")
        << u"plant"_s << u"IndexTitleInfo"_s
        << u"Error while populating title information in Excel Spreadsheet PT-1.xls.\r\n"_s;
    QTest::newRow("document")
        << u"REQUISITION"_s << u"Document"_s
        << u"Error while populating document information in Excel Spreadsheet PT-1.xls.\r\n"_s;
}

void TestPopulation::aMissingSheetEndsItsPassAndTheOthersRun()
{
    QFETCH(const QString, field);
    QFETCH(const QString, table);
    QFETCH(const QString, start);
    map(u"'NOWHERE'"_s, u"'D20'"_s, field, table);
    m_desk->openDatasheet();
    QCOMPARE(program().prompts.boxes.size(), std::size_t{1});
    QCOMPARE(program().prompts.boxes[0].title, u"ERROR!"_s);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    QCOMPARE(program().texts(), QStringList{start + u"9 : Subscript out of range"_s});
    if (table != u"Document"_s)
        QCOMPARE(m_desk->cellText(front, u"H6"_s), u"RQ-1"_s);
    if (table != u"index"_s)
        QCOMPARE(m_desk->cellText(front, u"D12"_s), u"Inlet pressure"_s);
    // The session is open all the same.
    QVERIFY(xlHndlr().XlAlreadyOpen());
    QVERIFY(!m_desk->isMainWindowFree());
}

void TestPopulation::aBadReferenceEndsItsPass()
{
    map(u"'DATASHEET'"_s, u"'not a cell'"_s, u"Tag"_s, u"index"_s);
    m_desk->openDatasheet();
    QCOMPARE(program().texts(), QStringList{indexFailure + u"1004 : The reference is not valid"_s});
}

void TestPopulation::theCaseOfTheTableNameDoesNotMatter()
{
    map(u"'DATASHEET'"_s, u"'D22'"_s, u"location"_s, u"INDEX"_s);
    map(u"'DATASHEET'"_s, u"'D23'"_s, u"CONTRACT"_s, u"indextitleinfo"_s);
    m_desk->openDatasheet();
    QCOMPARE(m_desk->cellText(front, u"D22"_s), u"FIELD"_s);
    QCOMPARE(m_desk->cellText(front, u"D23"_s), u"C-7"_s);
}

void TestPopulation::aFieldOfSeveralRowsIsWrittenToAll()
{
    map(u"'DATASHEET'"_s, u"'D24'"_s, u"Remarks"_s, u"index"_s);
    m_desk->openDatasheet();
    QCOMPARE(m_desk->cellText(front, u"D24"_s), u"none"_s);
    QCOMPARE(m_desk->cellText(SessionDesk::notes, u"B14"_s), u"none"_s);
}

void TestPopulation::aQuoteInTheTagEndsTheDocumentPass()
{
    program().addTag(u"O''B"_s);
    program().open(m_desk->project());
    program().goTo(u"O''B"_s);
    SessionDesk::makeWorkbook(m_desk->path(u"sheets/quote.xls"_s));
    program().texts();
    xlHndlr().OpenXl(m_desk->path(u"sheets/quote.xls"_s));
    QCOMPARE(program().prompts.boxes.size(), std::size_t{1});
    const QString told = program().texts().at(0);
    QVERIFY2(
        told.startsWith(
            u"Error while populating document information in Excel Spreadsheet quote.xls.\r\n3"_s),
        qPrintable(told));
    QCOMPARE(m_desk->cellText(front, u"D11"_s), u"O'B"_s);
    // Coming back to the tag fails in the same way.
    m_desk->office.answers = {tests::UnsavedAnswer::Discard};
    m_desk->closeWindow();
    const QStringList shown = program().texts();
    QVERIFY2(shown.back().startsWith(u"Error while refreshing index database \r\nError : 3"_s),
             qPrintable(shown.back()));
    QVERIFY(m_desk->isMainWindowFree());
}

void TestPopulation::withoutASessionEveryPassIsTold()
{
    xlHndlr().PopulateXl();
    const QString failure = u".\r\n91 : Object variable not set"_s;
    QCOMPARE(
        program().texts(),
        (QStringList{u"Error while populating title information in Excel Spreadsheet "_s + failure,
                     u"Error while populating index data into Excel Spreadsheet "_s + failure,
                     u"Error while populating document information in Excel Spreadsheet "_s
                         + failure}));
}

void TestPopulation::aFailureOfAMessageEndsThePopulation()
{
    map(u"'NOWHERE'"_s, u"'D20'"_s, u"Tag"_s, u"index"_s);
    m_desk->openDatasheet();
    program().texts();
    program().prompts.whileOpen = [this](const toolkit::Box&) {
        program().prompts.whileOpen = {};
        throw store::Error(7, u"Out of memory"_s);
    };
    xlHndlr().PopulateXl();
    QCOMPARE(program().prompts.boxes.back().title, u"Error"_s);
    QCOMPARE(program().texts().back(),
             u"Error while populating datasheet. \r\nError : 7. Out of memory"_s);
}

void TestPopulation::theFirstCellOfAReferenceStandsBeforeTheColon()
{
    QCOMPARE(xlHndlr().StartCell(u"D11:F12"_s), u"D11"_s);
    QCOMPARE(xlHndlr().StartCell(u"A1:B2:C3"_s), u"A1"_s);
    QCOMPARE(xlHndlr().StartCell(u"D11"_s), u"D11"_s);
    QCOMPARE(xlHndlr().StartCell(u":D11"_s), u":D11"_s);
    QCOMPARE(xlHndlr().StartCell(QString()), QString());
    QCOMPARE(program().texts(), QStringList());
}

void TestPopulation::aReferenceThatIsNullIsTold()
{
    QCOMPARE(xlHndlr().StartCell(store::Value()), QString());
    QCOMPARE(program().prompts.boxes.at(0).title, u"Error!"_s);
    QCOMPARE(program().texts(), QStringList{u"Error in StartCell(). 94 : Invalid use of Null"_s});
}

/// With all the fields mapped that the largest form shows, what is left for the application of the
/// time a user waits is nearly all of it.
void TestPopulation::aFormOfManyCellsIsFilled()
{
    constexpr int cells = 45;
    const store::Recordset& tags = program().tags();
    for (int i = 0; i < cells; ++i) {
        map(u"'DATASHEET'"_s,
            u"'K"_s + QString::number(i + 1) + u"'"_s,
            tags.FieldName(i),
            u"index"_s);
    }
    m_desk->openDatasheet();
    QCOMPARE(program().texts(), QStringList());
    const store::Recordset& opened = program().tags();
    for (int i = 0; i < cells; ++i) {
        QCOMPARE(m_desk->cellText(SessionDesk::front, u"K"_s + QString::number(i + 1)),
                 opened.Field(i).text());
    }
}

QTEST_MAIN(TestPopulation)
#include "tst_population.moc"
