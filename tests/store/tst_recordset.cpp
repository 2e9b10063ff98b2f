// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "scratch_database.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::store;
using ostrand::tests::errorOf;
using ostrand::tests::ScratchDatabase;

class TestRecordset : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSnapshotHoldsWhatWasThere();
    void anEmptyRecordsetIsAtBothEnds();
    void openingStandsOnTheFirstRowInKeyOrder();
    void movingCountsTheRowsVisited();
    void moveLastVisitsAllRows();
    void movingBeyondTheEndsRaises();
    void absolutePositionMayBeWritten();
    void aBookmarkBringsItsRowBack();
    void findFirstStandsOnTheFirstMatchOrStays();
    void fieldsAreFoundInAnyCase();
    void anUnknownFieldRaises();
    void anEditIsKeptUntilUpdate();
    void updateWithoutEditRaises();
    void aNewRowTakesTheLastPlace();
    void addingDoesNotMoveTheCurrentRow();
    void aRefusedRowStaysInEdit();
    void aRefusedUpdateForgetsWhatTheObserverAdded();
    void aRowThatGotADeletedRowsKeyIsNotWritten();
    void aNewRowWithADeletedRowsKeyTakesItsPlaceAway();
    void aPendingNewRowCannotBeDeleted();
    void refusalsHaveTheirNumbers();
    void refusedTextsAreToldByTheirField();
    void cancellingDropsTheEdit();
    void movingDropsTheEdit();
    void deletingLeavesNoCurrentRowUntilTheNextMove();
    void deletingTheOnlyRowEndsAtBothEnds();
    void rowsOfAStoredQueryCanBeEdited();
    void rowsDeletedByAnotherProgramAreTold();
    void changesThroughStatementsAreSeenAtOnce();
    void changesOfAnotherProgramAreSeenWithTheNextReading();
    void anOrderedStatementComesInItsOrder();
    void rowsWithoutAKeyAreReadOnly();
    void keysAreReadInPartsUntilTheyAreNeeded();
    void readingTheRestKeepsKnownRowsInPlace();
    void observersAreToldOfChanges();
    void aClosedRecordsetRaises();

private:
    std::unique_ptr<Recordset> open(int rows, const QString& sql = u"select * from item"_s);

    std::unique_ptr<ScratchDatabase> m_file;
};

std::unique_ptr<Recordset> TestRecordset::open(int rows, const QString& sql)
{
    m_file = std::make_unique<ScratchDatabase>();
    m_file->fill(rows);
    return m_file->open().OpenRecordset(sql);
}

void TestRecordset::anEmptyRecordsetIsAtBothEnds()
{
    const auto rows = open(0);
    QVERIFY(rows->Eof());
    QVERIFY(rows->Bof());
    QCOMPARE(rows->RecordCount(), 0);
    QCOMPARE(rows->AbsolutePosition(), -1);
    QCOMPARE(errorOf([&] { rows->Field(0); }), errors::noCurrentRecord);
    QCOMPARE(errorOf([&] { rows->MoveFirst(); }), errors::noCurrentRecord);
    QCOMPARE(errorOf([&] { rows->Edit(); }), errors::noCurrentRecord);
}

void TestRecordset::openingStandsOnTheFirstRowInKeyOrder()
{
    const auto rows = open(3);
    QCOMPARE(rows->AbsolutePosition(), 0);
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00001"_s);
    rows->MoveNext();
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00002"_s);
}

void TestRecordset::movingCountsTheRowsVisited()
{
    const auto rows = open(500);
    QCOMPARE(rows->RecordCount(), 1);
    rows->MoveNext();
    rows->MoveNext();
    rows->MovePrevious();
    QCOMPARE(rows->RecordCount(), 3);
    rows->visit(9);
    QCOMPARE(rows->RecordCount(), 10);
}

