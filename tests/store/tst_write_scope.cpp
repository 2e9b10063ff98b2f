// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "scratch_database.h"
#include "support/full_disk.h"

#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace ostrand::store;
using ostrand::tests::errorOf;
using ostrand::tests::ScratchDatabase;

class TestWriteScope : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void changesReachTheFileWhenItEnds();
    void whatWasWrittenBeforeAFailureStays();
    void aRefusedRowLeavesTheOthers();
    void scopesNest();
    void readingGoesOnWithinIt();
    void otherProgramsReadTheOldRowsMeanwhile();
    void anotherProgramsLockIsToldAtItsBegin();
    void afterACommitTheScopeIsOver();
    void aFullDiskIsToldByTheCommitAndUndoesAll();
    void aRecordsetKeepsItsRowsInOrderOverManyInserts();

private:
    qint64 inFile() const
    {
        // Apart from the connection that writes.
        qint64 count = -1;
        sqlite3* raw = nullptr;
        sqlite3_open(m_file->path().toUtf8().constData(), &raw);
        registerCollation(raw);
        const auto keep = [](void* to, int, char** texts, char**) {
            *static_cast<qint64*>(to) = QByteArray(texts[0]).toLongLong();
            return 0;
        };
        sqlite3_exec(raw, "SELECT count(*) FROM item", keep, &count, nullptr);
        sqlite3_close(raw);
        return count;
    }
    static void insert(const Database& database, const QString& tag)
    {
        database.Execute(u"insert into item (tag) values ('"_s + tag + u"')"_s);
    }

    std::unique_ptr<ScratchDatabase> m_file;
};

void TestWriteScope::init()
{
    m_file = std::make_unique<ScratchDatabase>();
    m_file->fill(3);
}

void TestWriteScope::changesReachTheFileWhenItEnds()
{
    const Database database = m_file->open();
    {
        const auto writes = database.writeScope();
        insert(database, u"A"_s);
        insert(database, u"B"_s);
        QCOMPARE(inFile(), 3);
    }
    QCOMPARE(inFile(), 5);
}

void TestWriteScope::whatWasWrittenBeforeAFailureStays()
{
    const Database database = m_file->open();
    try {
        const auto writes = database.writeScope();
        insert(database, u"A"_s);
        throw std::runtime_error("a failure");
    } catch (const std::runtime_error&) {
        QCOMPARE(inFile(), 4);
    }
}

void TestWriteScope::aRefusedRowLeavesTheOthers()
{
    const Database database = m_file->open();
    {
        const auto writes = database.writeScope();
        insert(database, u"A"_s);
        QCOMPARE(errorOf([&] { insert(database, u"a"_s); }), errors::duplicateKey);
        insert(database, u"B"_s);
    }
    QCOMPARE(inFile(), 5);
}

void TestWriteScope::scopesNest()
{
    const Database database = m_file->open();
    {
        const auto outer = database.writeScope();
        {
            auto inner = m_file->open().writeScope();
            insert(database, u"A"_s);
            inner.Commit();
        }
        QCOMPARE(inFile(), 3);
    }
    QCOMPARE(inFile(), 4);
}

void TestWriteScope::readingGoesOnWithinIt()
{
    const Database database = m_file->open();
    {
        const auto writes = database.writeScope();
        insert(database, u"A"_s);
        const auto reading = database.readScope();
        QCOMPARE(database.OpenRecordset(u"select count(*) from item"_s)->Field(0).integer(), 4);
    }
    QCOMPARE(inFile(), 4);
}

void TestWriteScope::otherProgramsReadTheOldRowsMeanwhile()
{
    const Database database = m_file->open();
    const auto writes = database.writeScope();
    insert(database, u"A"_s);
    QCOMPARE(inFile(), 3);
}

void TestWriteScope::anotherProgramsLockIsToldAtItsBegin()
{
    const Database database = m_file->open();
    sqlite3* other = nullptr;
    sqlite3_open(m_file->path().toUtf8().constData(), &other);
    sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    QCOMPARE(errorOf([&] { const auto writes = database.writeScope(); }), errors::locked);
    sqlite3_close(other);
    {
        const auto writes = database.writeScope();
        insert(database, u"A"_s);
    }
    QCOMPARE(inFile(), 4);
}

void TestWriteScope::afterACommitTheScopeIsOver()
{
    const Database database = m_file->open();
    auto writes = database.writeScope();
    insert(database, u"A"_s);
    writes.Commit();
    QCOMPARE(inFile(), 4);
    insert(database, u"B"_s);
    QCOMPARE(inFile(), 5);
    writes.Commit();
    insert(database, u"C"_s);
    QCOMPARE(inFile(), 6);
}

void TestWriteScope::aFullDiskIsToldByTheCommitAndUndoesAll()
{
    const Database database = m_file->open();
    {
        const ostrand::tests::FullDisk full;
        auto writes = database.writeScope();
        int failure = errorOf([&] { insert(database, u"A"_s); });
        failure = std::max(failure, errorOf([&] { writes.Commit(); }));
        QVERIFY(failure >= errors::diskFull);
    }
    QCOMPARE(inFile(), 3);
    insert(database, u"A"_s);
    QCOMPARE(inFile(), 4);
}

void TestWriteScope::aRecordsetKeepsItsRowsInOrderOverManyInserts()
{
    const Database database = m_file->open();
    const auto rows = database.OpenRecordset(u"item"_s);
    const auto add = [&](const QString& tag, int size) {
        rows->AddNew();
        rows->SetField(u"tag"_s, tag);
        if (size > 0)
            rows->SetField(u"size"_s, size);
        rows->Update();
        rows->SetBookmark(rows->LastModified());
    };
    const auto writes = database.writeScope();
    add(u"X1"_s, 0);
    add(u"X2"_s, 7);
    add(u"X3"_s, 0);
    // The row with the highest key goes, so that the next one gets that key.
    database.Execute(u"delete from item where tag = 'X3'"_s);
    add(u"X4"_s, 0);
    add(u"X5"_s, 8);
    QStringList tags;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
        tags << rows->Field(u"tag"_s).text() + rows->Field(u"size"_s).text();
    QCOMPARE(
        tags,
        (QStringList{
            u"PT-000011"_s, u"PT-000022"_s, u"PT-000033"_s, u"X1"_s, u"X27"_s, u"X4"_s, u"X58"_s}));
}

QTEST_GUILESS_MAIN(TestWriteScope)
#include "tst_write_scope.moc"
