// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/foreign_lock.h"
#include "pid/run_desk.h"
#include "pid/update_main_db.h"
#include "support/full_disk.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace ostrand;
using tests::ForeignLock;
using tests::RunDesk;

namespace {

const QString failureEnd = u") in procedure updateMainDB of Form frmIndex"_s;

} // namespace

class TestUpdateMainDb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_desk.reset(); }

    void theMapsFieldIsSet();
    void quotesInAValueAreKept();
    void aCellThatTheMapDoesNotKnowChangesNothing_data();
    void aCellThatTheMapDoesNotKnowChangesNothing();
    void theTagIsNeverRewritten();
    void anEmptyValueChangesNothing();
    void onlyTheFirstOfEqualMapRowsCounts();
    void otherTablesAndSpellingsWriteNothing_data();
    void otherTablesAndSpellingsWriteNothing();
    void aTagThatIsNotThereChangesNothing();
    void theIndexShowsTheValueAfterARefresh();

    void aNewDocumentIsRegisteredAndTied_data();
    void aNewDocumentIsRegisteredAndTied();
    void aKnownDocumentGetsNoTie();
    void anApostropheInADocumentIsTold();
    void aDocumentIsTiedToATagThatIsNotThere();

    void aFieldThatThereIsNotIsTold();
    void aValueThatIsTooLongIsTold();
    void aMissingProjectIsTold();
    void aLockedProjectIsToldForEachValue();
    void afterAFailureOtherValuesAreWritten();
    void aFullDiskIsToldAndThePieceIsLost();

private:
    void pass(const QString& value, const QString& lookup = u"PT-1"_s)
    {
        m_update->updateMainDB(m_entry, value, lookup, RunDesk::type);
    }
    QString documents() const
    {
        return RunDesk::values(m_desk->project,
                               u"select docNo & '/' & docType from document where docType <> 'NA' "
                               u"order by docNo"_s)
            .join(u' ');
    }

    const pid::MapEntry m_entry{u"T"_s, u"F"_s, RunDesk::front, u"D"_s, u"12"_s};
    std::unique_ptr<RunDesk> m_desk;
    std::unique_ptr<pid::MainDbUpdate> m_update;
};

void TestUpdateMainDb::init()
{
    m_update.reset();
    m_desk = std::make_unique<RunDesk>(u"none"_s);
    m_desk->addTag(u"PT-1"_s);
    m_desk->addTag(u"PT-2"_s);
    m_desk->open(m_desk->project);
    m_update = std::make_unique<pid::MainDbUpdate>();
}

void TestUpdateMainDb::theMapsFieldIsSet()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    pass(u"12.5"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"12.5"_s);
    QCOMPARE(m_desk->stored(u"PT-2"_s, u"Remarks"_s), u"(null)"_s);
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestUpdateMainDb::quotesInAValueAreKept()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    pass(u"the 'old' one's"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"the 'old' one's"_s);
}

void TestUpdateMainDb::aCellThatTheMapDoesNotKnowChangesNothing_data()
{
    QTest::addColumn<QString>("worksheet");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("type");
    QTest::newRow("cell") << RunDesk::front << u"13"_s << RunDesk::type;
    QTest::newRow("sheet") << u"NOTES"_s << u"12"_s << RunDesk::type;
    QTest::newRow("type") << RunDesk::front << u"12"_s << u"OTHER"_s;
}

void TestUpdateMainDb::aCellThatTheMapDoesNotKnowChangesNothing()
{
    QFETCH(QString, worksheet);
    QFETCH(QString, row);
    QFETCH(QString, type);
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    m_update->updateMainDB({u"T"_s, u"F"_s, worksheet, u"D"_s, row}, u"x"_s, u"PT-1"_s, type);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"(null)"_s);
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestUpdateMainDb::theTagIsNeverRewritten()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Tag"_s);
    pass(u"PT-9"_s);
    QCOMPARE(RunDesk::values(m_desk->project, u"select PlantItemNo from [index]"_s),
             (QStringList{u"PT-1"_s, u"PT-2"_s}));
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestUpdateMainDb::anEmptyValueChangesNothing()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    pass(u"there"_s);
    pass(QString());
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"there"_s);
}

void TestUpdateMainDb::onlyTheFirstOfEqualMapRowsCounts()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    pass(u"x"_s);
    const QStringList both{m_desk->stored(u"PT-1"_s, u"Remarks"_s),
                           m_desk->stored(u"PT-1"_s, u"ServiceDescription"_s)};
    QCOMPARE(both.count(u"x"_s), 1);
}

void TestUpdateMainDb::otherTablesAndSpellingsWriteNothing_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"Index", "INDEX", "Document", "IndexTitleInfo"})
        QTest::newRow(table) << QString::fromUtf8(table);
}

void TestUpdateMainDb::otherTablesAndSpellingsWriteNothing()
{
    QFETCH(QString, table);
    m_desk->mapCell(u"D12"_s, table, u"Remarks"_s);
    const QString before = documents();
    pass(u"x"_s);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"(null)"_s);
    QCOMPARE(documents(), before);
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestUpdateMainDb::aTagThatIsNotThereChangesNothing()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    pass(u"x"_s, u"PT-9"_s);
    QCOMPARE(m_desk->texts(), QStringList());
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"(null)"_s);
}

