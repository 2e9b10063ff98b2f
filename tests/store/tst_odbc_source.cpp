// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// A data source, whatever server stands behind it; OSTRAND_TEST_SOURCE names the kind.
#include "odbc_cases.h"
#include "scratch_database.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::store;
using ostrand::tests::errorOf;
using ostrand::tests::first;
using ostrand::tests::InstrumentRow;
using ostrand::tests::OdbcSource;
using ostrand::tests::openSource;

namespace {

/// The words of the error that an action raises.
template <typename Action>
QString wordsOf(Action action)
{
    try {
        action();
    } catch (const Error& error) {
        return error.description();
    }
    return {};
}

const QString instruments =
    u"SELECT [PID_Components_Instruments].TAG_, [PID_Components_Instruments].FUNCTION_, "
    u"[PID_Components_Instruments].ID_COUNT_, [PID_Components_Instruments].SERVICE_ From "
    u"[PID_Components_Instruments]WHERE [PID_Components_Instruments].FUNCTION_ IS NOT NULL AND "
    u"[PID_Components_Instruments].TAG_ IS NOT NULL order by "
    u"[PID_Components_Instruments].FUNCTION_,  [PID_Components_Instruments].TAG_;"_s;

QString countLike(const QString& pattern)
{
    return u"Select count(*) as total from [PID_Components_Instruments] WHERE "
           u"[PID_Components_Instruments].FUNCTION_ ='FT' AND [PID_Components_Instruments].TAG_ "
           u"LIKE '"_s
           + pattern + u"'"_s;
}

} // namespace

class TestOdbcSource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_source = ostrand::tests::makeOdbcSource(ostrand::tests::sourceKind); }
    void init();

    void theSourceTellsItsNameAndConnectString();
    void aSourceOfNoNameIsRefused();
    void aDriverThatIsNotThereIsRefused_data();
    void aDriverThatIsNotThereIsRefused();
    void theSchemaMakesNoFile();

    void instrumentsComeInTheirOrder();
    void equalInstrumentsAreCounted();
    void patternsHaveTheirWildcards_data();
    void patternsHaveTheirWildcards();
    void aFieldIsReadForOneInstrument();
    void aFieldIsReadWhateverItsCase();
    void aBareTableNameGivesAllRows();
    void doubleQuotedTextsAreTexts();
    void aSnapshotCannotBeChanged();
    void noRowsAreNoFailure();

    void aPassThroughUpdateReachesTheRow();
    void aPassThroughUpdateOfNoRowIsNoFailure();
    void statementsRunInTheDialect();
    void nothingIsChangedThroughAReadOnlySource();

    void failuresHaveTheirNumbers_data();
    void failuresHaveTheirNumbers();
    void aRefusedRowFailsTheCall();
    void aClosedSourceRaises();
    void aTableMadeLaterIsFound();

private:
    std::unique_ptr<OdbcSource> m_source;
};

void TestOdbcSource::init()
{
    m_source->makeInstrumentTable({{u"PT"_s, u"7"_s, 3, u"steam"_s},
                                   {u"FT"_s, u"102"_s, {}, {}},
                                   {u"FT"_s, u"101"_s, 1, u"water"_s},
                                   {{}, u"9"_s, 4, u"no function"_s},
                                   {u"FT"_s, u"101"_s, 2, u"cooling"_s},
                                   {u"LT"_s, {}, 5, u"no tag"_s}},
                                  {u"Range Min"_s, u"Notes"_s});
}

void TestOdbcSource::theSourceTellsItsNameAndConnectString()
{
    const Database database = openSource();
    QCOMPARE(database.Name(), u"plant"_s);
    QVERIFY2(database.Connect().startsWith(u"ODBC;DSN=P&ID_SQL_SERVER;"_s),
             qPrintable(database.Connect()));
    QVERIFY(database.Connect().contains(u"Database="_s, Qt::CaseInsensitive));
    QVERIFY(!database.Connect().contains(u"PLANT"_s, Qt::CaseSensitive));
}

void TestOdbcSource::aSourceOfNoNameIsRefused()
{
    const auto open = [] {
        DBEngine::OpenDatabase(u"NOBODY"_s, 1, false, u"ODBC;DATABASE=x;DSN=NOBODY"_s);
    };
    QCOMPARE(errorOf(open), errors::odbcConnectionFailed);
    const QString words = wordsOf(open);
    QVERIFY2(words.startsWith(u"ODBC--connection to 'NOBODY' failed. "_s), qPrintable(words));
    QVERIFY2(words.contains(u"Data source name not found"_s), qPrintable(words));
    QCOMPARE(errorOf([] { DBEngine::OpenDatabase(u"NOBODY"_s, 1, false, u"ODBC;"_s); }),
             errors::odbcConnectionFailed);
}