void TestRecordset::moveLastVisitsAllRows()
{
    const auto rows = open(500);
    rows->MoveLast();
    QCOMPARE(rows->RecordCount(), 500);
    QCOMPARE(rows->AbsolutePosition(), 499);
    QCOMPARE(rows->Field(u"size"_s).integer(), 500);
}

void TestRecordset::movingBeyondTheEndsRaises()
{
    const auto rows = open(1);
    rows->MoveNext();
    QVERIFY(rows->Eof());
    QVERIFY(!rows->Bof());
    QCOMPARE(rows->AbsolutePosition(), -1);
    QCOMPARE(errorOf([&] { rows->MoveNext(); }), errors::noCurrentRecord);
    rows->MovePrevious();
    QCOMPARE(rows->AbsolutePosition(), 0);
    rows->MovePrevious();
    QVERIFY(rows->Bof());
    QCOMPARE(errorOf([&] { rows->MovePrevious(); }), errors::noCurrentRecord);
    rows->MoveNext();
    QCOMPARE(rows->AbsolutePosition(), 0);
}

void TestRecordset::absolutePositionMayBeWritten()
{
    const auto rows = open(300);
    rows->SetAbsolutePosition(250);
    QCOMPARE(rows->Field(u"size"_s).integer(), 251);
    QCOMPARE(rows->RecordCount(), 251);
    QCOMPARE(errorOf([&] { rows->SetAbsolutePosition(300); }), errors::invalidArgument);
    QCOMPARE(errorOf([&] { rows->SetAbsolutePosition(-1); }), errors::invalidArgument);
    QCOMPARE(rows->AbsolutePosition(), 250);
}

void TestRecordset::aBookmarkBringsItsRowBack()
{
    const auto rows = open(300);
    rows->SetAbsolutePosition(200);
    const RowMark mark = rows->Bookmark();
    rows->MoveFirst();
    rows->SetBookmark(mark);
    QCOMPARE(rows->Field(u"size"_s).integer(), 201);
    QCOMPARE(errorOf([&] { rows->SetBookmark(RowMark{987654}); }), errors::invalidBookmark);
}

void TestRecordset::findFirstStandsOnTheFirstMatchOrStays()
{
    const auto rows = open(300);
    rows->FindFirst(u"[Size] > 7 and service like '*2*'"_s);
    QVERIFY(!rows->NoMatch());
    QCOMPARE(rows->Field(u"size"_s).integer(), 12);
    rows->FindFirst(u"TAG = 'pt-00040'"_s);
    QCOMPARE(rows->Field(u"size"_s).integer(), 40);
    rows->FindFirst(u"tag = 'none'"_s);
    QVERIFY(rows->NoMatch());
    QCOMPARE(rows->Field(u"size"_s).integer(), 40);
    QCOMPARE(errorOf([&] { rows->FindFirst(u"nonsense = "_s); }) > 0, true);
}

void TestRecordset::fieldsAreFoundInAnyCase()
{
    const auto rows = open(1);
    QCOMPARE(rows->Field(u"SERVICE"_s).text(), u"service 1"_s);
    QCOMPARE(rows->FieldCount(), 3);
    QCOMPARE(rows->FieldName(2), u"size"_s);
    QCOMPARE(rows->FieldIndex(u"Size"_s), 2);
}

void TestRecordset::anUnknownFieldRaises()
{
    const auto rows = open(1);
    QCOMPARE(errorOf([&] { rows->Field(u"colour"_s); }), errors::itemNotFound);
    QCOMPARE(errorOf([&] { rows->FieldName(3); }), errors::itemNotFound);
}

void TestRecordset::anEditIsKeptUntilUpdate()
{
    const auto rows = open(2);
    rows->Edit();
    QVERIFY(rows->editMode() == EditMode::InProgress);
    rows->SetField(u"service"_s, u"it's \"new\""_s);
    QCOMPARE(rows->Field(u"service"_s).text(), u"it's \"new\""_s);
    QCOMPARE(m_file->open().OpenRecordset(u"item"_s)->Field(u"service"_s).text(), u"service 1"_s);
    rows->Update();
    QVERIFY(rows->editMode() == EditMode::None);
    QCOMPARE(m_file->open().OpenRecordset(u"item"_s)->Field(u"service"_s).text(),
             u"it's \"new\""_s);
    QVERIFY(rows->LastModified() == rows->Bookmark());
}