void TestUpdateMainDb::theIndexShowsTheValueAfterARefresh()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    m_update->beginPiece();
    pass(u"Gas"_s);
    m_update->endPiece();
    m_update->refresh();
    QCOMPARE(m_desk->tags().Field(u"ServiceDescription"_s).text(), u"Gas"_s);
    QCOMPARE(m_desk->cellText(index::column::tag), u"PT-1"_s);
}

void TestUpdateMainDb::aNewDocumentIsRegisteredAndTied_data()
{
    QTest::addColumn<QString>("kind");
    const QStringList kinds{
        u"PID"_s, u"REQUISITION"_s, u"PURCHASE ORDER"_s, u"DATASHEET"_s, u"LOOP DWG"_s};
    for (const QString& kind : kinds)
        QTest::newRow(qPrintable(kind)) << kind;
}

void TestUpdateMainDb::aNewDocumentIsRegisteredAndTied()
{
    QFETCH(QString, kind);
    m_desk->mapCell(u"D12"_s, u"document"_s, kind);
    m_update->beginPiece();
    pass(u"DOC-1"_s);
    m_update->endPiece();
    m_update->refresh();
    QCOMPARE(documents(), u"DOC-1/"_s + kind);
    QCOMPARE(m_desk->ties(u"PT-1"_s), QStringList{u"DOC-1/"_s + kind});
    QCOMPARE(m_desk->texts(), QStringList());
}

void TestUpdateMainDb::aKnownDocumentGetsNoTie()
{
    m_desk->mapCell(u"D12"_s, u"document"_s, u"REQUISITION"_s);
    m_desk->addDocument(u"RQ-1"_s, u"REQUISITION"_s);
    pass(u"RQ-1"_s);
    QCOMPARE(m_desk->ties(u"PT-1"_s), QStringList());
    QCOMPARE(documents(), u"RQ-1/REQUISITION"_s);
}

void TestUpdateMainDb::anApostropheInADocumentIsTold()
{
    m_desk->mapCell(u"D12"_s, u"document"_s, u"REQUISITION"_s);
    pass(u"RQ'1"_s);
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3"_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
    QCOMPARE(documents(), QString());
}

void TestUpdateMainDb::aDocumentIsTiedToATagThatIsNotThere()
{
    m_desk->mapCell(u"D12"_s, u"document"_s, u"REQUISITION"_s);
    pass(u"RQ-1"_s, u"PT-9"_s);
    QCOMPARE(m_desk->texts(), QStringList());
    QCOMPARE(m_desk->ties(u"PT-9"_s), QStringList{u"RQ-1/REQUISITION"_s});
    QCOMPARE(documents(), u"RQ-1/REQUISITION"_s);
}

void TestUpdateMainDb::aFieldThatThereIsNotIsTold()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Nothing"_s);
    pass(u"x"_s);
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3061 ("_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
}

void TestUpdateMainDb::aValueThatIsTooLongIsTold()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"ServiceDescription"_s);
    pass(QString(300, u'x'));
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3163 ("_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
}

void TestUpdateMainDb::aMissingProjectIsTold()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    app::g_strIndexFile = m_desk->path(u"gone.mdb"_s);
    m_update->beginPiece();
    pass(u"x"_s);
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3024 ("_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
}

void TestUpdateMainDb::aLockedProjectIsToldForEachValue()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    {
        const ForeignLock lock(m_desk->project, "BEGIN EXCLUSIVE");
        m_update->beginPiece();
        pass(u"x"_s);
        m_update->endPiece();
    }
    const QStringList texts = m_desk->texts();
    QVERIFY2(texts.value(0).startsWith(u"Error 3260 ("_s) && texts.value(0).endsWith(failureEnd),
             qPrintable(texts.join(u'|')));
    m_update->beginPiece();
    pass(u"later"_s);
    m_update->endPiece();
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"later"_s);
}

void TestUpdateMainDb::afterAFailureOtherValuesAreWritten()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Manufacturer"_s);
    m_update->beginPiece();
    pass(u"first"_s, u"PT-1"_s);
    pass(QString(300, u'x'), u"PT-2"_s);
    pass(u"second"_s, u"PT-2"_s);
    m_update->endPiece();
    QCOMPARE(m_desk->texts().size(), 1);
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Manufacturer"_s), u"first"_s);
    QCOMPARE(m_desk->stored(u"PT-2"_s, u"Manufacturer"_s), u"second"_s);
}

void TestUpdateMainDb::aFullDiskIsToldAndThePieceIsLost()
{
    m_desk->mapCell(u"D12"_s, u"index"_s, u"Remarks"_s);
    m_update->beginPiece();
    pass(u"x"_s);
    {
        const tests::FullDisk disk;
        m_update->endPiece();
    }
    const QStringList texts = m_desk->texts();
    QCOMPARE(texts.size(), 1);
    QVERIFY2(texts[0].startsWith(u"Error 3026 ("_s) && texts[0].endsWith(failureEnd),
             qPrintable(texts[0]));
    QCOMPARE(m_desk->stored(u"PT-1"_s, u"Remarks"_s), u"(null)"_s);
}

QTEST_MAIN(TestUpdateMainDb)
#include "tst_update_main_db.moc"
