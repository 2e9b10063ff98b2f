// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "scratch_database.h"
#include "support/full_disk.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::store;
using ostrand::tests::errorOf;
using ostrand::tests::ScratchDatabase;

class TestDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aMissingFileAndAMissingFolderAreToldApart();
    void whatIsNoDatabaseIsRefused();
    void aTruncatedFileIsDamaged();
    void aDatabaseOfANewerProgramIsRefused();
    void severalDatabasesShareTheFile();
    void openedForReadingNothingCanBeChanged();
    void aFileThatTookTheOthersPlaceIsOpenedAnew();
    void nothingIsWrittenIntoAFileThatIsGone();
    void aClosedDatabaseRaises();
    void namesAreFoundInAnyCase();
    void unknownNamesAndSyntaxHaveTheirNumbers();
    void onlyStatementsOnRowsRun_data();
    void onlyStatementsOnRowsRun();
    void refusedRowsAreRaisedUnlessTheCallDropsThem();
    void aRelationshipRefusesUnlessTheCallDropsIt();
    void executingASelectIsRefused();
    void aReadScopeNestsAndEnds();
    void anotherProgramsLockIsTold();
    void aReadingThatFailsLeavesNoTransactionBehind();
    void aFullDiskIsToldAndTheDatabaseStaysWhole();

    void aCopyIsWhole();
    void aCopyTakesThePlaceOfAFileInUse();
    void aStaleJournalBesideTheTargetIsRemoved();
    void aFailedCopyLeavesTheTargetAsItWas();

private:
    std::unique_ptr<ScratchDatabase> m_file;
};

void TestDatabase::init()
{
    m_file = std::make_unique<ScratchDatabase>();
    m_file->fill(3);
}

void TestDatabase::aMissingFileAndAMissingFolderAreToldApart()
{
    QCOMPARE(errorOf([&] { DBEngine::OpenDatabase(m_file->path(u"gone.mdb"_s)); }),
             errors::fileNotFound);
    QCOMPARE(errorOf([&] { DBEngine::OpenDatabase(m_file->path(u"no/gone.mdb"_s)); }),
             errors::invalidPath);
    QCOMPARE(errorOf([&] { DBEngine::OpenDatabase(QString()); }), errors::fileNotFound);
}

void TestDatabase::whatIsNoDatabaseIsRefused()
{
    QFile(m_file->path(u"empty"_s)).open(QIODevice::WriteOnly);
    QCOMPARE(errorOf([&] { DBEngine::OpenDatabase(m_file->path(u"empty"_s)); }),
             errors::unrecognizedFormat);
    QCOMPARE(errorOf([&] { DBEngine::OpenDatabase(QDir::tempPath()); }),
             errors::unrecognizedFormat);
}

void TestDatabase::aTruncatedFileIsDamaged()
{
    QFile file(m_file->path());
    QVERIFY(file.resize(file.size() - 1));
    QCOMPARE(errorOf([&] { m_file->open(); }), errors::damagedFile);
}

void TestDatabase::aDatabaseOfANewerProgramIsRefused()
{
    m_file->run("PRAGMA application_id = 0x4F535452; PRAGMA user_version = 2;");
    QCOMPARE(errorOf([&] { m_file->open(); }), errors::unrecognizedFormat);
    m_file->run("PRAGMA user_version = 1;");
    QCOMPARE(errorOf([&] { m_file->open(); }), 0);
}

void TestDatabase::severalDatabasesShareTheFile()
{
    const Database first = m_file->open();
    const auto reading = first.OpenRecordset(u"item"_s);
    reading->MoveNext();
    const Database second = DBEngine::OpenDatabase(
        m_file->path(u"../"_s + QFileInfo(m_file->path()).dir().dirName() + u"/data.mdb"_s));
    second.Execute(u"delete from item where size = 3"_s);
    QCOMPARE(first.OpenRecordset(u"select count(*) as n from item"_s)->Field(u"n"_s).integer(), 2);
    QCOMPARE(first.Name(), m_file->path());
    QCOMPARE(first.Connect(), QString());
}