void TestRecordset::updateWithoutEditRaises()
{
    const auto rows = open(1);
    QCOMPARE(errorOf([&] { rows->Update(); }), errors::updateWithoutEdit);
    QCOMPARE(errorOf([&] { rows->SetField(0, u"x"_s); }), errors::updateWithoutEdit);
    QCOMPARE(errorOf([&] { rows->LastModified(); }), errors::noCurrentRecord);
}

void TestRecordset::aNewRowTakesTheLastPlace()
{
    const auto rows = open(300);
    rows->AddNew();
    QVERIFY(rows->Field(u"tag"_s).isNull());
    rows->SetField(u"tag"_s, u"AA-1"_s);
    rows->Update();
    QCOMPARE(rows->knownRows(), 301);
    rows->SetBookmark(rows->LastModified());
    QCOMPARE(rows->AbsolutePosition(), 300);
    QCOMPARE(rows->Field(u"tag"_s).text(), u"AA-1"_s);
    QVERIFY(rows->Field(u"service"_s).isNull());
}

void TestRecordset::addingDoesNotMoveTheCurrentRow()
{
    const auto rows = open(3);
    rows->MoveNext();
    rows->AddNew();
    rows->SetField(u"tag"_s, u"ZZ"_s);
    rows->Update();
    QCOMPARE(rows->AbsolutePosition(), 1);
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00002"_s);
}

void TestRecordset::aRefusedRowStaysInEdit()
{
    const auto rows = open(2);
    rows->AddNew();
    rows->SetField(u"tag"_s, u"pt-00002"_s);
    QCOMPARE(errorOf([&] { rows->Update(); }), errors::duplicateKey);
    QVERIFY(rows->editMode() == EditMode::Add);
    rows->SetField(u"tag"_s, u"PT-3"_s);
    rows->Update();
    QCOMPARE(rows->knownRows(), 3);
}

void TestRecordset::aRefusedUpdateForgetsWhatTheObserverAdded()
{
    struct Grid : RecordsetObserver
    {
        void aboutToUpdate() override { records->SetField(u"tag"_s, tag); }
        Recordset* records = nullptr;
        QString tag;
    } grid;
    const auto rows = open(2);
    grid.records = rows.get();
    grid.tag = u"PT-00002"_s;
    rows->setObserver(&grid);
    rows->Edit();
    rows->SetField(u"service"_s, u"by a handler"_s);
    QCOMPARE(errorOf([&] { rows->Update(); }), errors::duplicateKey);
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00001"_s);
    QCOMPARE(rows->Field(u"service"_s).text(), u"by a handler"_s);
}

void TestRecordset::aRowThatGotADeletedRowsKeyIsNotWritten()
{
    // The last key of a table is given again.
    const auto rows = open(2);
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00001"_s);
    rows->Edit();
    rows->SetField(u"service"_s, u"for PT-00001"_s);
    m_file->run("DELETE FROM item WHERE size = 1; INSERT INTO item VALUES ('OTHER', 'theirs', 9)");
    QCOMPARE(errorOf([&] { rows->Update(); }), errors::recordDeleted);
    rows->CancelUpdate();
    const auto stored = m_file->open().OpenRecordset(u"select * from item where tag = 'OTHER'"_s);
    QCOMPARE(stored->Field(u"service"_s).text(), u"theirs"_s);
}