void TestOdbcSource::aDriverThatIsNotThereIsRefused_data()
{
    QTest::addColumn<QString>("connect");
    QTest::newRow("sql server") << u"DRIVER={NO SUCH SERVER};SERVER=x;DSN=P&ID_SQL_SERVER;"_s;
    QTest::newRow("oracle") << u"DRIVER={Microsoft ODBC for Oracle};SERVER=x;DATABASE=plant;"
                               u"UID=scott;PWD=tiger;DSN=;"_s;
}

void TestOdbcSource::aDriverThatIsNotThereIsRefused()
{
    QFETCH(const QString, connect);
    const auto open = [&] { DBEngine::OpenDatabase(u" "_s, 0, false, connect); };
    QCOMPARE(errorOf(open), errors::odbcConnectionFailed);
    QVERIFY(!wordsOf(open).contains(u"tiger"_s));
}

void TestOdbcSource::theSchemaMakesNoFile()
{
    openSource();
    QVERIFY(!QDir::current().exists(u"PLANT"_s));
}

void TestOdbcSource::instrumentsComeInTheirOrder()
{
    const Database database = openSource();
    const auto rows = database.OpenRecordset(instruments);
    QVERIFY(!rows->Eof() && !rows->Bof());
    rows->MoveLast();
    QCOMPARE(rows->RecordCount(), 4);
    rows->MoveFirst();
    QStringList lines;
    for (; !rows->Eof(); rows->MoveNext())
        lines << rows->Field(u"FUNCTION_"_s).text() + u'-' + rows->Field(u"tag_"_s).text();
    QCOMPARE(lines, (QStringList{u"FT-101"_s, u"FT-101"_s, u"FT-102"_s, u"PT-7"_s}));
    QCOMPARE(rows->FieldName(2), u"ID_COUNT_"_s);
    QCOMPARE(rows->FieldCount(), 4);
}

void TestOdbcSource::equalInstrumentsAreCounted()
{
    const Database database = openSource();
    const auto rows = database.OpenRecordset(countLike(u"101"_s));
    QCOMPARE(rows->Field(u"total"_s), Value(2));
}

void TestOdbcSource::patternsHaveTheirWildcards_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<int>("count");
    QTest::newRow("any text") << u"1*"_s << 4;
    QTest::newRow("any character") << u"10?"_s << 3;
    QTest::newRow("a digit") << u"10#"_s << 3;
    QTest::newRow("no digit") << u"a#"_s << 0;
    QTest::newRow("a class") << u"10[2-9]"_s << 1;
    QTest::newRow("outside a class") << u"10[!2-9]"_s << 2;
    QTest::newRow("class of letters") << u"A[_%]b#"_s << 1;
    QTest::newRow("percent sign") << u"a%b"_s << 0;
    QTest::newRow("percent sign of its own") << u"A%b1"_s << 1;
    QTest::newRow("underline") << u"10_"_s << 0;
    QTest::newRow("exclamation mark") << u"1!2"_s << 1;
    QTest::newRow("backslash") << u"a\\b"_s << 1;
    QTest::newRow("apostrophe") << u"o''b*"_s << 1;
    QTest::newRow("brackets that do not end") << u"10["_s << 0;
    QTest::newRow("signs of other patterns") << u"(1+2)[|]#"_s << 1;
}

void TestOdbcSource::patternsHaveTheirWildcards()
{
    QFETCH(const QString, pattern);
    QFETCH(const int, count);
    const QStringList tags{
        u"101"_s, u"101"_s, u"102"_s, u"A%b1"_s, u"1!2"_s, u"a\\b"_s, u"o'brien"_s, u"(1+2)|7"_s};
    std::vector<InstrumentRow> rows;
    for (const QString& tag : tags)
        rows.push_back({u"FT"_s, tag, {}, {}});
    m_source->makeInstrumentTable(rows);
    QCOMPARE(first(openSource(), countLike(pattern)), Value(count));
}