void TestDatabase::openedForReadingNothingCanBeChanged()
{
    const Database writing = m_file->open();
    const Database reading = DBEngine::OpenDatabase(m_file->path(), DBEngine::Access::ReadOnly);
    QVERIFY(writing.OpenRecordset(u"item"_s)->Updatable());
    const auto rows = reading.OpenRecordset(u"item"_s);
    QVERIFY(!rows->Updatable());
    QCOMPARE(errorOf([&] { rows->Edit(); }), errors::notUpdatable);
    QCOMPARE(errorOf([&] { reading.Execute(u"delete from item"_s); }), errors::notUpdatable);
}

void TestDatabase::aFileThatTookTheOthersPlaceIsOpenedAnew()
{
    const Database old = m_file->open();
    ScratchDatabase other;
    other.fill(1);
    QVERIFY(QFile::copy(other.path(), m_file->path(u"new"_s)));
    QVERIFY(
        ::rename(m_file->path(u"new"_s).toUtf8().constData(), m_file->path().toUtf8().constData())
        == 0);
    const QString count = u"select count(*) as n from item"_s;
    QCOMPARE(m_file->open().OpenRecordset(count)->Field(0).integer(), 1);
    QCOMPARE(old.OpenRecordset(count)->Field(0).integer(), 3);
}

void TestDatabase::nothingIsWrittenIntoAFileThatIsGone()
{
    const Database database = m_file->open();
    const auto rows = database.OpenRecordset(u"item"_s);
    QVERIFY(QFile::rename(m_file->path(), m_file->path(u"moved.mdb"_s)));
    QCOMPARE(errorOf([&] { database.Execute(u"delete from item"_s); }), errors::fileNotFound);
    QCOMPARE(errorOf([&] { rows->Delete(); }), errors::fileNotFound);
    rows->Edit();
    rows->SetField(u"service"_s, u"typed"_s);
    QCOMPARE(errorOf([&] { rows->Update(); }), errors::fileNotFound);
    QVERIFY(rows->editMode() == EditMode::InProgress);
    QVERIFY(QFile::rename(m_file->path(u"moved.mdb"_s), m_file->path()));
    rows->Update();
    QCOMPARE(m_file->open().OpenRecordset(u"item"_s)->Field(u"service"_s).text(), u"typed"_s);
}

void TestDatabase::aClosedDatabaseRaises()
{
    Database database = m_file->open();
    const auto rows = database.OpenRecordset(u"item"_s);
    database.Close();
    QCOMPARE(errorOf([&] { database.Execute(u"delete from item"_s); }), errors::objectClosed);
    QCOMPARE(errorOf([&] { database.Name(); }), errors::objectClosed);
    rows->MoveLast();
    QCOMPARE(rows->RecordCount(), 3);
}

void TestDatabase::namesAreFoundInAnyCase()
{
    m_file->run("CREATE TABLE \"Gr\u00f6\u00dfe \u0394\" (\"L\u00e4nge\" TEXT COLLATE JET) STRICT;"
                "INSERT INTO \"Gr\u00f6\u00dfe \u0394\" VALUES ('x')");
    const Database database = m_file->open();
    QCOMPARE(database.OpenRecordset(u"QRYITEM"_s)->FieldCount(), 3);
    const auto rows =
        database.OpenRecordset(u"SELECT [L\u00c4NGE] FROM [GR\u00d6\u00dfE \u03b4]"_s);
    QCOMPARE(rows->Field(u"l\u00e4nge"_s).text(), u"x"_s);
}