void TestRecordset::aNewRowWithADeletedRowsKeyTakesItsPlaceAway()
{
    const auto rows = open(3);
    rows->MoveLast();
    m_file->run("DELETE FROM item WHERE size = 1");
    rows->AddNew();
    rows->SetField(u"tag"_s, u"ZZ"_s);
    rows->Update();
    QCOMPARE(rows->knownRows(), 3);
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00003"_s);
    QStringList tags;
    for (int i = 0; i < rows->knownRows(); ++i)
        tags << rows->row(i)->at(0).text();
    QCOMPARE(tags, (QStringList{u"PT-00002"_s, u"PT-00003"_s, u"ZZ"_s}));
}

void TestRecordset::aPendingNewRowCannotBeDeleted()
{
    const auto rows = open(2);
    rows->AddNew();
    QCOMPARE(errorOf([&] { rows->Delete(); }), errors::noCurrentRecord);
    QVERIFY(rows->editMode() == EditMode::Add);
    rows->CancelUpdate();
    QCOMPARE(rows->knownRows(), 2);
}

void TestRecordset::refusedTextsAreToldByTheirField()
{
    const auto rows = open(1);
    m_file->run("CREATE TABLE paper2 (docNo TEXT COLLATE JET CHECK (length(\"docNo\") <= 5)"
                " CHECK (length(docNo) > 0), \"Gr\u00F6\u00DFe\" TEXT"
                " CHECK (length(\"Gr\u00F6\u00DFe\") <= 3), flag INT"
                " CONSTRAINT \"True or False\" CHECK (flag IN (0, -1))) STRICT");
    const Database database = m_file->open();
    const auto told = [&](const QString& field, const QString& value) {
        try {
            database.Execute(u"insert into paper2 ([%1]) values (%2)"_s.arg(field, value));
        } catch (const Error& error) {
            return error.description();
        }
        return QString();
    };
    QCOMPARE(told(u"docNo"_s, u"'123456'"_s),
             u"The value is too long for the field docNo, which holds 5 characters."_s);
    QCOMPARE(told(u"Gr\u00F6\u00DFe"_s, u"'1234'"_s),
             u"The value is too long for the field Gr\u00F6\u00DFe, which holds 3 characters."_s);
    QCOMPARE(told(u"docNo"_s, u"''"_s), u"The field docNo cannot hold an empty text."_s);
    QCOMPARE(told(u"flag"_s, u"1"_s), u"The value is refused by the rule True or False."_s);
}

void TestRecordset::refusalsHaveTheirNumbers()
{
    const auto rows = open(1);
    const auto refusalOf = [&](const Value& tag, const Value& size) {
        rows->AddNew();
        rows->SetField(u"tag"_s, tag);
        rows->SetField(u"size"_s, size);
        const int number = errorOf([&] { rows->Update(); });
        rows->CancelUpdate();
        return number;
    };
    QCOMPARE(refusalOf({}, 1), errors::nullNotAllowed);
    QCOMPARE(refusalOf(QString(), 1), errors::zeroLengthNotAllowed);
    QCOMPARE(refusalOf(QString(21, u'A'), 1), errors::valueTooLong);
    QCOMPARE(refusalOf(u"PT-9"_s, u"wide"_s), errors::typeMismatch);
    QCOMPARE(refusalOf(u"PT-9"_s, 1), 0);
}

void TestRecordset::cancellingDropsTheEdit()
{
    const auto rows = open(1);
    rows->Edit();
    rows->SetField(u"service"_s, u"typed"_s);
    rows->CancelUpdate();
    QCOMPARE(rows->Field(u"service"_s).text(), u"service 1"_s);
    QVERIFY(rows->editMode() == EditMode::None);
}

void TestRecordset::movingDropsTheEdit()
{
    const auto rows = open(2);
    rows->Edit();
    rows->SetField(u"service"_s, u"typed"_s);
    rows->MoveNext();
    rows->MovePrevious();
    QCOMPARE(rows->Field(u"service"_s).text(), u"service 1"_s);
}