void TestOdbcSource::aFieldIsReadForOneInstrument()
{
    const Database database = openSource();
    const QString importing = u"select   SERVICE_ from [PID_Components_Instruments]where "
                              u"FUNCTION_=  'PT' And TAG_ ='7'"_s;
    QCOMPARE(first(database, importing), Value(u"steam"_s));
    const QString exporting = u"select SERVICE_  from [PID_Components_Instruments]  WHERE "
                              u"FUNCTION_='PT' And TAG_ ='7'; "_s;
    QCOMPARE(first(database, exporting), Value(u"steam"_s));
    const auto spaced = u"select   [Range Min] from [PID_Components_Instruments]where FUNCTION_=  "
                        u"'PT' And TAG_ ='7'"_s;
    QVERIFY(first(database, spaced).isNull());
}

void TestOdbcSource::aFieldIsReadWhateverItsCase()
{
    const Database database = openSource();
    QCOMPARE(
        first(database, u"select service_ from [pid_COMPONENTS_instruments]where Function_='PT'"_s),
        Value(u"steam"_s));
    QCOMPARE(
        first(database, u"select p.service_ from PID_Components_Instruments p where p.tag_='7'"_s),
        Value(u"steam"_s));
}

void TestOdbcSource::aBareTableNameGivesAllRows()
{
    const auto rows = openSource().OpenRecordset(u"pid_components_instruments"_s);
    rows->MoveLast();
    QCOMPARE(rows->RecordCount(), 6);
    QCOMPARE(rows->FieldName(0), u"FUNCTION_"_s);
}

void TestOdbcSource::doubleQuotedTextsAreTexts()
{
    QCOMPARE(first(openSource(),
                   u"select SERVICE_ from [PID_Components_Instruments] where FUNCTION_=\"PT\""_s),
             Value(u"steam"_s));
}

void TestOdbcSource::aSnapshotCannotBeChanged()
{
    const auto rows = openSource().OpenRecordset(instruments);
    QVERIFY(!rows->Updatable());
    QCOMPARE(errorOf([&] { rows->Edit(); }), errors::notUpdatable);
    QCOMPARE(errorOf([&] { rows->AddNew(); }), errors::notUpdatable);
    QCOMPARE(errorOf([&] { rows->Delete(); }), errors::notUpdatable);
}

void TestOdbcSource::noRowsAreNoFailure()
{
    const auto rows = openSource().OpenRecordset(
        u"select TAG_ from [PID_Components_Instruments] where FUNCTION_='none'"_s);
    QVERIFY(rows->Eof() && rows->Bof());
    QCOMPARE(rows->RecordCount(), 0);
}

void TestOdbcSource::aPassThroughUpdateReachesTheRow()
{
    const Database database = openSource();
    database.ExecutePassThrough(u"UPDATE  [PID_Components_Instruments] SET SERVICE_ = 'O''Brien "
                                u"[x] \"y\" & z' WHERE FUNCTION_=  'PT' And TAG_ ='7';"_s);
    QCOMPARE(first(database, u"select SERVICE_ from [PID_Components_Instruments] where TAG_='7'"_s),
             Value(u"O'Brien [x] \"y\" & z"_s));
    database.ExecutePassThrough(u"UPDATE  [PID_Components_Instruments] SET ID_COUNT_ = '12' WHERE "
                                u"FUNCTION_=  'PT' And TAG_ ='7';"_s);
    QCOMPARE(
        first(database, u"select ID_COUNT_ from [PID_Components_Instruments] where TAG_='7'"_s),
        Value(12));
    QCOMPARE(first(database, countLike(u"*"_s)), Value(3));
}

void TestOdbcSource::aPassThroughUpdateOfNoRowIsNoFailure()
{
    openSource().ExecutePassThrough(
        u"UPDATE  [PID_Components_Instruments] SET SERVICE_ = 'x' WHERE "
        u"FUNCTION_=  'none' And TAG_ ='7';"_s);
}

void TestOdbcSource::statementsRunInTheDialect()
{
    const Database database = openSource();
    database.Execute(u"insert into pid_components_instruments (function_, tag_, service_) values "
                     u"(\"XV\", '1' & '2', #1/2/2020#);"_s);
    QCOMPARE(
        first(database, u"select service_ from [PID_Components_Instruments] where TAG_='12'"_s),
        Value(u"2020-01-02"_s));
    database.Execute(u"delete from [PID_Components_Instruments] where TAG_ like '1#'"_s);
    QCOMPARE(first(database, u"select count(*) from [PID_Components_Instruments]"_s), Value(6));
}