void TestDatabase::unknownNamesAndSyntaxHaveTheirNumbers()
{
    const Database database = m_file->open();
    const auto opening = [&](const QString& sql) {
        return errorOf([&] { database.OpenRecordset(sql); });
    };
    QCOMPARE(opening(u"qryNone"_s), errors::tableNotFound);
    QCOMPARE(opening(u"select * from qryNone"_s), errors::tableNotFound);
    QCOMPARE(opening(u"select colour from item"_s), errors::missingParameter);
    QCOMPARE(opening(u"select * from item where colour = 'red'"_s), errors::missingParameter);
    QCOMPARE(opening(u"select * from item where tag = 'O'Dell'"_s) > 3000, true);
    QCOMPARE(opening(u""_s) > 3000, true);
    const auto running = [&](const QString& sql) {
        return errorOf([&] { database.Execute(sql); });
    };
    QCOMPARE(running(u"insert into item (tag, service) values ('A')"_s), errors::valueCountDiffers);
    QCOMPARE(running(u"insert into item (colour) values ('A')"_s), errors::unknownField);
    QCOMPARE(running(u"update item sett tag = 'A'"_s), errors::syntaxInUpdate);
}

void TestDatabase::onlyStatementsOnRowsRun_data()
{
    QTest::addColumn<QString>("sql");
    for (const char* sql : {"drop table item",
                            "create table x (a text)",
                            "pragma user_version = 7",
                            "attach database 'x' as y",
                            "delete from sqlite_schema",
                            "delete from item; delete from tie",
                            "select load_extension('x') from item",
                            "vacuum",
                            "begin"})
        QTest::newRow(sql) << QString::fromLatin1(sql);
}

void TestDatabase::onlyStatementsOnRowsRun()
{
    QFETCH(const QString, sql);
    const Database database = m_file->open();
    QVERIFY(errorOf([&] { database.Execute(sql); }) > 3000);
    QCOMPARE(database.OpenRecordset(u"select count(*) from item"_s)->Field(0).integer(), 3);
}

void TestDatabase::refusedRowsAreRaisedUnlessTheCallDropsThem()
{
    const Database database = m_file->open();
    const QString insert = u"insert into item (tag) values ('PT-00001')"_s;
    QCOMPARE(errorOf([&] { database.Execute(insert); }), errors::duplicateKey);
    QCOMPARE(errorOf([&] { database.Execute(insert, RefusedRows::Drop); }), 0);
    QCOMPARE(database.OpenRecordset(u"select count(*) from item"_s)->Field(0).integer(), 3);
    QCOMPARE(
        errorOf([&] { database.Execute(u"insert into none values (1)"_s, RefusedRows::Drop); }),
        errors::tableNotFound);
}

void TestDatabase::aRelationshipRefusesUnlessTheCallDropsIt()
{
    const Database database = m_file->open();
    const QString insert = u"insert into tie (tag, doc) values ('PT-00001', 'D-1')"_s;
    QCOMPARE(errorOf([&] { database.Execute(insert); }), errors::parentMissing);
    QCOMPARE(errorOf([&] { database.Execute(insert, RefusedRows::Drop); }), 0);
    database.Execute(u"insert into paper (doc) values ('D-1')"_s);
    database.Execute(insert);
    database.Execute(u"update paper set doc = 'D-2'"_s);
    QCOMPARE(database.OpenRecordset(u"select doc from tie"_s)->Field(0).text(), u"D-2"_s);
    database.Execute(u"delete from paper"_s);
    QVERIFY(database.OpenRecordset(u"select doc from tie"_s)->Eof());
}

void TestDatabase::executingASelectIsRefused()
{
    QCOMPARE(errorOf([&] { m_file->open().Execute(u"select * from item"_s); }),
             errors::cannotExecuteSelect);
}

void TestDatabase::aReadScopeNestsAndEnds()
{
    const Database database = m_file->open();
    {
        const auto outer = database.readScope();
        const auto inner = database.readScope();
        QVERIFY(!database.OpenRecordset(u"item"_s)->Eof());
    }
    m_file->run("DELETE FROM item");
    QVERIFY(database.OpenRecordset(u"item"_s)->Eof());
}

