// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Logging in, with a driver that answers as the test wants.
#include "scratch_database.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::store;

namespace {

const QString driver = u"ODBC;DRIVER={"_s + QStringLiteral(OSTRAND_FAKE_DRIVER) + u"};"_s;

Database open(const QString& connect)
{
    return DBEngine::OpenDatabase(u" "_s, 0, false, connect);
}

struct Failure
{
    int number = 0;
    QString words;
};

template <typename Action>
Failure failureOf(Action action)
{
    try {
        action();
    } catch (const Error& error) {
        return {error.number(), error.description()};
    }
    return {};
}

} // namespace

class TestOdbcLogin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aCancelledLoginHasANumberOfItsOwn();
    void aFailedLoginShowsNoPassword();
    void theSchemaBecomesTheDatabaseOfASqlServer();
    void aSchemaThatIsNotThereFailsTheConnection();
    void aConnectStringThatNamesADriverIsPassedOnWhole();
    void aSqlServerGetsItsNamesInBrackets();

private:
    QTemporaryDir m_folder;
};

void TestOdbcLogin::initTestCase()
{
    QFile file(m_folder.filePath(u"odbc.ini"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[P&ID_SQL_SERVER]\nDriver=" OSTRAND_FAKE_DRIVER "\n");
    qputenv("ODBCINI", QFile::encodeName(file.fileName()));
}

void TestOdbcLogin::aCancelledLoginHasANumberOfItsOwn()
{
    const Failure failure = failureOf([] { open(driver + u"ANSWER=cancel"_s); });
    QCOMPARE(failure.number, errors::loginCancelled);
    QCOMPARE(failure.words, u"The login was cancelled by the user."_s);
}

void TestOdbcLogin::aFailedLoginShowsNoPassword()
{
    const Failure failure =
        failureOf([] { open(driver + u"ANSWER=wrong tiger;SERVER=x;UID=scott;PWD=tiger"_s); });
    QCOMPARE(failure.number, errors::odbcConnectionFailed);
    QVERIFY2(failure.words.startsWith(u"ODBC--connection to 'x' failed. "_s),
             qPrintable(failure.words));
    QVERIFY2(failure.words.contains(u"wrong ***"_s), qPrintable(failure.words));
    QVERIFY2(failure.words.contains(u"UID=scott;PWD=***;"_s), qPrintable(failure.words));
}

void TestOdbcLogin::theSchemaBecomesTheDatabaseOfASqlServer()
{
    const Database database =
        open(u"ODBC;DATABASE=Plant 7;DSN=P&ID_SQL_SERVER;ANSWER=ok;PWD=tiger"_s);
    QCOMPARE(database.Name(), u"Plant 7"_s);
    QCOMPARE(database.Connect(),
             u"ODBC;DSN=P&ID_SQL_SERVER;ANSWER=ok;PWD=tiger;APP=x;DATABASE=Plant 7;"_s);
    const Failure failure =
        failureOf([&] { database.OpenRecordset(u"select a from [b]where c like 'x*';"_s); });
    QCOMPARE(failure.number, errors::odbcCallFailed);
    QVERIFY2(failure.words.endsWith(u"in Plant 7: select a from [b]where c LIKE 'x%'"_s),
             qPrintable(failure.words));
}

void TestOdbcLogin::aSchemaThatIsNotThereFailsTheConnection()
{
    const Failure failure =
        failureOf([] { open(u"ODBC;DATABASE=missing;DSN=P&ID_SQL_SERVER;ANSWER=ok"_s); });
    QCOMPARE(failure.number, errors::odbcConnectionFailed);
    QVERIFY2(failure.words.startsWith(u"ODBC--connection to 'P&ID_SQL_SERVER' failed. "_s),
             qPrintable(failure.words));
    QVERIFY2(failure.words.contains(u"no database missing"_s), qPrintable(failure.words));
}

void TestOdbcLogin::aConnectStringThatNamesADriverIsPassedOnWhole()
{
    const Database database = open(driver + u"SERVER=x;DATABASE=base;UID=u;DSN=;ANSWER=ok"_s);
    QVERIFY2(database.Connect().contains(u"SERVER=x;DATABASE=base;UID=u;ANSWER=ok;"_s),
             qPrintable(database.Connect()));
    QCOMPARE(database.Name(), u"base"_s);
}

void TestOdbcLogin::aSqlServerGetsItsNamesInBrackets()
{
    const Database database = open(u"ODBC;DSN=P&ID_SQL_SERVER;ANSWER=ok;PWD=tiger"_s);
    QCOMPARE(database.Name(), u"P&ID_SQL_SERVER"_s);
    const Failure failure = failureOf(
        [&] { database.ExecutePassThrough(u"UPDATE  [T] SET F = 'tiger [x]' WHERE G=  'y';"_s); });
    QCOMPARE(failure.number, errors::odbcCallFailed);
    QVERIFY2(failure.words.endsWith(u"UPDATE  [T] SET F = '*** [x]' WHERE G=  'y';"_s),
             qPrintable(failure.words));
}

QTEST_GUILESS_MAIN(TestOdbcLogin)
#include "tst_odbc_login.moc"