void TestRecordset::deletingLeavesNoCurrentRowUntilTheNextMove()
{
    const auto rows = open(3);
    rows->MoveNext();
    rows->Delete();
    QVERIFY(!rows->Eof());
    QVERIFY(!rows->Bof());
    QCOMPARE(errorOf([&] { rows->Field(0); }), errors::recordDeleted);
    QCOMPARE(errorOf([&] { rows->Delete(); }), errors::recordDeleted);
    rows->MovePrevious();
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00001"_s);
    rows->MoveNext();
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00003"_s);
    QCOMPARE(rows->knownRows(), 2);
}

void TestRecordset::deletingTheOnlyRowEndsAtBothEnds()
{
    const auto rows = open(1);
    rows->Delete();
    QVERIFY(rows->Eof());
    QVERIFY(rows->Bof());
    QCOMPARE(rows->RecordCount(), 0);
}

void TestRecordset::rowsOfAStoredQueryCanBeEdited()
{
    const auto rows = open(3, u"qryItem"_s);
    QCOMPARE(rows->FieldCount(), 3);
    rows->MoveNext();
    rows->Edit();
    rows->SetField(u"TAG"_s, u"PT-2 new"_s);
    rows->Update();
    rows->AddNew();
    rows->SetField(u"Tag"_s, u"PT-4"_s);
    rows->Update();
    rows->SetBookmark(rows->LastModified());
    QCOMPARE(rows->Field(u"Tag"_s).text(), u"PT-4"_s);
    rows->MoveFirst();
    rows->Delete();
    const auto stored = m_file->open().OpenRecordset(u"select tag from item"_s);
    QStringList tags;
    for (; !stored->Eof(); stored->MoveNext())
        tags << stored->Field(0).text();
    QCOMPARE(tags, (QStringList{u"PT-00003"_s, u"PT-2 new"_s, u"PT-4"_s}));
}

void TestRecordset::rowsDeletedByAnotherProgramAreTold()
{
    const auto rows = open(200);
    rows->MoveLast();
    rows->MoveFirst();
    m_file->run("DELETE FROM item WHERE size IN (1, 180)");
    QVERIFY(rows->row(179) == nullptr);
    QCOMPARE(errorOf([&] { rows->Edit(); }), errors::recordDeleted);
    QCOMPARE(errorOf([&] { rows->Delete(); }), errors::recordDeleted);
    QVERIFY(rows->row(178) != nullptr);
}

void TestRecordset::changesThroughStatementsAreSeenAtOnce()
{
    const auto rows = open(3);
    QCOMPARE(rows->Field(u"service"_s).text(), u"service 1"_s);
    m_file->open().Execute(u"update item set service = 'changed' where tag = 'pt-00001'"_s);
    QCOMPARE(rows->Field(u"service"_s).text(), u"changed"_s);
}

void TestRecordset::changesOfAnotherProgramAreSeenWithTheNextReading()
{
    const auto rows = open(3);
    QCOMPARE(rows->Field(u"service"_s).text(), u"service 1"_s);
    m_file->run("UPDATE item SET service = 'theirs' WHERE size = 1");
    const Database database = m_file->open();
    const auto screenful = database.readScope();
    QCOMPARE(rows->Field(u"service"_s).text(), u"theirs"_s);
}

void TestRecordset::anOrderedStatementComesInItsOrder()
{
    const auto rows = open(30, u"select * from item where size < 4 order by size desc;"_s);
    QStringList sizes;
    for (; !rows->Eof(); rows->MoveNext())
        sizes << rows->Field(u"size"_s).text();
    QCOMPARE(sizes, (QStringList{u"3"_s, u"2"_s, u"1"_s}));
}

void TestRecordset::rowsWithoutAKeyAreReadOnly()
{
    const auto rows = open(3, u"select distinct size from item order by size"_s);
    QVERIFY(!rows->Updatable());
    QCOMPARE(errorOf([&] { rows->Edit(); }), errors::notUpdatable);
    QCOMPARE(errorOf([&] { rows->AddNew(); }), errors::notUpdatable);
    QCOMPARE(errorOf([&] { rows->Delete(); }), errors::notUpdatable);
    rows->MoveLast();
    QCOMPARE(rows->Field(0).integer(), 3);
}

