// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/cXlHndlr.h"
#include "datasheets/memory_desk.h"
#include "support/full_disk.h"

using namespace Qt::StringLiterals;
using namespace ostrand;
using ostrand::datasheets::xlHndlr;
using ostrand::tests::MemoryDesk;
using ostrand::tests::ProgramFixture;
using ostrand::tests::SessionDesk;

namespace {

const QString front = SessionDesk::front;

} // namespace

class TestWriteBack : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void onlyTheFieldOfTheTagIsProtected();
    void aRowOfSeveralCellsEndsTheCheck();
    void aMissingSheetEndsTheCheckWithWhatItFound();
    void aRowWithoutObjectIsNotCompared();
    void aFieldThatRefusesItsValueIsTold();
    void aRefusedValueLeavesNoEditBehind();
    void valuesWrittenBeforeAFailureStay();
    void anErrorValueCostsNoCrossReference();
    void aMissingSheetOfADocumentCannotBe();
    void aFailingUpdateIsTold();
    void aFailingDocumentStatementIsTold();
    void withoutASessionEveryOperationIsTold();
    void onlyTheTagsOwnCrossReferencesGo();
    void everyDocumentOfTheSheetIsWrittenAnew();

private:
    void map(const QString& worksheet,
             const QString& object,
             const QString& field,
             const QString& table);
    tests::IndexFixture& program() { return m_desk->program(); }
    QString stored(const QString& field) { return program().stored(SessionDesk::tag, field); }

    std::unique_ptr<MemoryDesk> m_desk;
};

void TestWriteBack::init()
{
    m_desk = std::make_unique<MemoryDesk>();
    m_desk->prepare();
}

void TestWriteBack::map(const QString& worksheet,
                        const QString& object,
                        const QString& field,
                        const QString& table)
{
    ProgramFixture::execute(
        m_desk->project(),
        u"insert into Map (DatasheetType, Worksheet, object, Field, TableName) values ('"_s
            + SessionDesk::type + u"', '"_s + worksheet + u"', '"_s + object + u"', '"_s + field
            + u"', '"_s + table + u"')"_s);
}

void TestWriteBack::onlyTheFieldOfTheTagIsProtected()
{
    map(front, u"D30"_s, u"CompanyTrackingNumber"_s, u"index"_s);
    map(front, u"D31"_s, u"tag"_s, u"index"_s);
    ProgramFixture::execute(
        m_desk->project(),
        u"update qryIndex set CompanyTrackingNumber = 'PT-1' where Tag = 'PT-1'"_s);
    program().open(m_desk->project());
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D30"_s, u"PT-7"_s);
    m_desk->typeIn(front, u"D31"_s, u"PT-7"_s);
    QVERIFY(xlHndlr().DataDifIndexInfo());
    QCOMPARE(program().texts(),
             QStringList{
                 u"One cannot edit tag number from datasheet. Please, modify tag from index."_s});
    QCOMPARE(m_desk->cellText(front, u"D30"_s), u"PT-7"_s);
    QCOMPARE(m_desk->cellText(front, u"D31"_s), u"PT-1"_s);
    xlHndlr().UpdateDbIndex();
    QCOMPARE(stored(u"CompanyTrackingNumber"_s), u"PT-7"_s);
    QCOMPARE(stored(u"Tag"_s), u"PT-1"_s);
}

void TestWriteBack::aRowOfSeveralCellsEndsTheCheck()
{
    m_desk->openDatasheet();
    map(front, u"D13:E13"_s, u"Manufacturer"_s, u"index"_s);
    QVERIFY(!xlHndlr().DataDifIndexInfo());
    QCOMPARE(program().texts(),
             QStringList{u"Error while checking differences between Excel Datasheet and index. \r\n"
                         "Error : 13. Type mismatch"_s});
}

void TestWriteBack::aMissingSheetEndsTheCheckWithWhatItFound()
{
    m_desk->openDatasheet();
    map(u"NOWHERE"_s, u"D30"_s, u"Manufacturer"_s, u"index"_s);
    m_desk->typeIn(front, u"D12"_s, u"changed"_s);
    QVERIFY(xlHndlr().DataDifIndexInfo());
    QCOMPARE(program().texts().size(), 1);
    m_desk->typeIn(front, u"D12"_s, u"Inlet pressure"_s);
    QVERIFY(!xlHndlr().DataDifIndexInfo());
}

void TestWriteBack::aRowWithoutObjectIsNotCompared()
{
    map(front, QString(), u"Manufacturer"_s, u"index"_s);
    map(front, QString(), u"REQUISITION"_s, u"document"_s);
    m_desk->openDatasheet();
    QVERIFY(!xlHndlr().DataDifIndexInfo());
    QVERIFY(!xlHndlr().DataDifXdocRef());
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    xlHndlr().UpdateDbIndex();
    xlHndlr().StoreData();
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(stored(u"Manufacturer"_s), u"Halden"_s);
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ-1/"_s});
}

void TestWriteBack::aFieldThatRefusesItsValueIsTold()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, QString(300, u'x'));
    xlHndlr().UpdateDbIndex();
    QCOMPARE(program().prompts.boxes.size(), std::size_t{1});
    QCOMPARE(program().prompts.boxes[0].title, u"ERROR!"_s);
    QVERIFY(program().prompts.boxes[0].icon == toolkit::BoxIcon::Exclamation);
    const QString told = program().texts().at(0);
    QVERIFY2(told.startsWith(u"Error while updating database. 3163 "_s), qPrintable(told));
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
}