void TestDatabase::anotherProgramsLockIsTold()
{
    const Database database = m_file->open();
    sqlite3* other = nullptr;
    sqlite3_open(m_file->path().toUtf8().constData(), &other);
    sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    QCOMPARE(errorOf([&] { database.Execute(u"delete from tie"_s); }), errors::locked);
    QVERIFY(!database.OpenRecordset(u"item"_s)->Eof());
    sqlite3_close(other);
    QCOMPARE(errorOf([&] { database.Execute(u"delete from tie"_s); }), 0);
}

void TestDatabase::aReadingThatFailsLeavesNoTransactionBehind()
{
    const Database database = m_file->open();
    sqlite3* other = nullptr;
    sqlite3_open(m_file->path().toUtf8().constData(), &other);
    sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    QCOMPARE(errorOf([&] { const auto scope = database.readScope(); }), errors::locked);
    sqlite3_close(other);
    database.Execute(u"insert into item (tag) values ('NEW')"_s);
    m_file->run("INSERT INTO item (tag) VALUES ('THEIRS')");
    QCOMPARE(database.OpenRecordset(u"select count(*) from item"_s)->Field(0).integer(), 5);
}

void TestDatabase::aFullDiskIsToldAndTheDatabaseStaysWhole()
{
    const Database database = m_file->open();
    {
        const ostrand::tests::FullDisk full;
        QCOMPARE(errorOf([&] { database.Execute(u"delete from item"_s); }), errors::diskFull);
        QCOMPARE(errorOf([&] { copyDatabase(m_file->path(), m_file->path(u"copy.mdb"_s)); }),
                 errors::diskFull);
    }
    QCOMPARE(database.OpenRecordset(u"select count(*) from item"_s)->Field(0).integer(), 3);
    QVERIFY(!QFile::exists(m_file->path(u"copy.mdb"_s)));
    database.Execute(u"delete from item"_s);
    QVERIFY(database.OpenRecordset(u"item"_s)->Eof());
}

void TestDatabase::aCopyIsWhole()
{
    copyDatabase(m_file->path(), m_file->path(u"copy.mdb"_s));
    const Database copy = DBEngine::OpenDatabase(m_file->path(u"copy.mdb"_s));
    QCOMPARE(copy.OpenRecordset(u"select count(*) from item"_s)->Field(0).integer(), 3);
    QCOMPARE(QFile(m_file->path(u"copy.mdb"_s)).size(), QFile(m_file->path()).size());
}

void TestDatabase::aCopyTakesThePlaceOfAFileInUse()
{
    ScratchDatabase target;
    target.fill(5);
    const Database inUse = target.open();
    copyDatabase(m_file->path(), target.path());
    const QString count = u"select count(*) from item"_s;
    QCOMPARE(inUse.OpenRecordset(count)->Field(0).integer(), 5);
    QCOMPARE(target.open().OpenRecordset(count)->Field(0).integer(), 3);
}

void TestDatabase::aStaleJournalBesideTheTargetIsRemoved()
{
    QFile journal(m_file->path(u"copy.mdb-journal"_s));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("left behind");
    journal.close();
    copyDatabase(m_file->path(), m_file->path(u"copy.mdb"_s));
    QVERIFY(!journal.exists());
}

void TestDatabase::aFailedCopyLeavesTheTargetAsItWas()
{
    ScratchDatabase target;
    target.fill(5);
    QCOMPARE(errorOf([&] { copyDatabase(m_file->path(u"gone.mdb"_s), target.path()); }),
             errors::fileNotFound);
    QCOMPARE(errorOf([&] { copyDatabase(m_file->path(), target.path(u"no/copy.mdb"_s)); }),
             errors::invalidPath);
    QCOMPARE(target.open().OpenRecordset(u"select count(*) from item"_s)->Field(0).integer(), 5);
    QCOMPARE(QDir(QFileInfo(target.path()).path()).entryList(QDir::Files).size(), 1);
}

QTEST_APPLESS_MAIN(TestDatabase)
#include "tst_database.moc"