void TestRecordset::keysAreReadInPartsUntilTheyAreNeeded()
{
    const auto rows = open(500);
    QCOMPARE(rows->AbsolutePosition(), 0);
    QVERIFY(!rows->allKeysRead());
    QVERIFY(rows->knownRows() < 500);
    rows->readAllKeys();
    QCOMPARE(rows->knownRows(), 500);
    QCOMPARE(rows->RecordCount(), 1);
}

void TestRecordset::readingTheRestKeepsKnownRowsInPlace()
{
    const auto rows = open(500);
    const RowMark third = rows->markAt(2);
    m_file->open().Execute(u"delete from item where size = 2"_s);
    m_file->open().Execute(u"insert into item (tag) values ('AA')"_s);
    rows->readAllKeys();
    QVERIFY(rows->markAt(2) == third);
    QCOMPARE(rows->knownRows(), 501);
    QVERIFY(rows->row(1) == nullptr);
}

void TestRecordset::observersAreToldOfChanges()
{
    struct Log : RecordsetObserver
    {
        void currentChanged() override { said << u"current"_s; }
        void aboutToUpdate() override { said << u"about"_s; }
        void editModeChanged() override { said << u"mode"_s; }
        void rowInserted(int position) override { said << u"inserted %1"_s.arg(position); }
        void rowRemoved(int position) override { said << u"removed %1"_s.arg(position); }
        void rowChanged(int position) override { said << u"changed %1"_s.arg(position); }
        void keysRead() override { said << u"keys"_s; }
        QStringList said;
    } log;
    const auto rows = open(150);
    rows->setObserver(&log);
    rows->MoveNext();
    rows->Edit();
    rows->SetField(u"service"_s, u"x"_s);
    rows->Update();
    rows->AddNew();
    rows->SetField(u"tag"_s, u"ZZ"_s);
    rows->Update();
    rows->Delete();
    QCOMPARE(log.said,
             (QStringList{u"current"_s,
                          u"mode"_s,
                          u"about"_s,
                          u"mode"_s,
                          u"changed 1"_s,
                          u"mode"_s,
                          u"about"_s,
                          u"keys"_s,
                          u"mode"_s,
                          u"inserted 150"_s,
                          u"removed 1"_s}));
}

void TestRecordset::aClosedRecordsetRaises()
{
    const auto rows = open(1);
    rows->Close();
    QCOMPARE(errorOf([&] { rows->MoveFirst(); }), errors::objectClosed);
    QCOMPARE(errorOf([&] { rows->Field(0); }), errors::objectClosed);
}

void TestRecordset::aSnapshotHoldsWhatWasThere()
{
    open(3);
    const Database database = m_file->open();
    const QString select =
        u"select tag, size from item where tag <> 'PT-00002' order by size desc"_s;
    const auto kept = database.OpenRecordset(select);
    const auto rows = database.OpenSnapshot(select);
    QVERIFY(!rows->Updatable());
    QCOMPARE(rows->Field(u"Tag"_s).text(), kept->Field(u"Tag"_s).text());
    QCOMPARE(rows->knownRows(), 2);
    database.Execute(u"update item set size = 99"_s);
    QCOMPARE(rows->Field(u"size"_s).integer(), 3);
    rows->MoveNext();
    QCOMPARE(rows->Field(u"tag"_s).text(), u"PT-00001"_s);
    QCOMPARE(errorOf([&] { rows->Edit(); }), errors::notUpdatable);
    QCOMPARE(errorOf([&] { database.OpenSnapshot(u"select colour from item"_s); }),
             errors::missingParameter);
    QCOMPARE(errorOf([&] { database.OpenSnapshot(u"delete from item"_s); }), errors::notSupported);
}

QTEST_APPLESS_MAIN(TestRecordset)
#include "tst_recordset.moc"