void TestWriteBack::aRefusedValueLeavesNoEditBehind()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, QString(300, u'x'));
    program().prompts.answers = {toolkit::Answer::Yes};
    m_desk->closeWindow();
    // The question and the refusal: the index was read anew without a third message.
    QCOMPARE(program().texts().size(), 2);
    QVERIFY(!program().grid().rowPending());
    QVERIFY(m_desk->isMainWindowFree());
    QCOMPARE(program().cellText(6), u"Calder & Roe"_s);
}

void TestWriteBack::valuesWrittenBeforeAFailureStay()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D12"_s, u"Outlet pressure"_s);
    m_desk->typeIn(front, u"D13"_s, QString(300, u'x'));
    xlHndlr().UpdateDbIndex();
    QCOMPARE(stored(u"ServiceDescription"_s), u"Outlet pressure"_s);
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
}

void TestWriteBack::anErrorValueCostsNoCrossReference()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"H6"_s, u"=NA()"_s);
    xlHndlr().StoreData();
    QCOMPARE(program().texts(), QStringList{u"Error while updating database. 13 Type mismatch"_s});
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ-1/REQUISITION"_s});
}

/// The current sheet alone is asked for, whatever sheets the Map has beside it.
void TestWriteBack::aMissingSheetOfADocumentCannotBe()
{
    m_desk->openDatasheet();
    map(u"NOWHERE"_s, u"D30"_s, u"REQUISITION"_s, u"document"_s);
    QVERIFY(!xlHndlr().DataDifXdocRef());
    xlHndlr().StoreData();
    QCOMPARE(program().texts(), QStringList());
}

void TestWriteBack::aFailingUpdateIsTold()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"D13"_s, u"Halden"_s);
    {
        const tests::FullDisk full;
        xlHndlr().UpdateDbIndex();
    }
    const QStringList shown = program().texts();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith(u"Error while updating database. 3026 "_s), qPrintable(shown[0]));
    QCOMPARE(stored(u"Manufacturer"_s), u"Calder & Roe"_s);
}

void TestWriteBack::aFailingDocumentStatementIsTold()
{
    m_desk->openDatasheet();
    m_desk->typeIn(front, u"H6"_s, u"RQ-9"_s);
    m_desk->typeIn(front, u"H7"_s, QString());
    {
        const tests::FullDisk full;
        xlHndlr().DeleteXdocRef(u"REQUISITION"_s);
        xlHndlr().CreateDocument(u"RQ-9"_s, u"REQUISITION"_s);
        xlHndlr().CreateXdocRef(u"RQ-1"_s);
    }
    for (const toolkit::Box& box : program().prompts.boxes) {
        QCOMPARE(box.title, u"Error"_s);
        QVERIFY(box.icon == toolkit::BoxIcon::Exclamation);
    }
    const QStringList shown = program().texts();
    const QStringList starts{
        u"Error while deleting document cross reference from Excel. \r\nError : 3026. "_s,
        u"Error while creating document from Excel. \r\nError : 3026. "_s,
        u"Error while creating document cross reference from Excel. \r\nError : 3026. "_s};
    QCOMPARE(shown.size(), starts.size());
    for (qsizetype i = 0; i < starts.size(); ++i)
        QVERIFY2(shown[i].startsWith(starts[i]), qPrintable(shown[i]));
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ-1/REQUISITION"_s});
}

void TestWriteBack::withoutASessionEveryOperationIsTold()
{
    const QString words = u"91. Object variable not set"_s;
    QVERIFY(!xlHndlr().DataDifIndexInfo());
    QVERIFY(!xlHndlr().DataDifXdocRef());
    xlHndlr().UpdateDbIndex();
    xlHndlr().StoreData();
    QCOMPARE(
        program().texts(),
        (QStringList{u"Error while checking differences between Excel Datasheet and index. \r\n"
                     "Error : "_s
                         + words,
                     u"Error while checking differences between Excel Datasheet and document cross "
                     "reference. \r\nError : "_s
                         + words,
                     u"Error while updating database. 91 Object variable not set"_s,
                     u"Error while updating database. 91 Object variable not set"_s}));
}

void TestWriteBack::onlyTheTagsOwnCrossReferencesGo()
{
    program().addTie(u"PT-2"_s, u"RQ-1"_s, QString());
    program().addDocument(u"DS-1"_s, u"DATASHEET"_s);
    program().addTie(SessionDesk::tag, u"DS-1"_s, QString());
    m_desk->openDatasheet();
    xlHndlr().DeleteXdocRef(u"REQUISITION"_s);
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"DS-1/"_s});
    QCOMPARE(program().ties(u"PT-2"_s), QStringList{u"RQ-1/"_s});
}

/// Two documents of a kind become the one that the cell shows.
void TestWriteBack::everyDocumentOfTheSheetIsWrittenAnew()
{
    program().addDocument(u"RQ-2"_s, u"REQUISITION"_s);
    program().addTie(SessionDesk::tag, u"RQ-2"_s, QString());
    m_desk->openDatasheet();
    xlHndlr().StoreData();
    QCOMPARE(program().texts(), QStringList());
    QCOMPARE(program().ties(SessionDesk::tag), QStringList{u"RQ-2/"_s});
}

QTEST_MAIN(TestWriteBack)
#include "tst_write_back.moc"
