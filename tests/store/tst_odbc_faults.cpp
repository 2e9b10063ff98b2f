// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What happens when a server goes away, stands still or refuses.
#include "scratch_database.h"
#include "store/odbc/open_source.h"
#include "store/odbc/session.h"
#include "support/postgres_server.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::store;
using ostrand::tests::errorOf;
using ostrand::tests::PostgresServer;

namespace {

const QString tags = u"select TAG_ from [PID_Components_Instruments]"_s;
const QString update = u"UPDATE  [PID_Components_Instruments] SET SERVICE_ = 'x';"_s;

Database open()
{
    return DBEngine::OpenDatabase(u"P&ID_SQL_SERVER"_s, 1, false, PostgresServer::connectString());
}

QString wordsOf(const Database& database)
{
    try {
        database.OpenRecordset(tags);
    } catch (const Error& error) {
        return error.description();
    }
    return {};
}

} // namespace

class TestOdbcFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aServerThatIsDeadRefusesTheConnection();
    void aServerThatDiesBetweenTwoStatementsFailsTheCall();
    void aServerThatStandsStillIsGivenUp();
    void aServerThatStandsStillAtLoginIsGivenUp();
    void aWrongPasswordIsRefusedAndNotShown();
    void aTableThatGoesAwayIsMissing();

private:
    PostgresServer m_server;
};

void TestOdbcFaults::init()
{
    odbc::patience() = {};
    m_server.start();
    m_server.makeInstrumentTable({{u"FT"_s, u"101"_s, 1, u"water"_s}});
}

void TestOdbcFaults::aServerThatIsDeadRefusesTheConnection()
{
    m_server.stop();
    try {
        open();
        QFAIL("connected");
    } catch (const Error& error) {
        QCOMPARE(error.number(), errors::odbcConnectionFailed);
        QVERIFY2(
            error.description().startsWith(u"ODBC--connection to 'P&ID_SQL_SERVER' failed. "_s),
            error.what());
        QVERIFY2(error.description().contains(u"refused"_s), error.what());
    }
}

void TestOdbcFaults::aServerThatDiesBetweenTwoStatementsFailsTheCall()
{
    const Database database = open();
    const auto rows = database.OpenRecordset(tags);
    m_server.stop();
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(update); }), errors::odbcCallFailed);
    QCOMPARE(errorOf([&] { database.Execute(update); }), errors::odbcCallFailed);
    QVERIFY2(wordsOf(database).startsWith(u"ODBC--call failed. "_s), qPrintable(wordsOf(database)));
    QCOMPARE(rows->Field(0), Value(u"101"_s));
    QCOMPARE(database.Name(), u"plant"_s);

    m_server.start();
    QCOMPARE(open().OpenRecordset(tags)->Field(0), Value(u"101"_s));
}

void TestOdbcFaults::aServerThatStandsStillIsGivenUp()
{
    odbc::patience().statement = std::chrono::seconds(1);
    const Database database = open();
    database.OpenRecordset(tags);
    m_server.freeze();
    QCOMPARE(wordsOf(database), u"ODBC--call failed. The server does not answer."_s);
    m_server.resume();
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(update); }), errors::odbcCallFailed);
    QCOMPARE(open().OpenRecordset(u"select SERVICE_ from [PID_Components_Instruments]"_s)->Field(0),
             Value(u"water"_s));
}

void TestOdbcFaults::aServerThatStandsStillAtLoginIsGivenUp()
{
    odbc::patience().login = std::chrono::seconds(2);
    m_server.freeze();
    QCOMPARE(errorOf([] { open(); }), errors::odbcConnectionFailed);
    m_server.resume();
    open();
}

void TestOdbcFaults::aWrongPasswordIsRefusedAndNotShown()
{
    try {
        DBEngine::OpenDatabase(u"P&ID_SQL_SERVER"_s,
                               1,
                               false,
                               u"ODBC;DSN=P&ID_SQL_SERVER;UID=nobody-at-all;PWD=open sesame"_s);
        QFAIL("connected");
    } catch (const Error& error) {
        QCOMPARE(error.number(), errors::odbcConnectionFailed);
        QVERIFY2(error.description().contains(u"nobody-at-all"_s), error.what());
        QVERIFY2(!error.description().contains(u"sesame"_s), error.what());
    }
}

void TestOdbcFaults::aTableThatGoesAwayIsMissing()
{
    const Database database = open();
    database.OpenRecordset(tags);
    m_server.run(u"DROP TABLE \"PID_Components_Instruments\""_s);
    QCOMPARE(errorOf([&] { database.OpenRecordset(tags); }), errors::tableNotFound);
    QCOMPARE(errorOf([&] { database.ExecutePassThrough(update); }), errors::tableNotFound);
}

QTEST_GUILESS_MAIN(TestOdbcFaults)
#include "tst_odbc_faults.moc"