void TestOdbcSource::nothingIsChangedThroughAReadOnlySource()
{
    const Database database = openSource(true);
    const QString sql = u"update [PID_Components_Instruments] set SERVICE_='x'"_s;
    QCOMPARE(errorOf([&] { database.Execute(sql); }), errors::notUpdatable);
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(sql); }), errors::notUpdatable);
}

void TestOdbcSource::failuresHaveTheirNumbers_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("words");
    QTest::newRow("table") << u"select   TAG_ from [gone]where FUNCTION_=  'x' And TAG_ ='y'"_s
                           << errors::tableNotFound << u"was not found"_s;
    QTest::newRow("table by its name")
        << u"gone"_s << errors::tableNotFound << u"'gone' was not found"_s;
    QTest::newRow("column")
        << u"select   gone from [PID_Components_Instruments]where FUNCTION_='x'"_s
        << errors::missingParameter << u"gone"_s;
    QTest::newRow("column in brackets")
        << u"select   [gone] from [PID_Components_Instruments]where FUNCTION_='x'"_s
        << errors::missingParameter << u"gone"_s;
    QTest::newRow("syntax") << u"select   from [PID_Components_Instruments]where FUNCTION_='x'"_s
                            << errors::syntaxInSelect << u""_s;
    QTest::newRow("no statement") << u"selct TAG_ from x"_s << errors::notAStatement << u""_s;
    QTest::newRow("no rows") << u"delete from [PID_Components_Instruments]"_s
                             << errors::notSupported << u"gives no records"_s;
    QTest::newRow("text without end")
        << u"select TAG_ from [PID_Components_Instruments] where TAG_='x"_s
        << errors::invalidExpression << u"does not end"_s;
}

void TestOdbcSource::failuresHaveTheirNumbers()
{
    QFETCH(const QString, sql);
    QFETCH(const int, number);
    QFETCH(const QString, words);
    const Database database = openSource();
    const auto open = [&] { database.OpenRecordset(sql); };
    QCOMPARE(errorOf(open), number);
    QVERIFY2(wordsOf(open).contains(words), qPrintable(wordsOf(open)));
    QCOMPARE(first(database, countLike(u"101"_s)), Value(2)); // the connection goes on
}

void TestOdbcSource::aRefusedRowFailsTheCall()
{
    m_source->run(u"DROP TABLE IF EXISTS keyed; CREATE TABLE keyed (k varchar(5) PRIMARY KEY); "
                  u"INSERT INTO keyed VALUES ('a')"_s);
    const Database database = openSource();
    const QString sql = u"insert into keyed (k) values ('a')"_s;
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(sql); }), errors::odbcCallFailed);
    const QString words = wordsOf([&] { database.Execute(sql); });
    QVERIFY2(words.startsWith(u"ODBC--call failed. "_s), qPrintable(words));
    QVERIFY(words.size() > u"ODBC--call failed. "_s.size());
    QCOMPARE(errorOf([&] { database.Execute(u"select * from keyed"_s); }),
             errors::cannotExecuteSelect);
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(u"select * from keyed"_s); }),
             errors::cannotExecuteSelect);
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(u"update gone set a = 1"_s); }),
             errors::tableNotFound);
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(u"update keyed set gone = 'a'"_s); }),
             errors::missingParameter);
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(u"update keyed set"_s); }),
             errors::syntaxInUpdate);
}

void TestOdbcSource::aClosedSourceRaises()
{
    Database database = openSource();
    const auto rows = database.OpenRecordset(instruments);
    database.Close();
    QCOMPARE(errorOf([&] { database.OpenRecordset(instruments); }), errors::objectClosed);
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(u"delete from x"_s); }),
             errors::objectClosed);
    QCOMPARE(errorOf([&] { database.Connect(); }), errors::objectClosed);
    QCOMPARE(rows->Field(u"TAG_"_s), Value(u"101"_s));
}

void TestOdbcSource::aTableMadeLaterIsFound()
{
    m_source->run(u"DROP TABLE IF EXISTS \"Later\""_s);
    const Database database = openSource();
    QCOMPARE(errorOf([&] { database.OpenRecordset(u"later"_s); }), errors::tableNotFound);
    m_source->run(u"CREATE TABLE \"Later\" (a integer)"_s);
    QVERIFY(database.OpenRecordset(u"later"_s)->Eof());
}

QTEST_GUILESS_MAIN(TestOdbcSource)
#include "tst_odbc_source.moc"
