// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/connect_string.h"
#include "store/odbc/server_text.h"

#include <QHash>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::store::odbc;

namespace {

class OneTable final : public NameBook
{
public:
    std::optional<QString> table(const QString& name) override
    {
        return spellingIn({u"Pump List"_s, u"PID_Table"_s}, name);
    }
    QStringList columns(const QString& /*table*/) override { return {u"FUNCTION_"_s, u"Tag"_s}; }
};

ServerDialect quoting()
{
    return {false, u"\""_s, PatternForm::SimilarTo, u"||"_s};
}

ServerDialect sqlServer()
{
    return {true, u"\""_s, PatternForm::LikeClasses, u"+"_s};
}

} // namespace

class TestOdbcText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aConnectStringIsTakenApart();
    void valuesInBracesMayHoldAnything();
    void aDataSourcesNameIsNeverPutInBraces();
    void theFirstOfTwoEqualKeysCounts();
    void passwordsAreHidden();
    void namesGetTheServersSpelling_data();
    void namesGetTheServersSpelling();
    void passThroughChangesNamesOnly();
    void aServerThatTakesBracketsKeepsThem();
    void classesArePutIntoTheServersPatterns_data();
    void classesArePutIntoTheServersPatterns();
};

void TestOdbcText::aConnectStringIsTakenApart()
{
    ConnectString connect(u"ODBC;DATABASE=plant 1;DSN=P&ID_SQL_SERVER"_s);
    QCOMPARE(connect.value(u"database"), u"plant 1"_s);
    QCOMPARE(connect.value(u"Dsn"), u"P&ID_SQL_SERVER"_s);
    QCOMPARE(connect.value(u"UID"), QString());
    QCOMPARE(connect.text(), u"DATABASE=plant 1;DSN=P&ID_SQL_SERVER;"_s);
    connect.remove(u"database");
    connect.set(u"Uid"_s, u"x"_s);
    QCOMPARE(connect.text(), u"DSN=P&ID_SQL_SERVER;Uid=x;"_s);
    QCOMPARE(ConnectString(u"odbc;;;"_s).text(), QString());
    QCOMPARE(ConnectString(u" Key = a=b ;;Other=1"_s).text(), u"Key=a=b;Other=1;"_s);
}

void TestOdbcText::valuesInBracesMayHoldAnything()
{
    const ConnectString connect(u"DRIVER={SQL SERVER};PWD={a;b}}c=d};SERVER=x;DSN=;"_s);
    QCOMPARE(connect.value(u"DRIVER"), u"SQL SERVER"_s);
    QCOMPARE(connect.value(u"PWD"), u"a;b}c=d"_s);
    QCOMPARE(connect.value(u"SERVER"), u"x"_s);
    QCOMPARE(connect.text(), u"DRIVER={SQL SERVER};PWD={a;b}}c=d};SERVER=x;DSN=;"_s);
    QCOMPARE(ConnectString(u"A={no end"_s).value(u"A"), u"no end"_s);
}

void TestOdbcText::aDataSourcesNameIsNeverPutInBraces()
{
    QCOMPARE(ConnectString(u"DSN={P&ID}"_s).text(), u"DSN=P&ID;"_s);
}

void TestOdbcText::theFirstOfTwoEqualKeysCounts()
{
    QCOMPARE(ConnectString(u"A=1;a=2"_s).value(u"A"), u"1"_s);
}

void TestOdbcText::passwordsAreHidden()
{
    const QStringList secrets = ConnectString(u"UID=scott;PWD={t;ger};Password=two"_s).secrets();
    QCOMPARE(secrets, (QStringList{u"t;ger"_s, u"two"_s}));
    QCOMPARE(withoutSecrets(u"login of scott with t;ger failed"_s, secrets),
             u"login of scott with *** failed"_s);
    QCOMPARE(withoutSecrets(u"in DSN=x;Pwd={a b};UID=y;PASSWORD=z;"_s, {}),
             u"in DSN=x;Pwd=***;UID=y;PASSWORD=***;"_s);
}

void TestOdbcText::namesGetTheServersSpelling_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no blank behind a bracket")
        << u"select   tag from [pid_table]where function_=  'a' And TAG ='b';"_s
        << u"select   \"Tag\" from \"PID_Table\"where \"FUNCTION_\"=  'a' And \"Tag\" ='b'"_s;
    QTest::newRow("qualified")
        << u"SELECT [PID_TABLE].tag FROM [PID_table] order by [pid_table].[TAG]"_s
        << u"SELECT \"PID_Table\".\"Tag\" FROM \"PID_Table\" order by \"PID_Table\".\"Tag\""_s;
    QTest::newRow("function and alias") << u"select count(*) as tag from [Pump List]"_s
                                        << u"select count(*) as tag from \"Pump List\""_s;
    QTest::newRow("a name that is not known")
        << u"select [x\"y], z from [No Table]"_s << u"select \"x\"\"y\", z from \"No Table\""_s;
    QTest::newRow("schema") << u"select tag from dbo.pid_table"_s
                            << u"select \"Tag\" from dbo.\"PID_Table\""_s;
    QTest::newRow("two tables") << u"select tag from [pump list], pid_table"_s
                                << u"select \"Tag\" from \"Pump List\", \"PID_Table\""_s;
    QTest::newRow("insert")
        << u"insert into pid_table (tag) values (\"it's\" & #1/2/2020#)"_s
        << u"insert into \"PID_Table\" (\"Tag\") values ('it''s' || '2020-01-02')"_s;
}

void TestOdbcText::namesGetTheServersSpelling()
{
    QFETCH(const QString, statement);
    QFETCH(const QString, expected);
    OneTable names;
    QCOMPARE(serverText(statement, quoting(), names), expected);
}

void TestOdbcText::passThroughChangesNamesOnly()
{
    OneTable names;
    QCOMPARE(passThroughText(u"UPDATE [pid_table] SET tag = 'a[b]''\"' || \"Q\" & x LIKE '1*';"_s,
                             quoting(),
                             names),
             u"UPDATE \"PID_Table\" SET \"Tag\" = 'a[b]''\"' || \"Q\" & x LIKE '1*';"_s);
}

void TestOdbcText::aServerThatTakesBracketsKeepsThem()
{
    OneTable names;
    QCOMPARE(serverText(u"select [TAG] from [pid_table]WHERE tag like 'a*[b-d]_[e';"_s,
                        sqlServer(),
                        names),
             u"select [TAG] from [pid_table]WHERE tag LIKE 'a%[b-d]!_![e' ESCAPE '!'"_s);
    QCOMPARE(passThroughText(u"select [TAG] from [pid_table];"_s, sqlServer(), names),
             u"select [TAG] from [pid_table];"_s);
}

void TestOdbcText::classesArePutIntoTheServersPatterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<PatternForm>("form");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << u"a*?"_s << PatternForm::Glob << u"LIKE 'a%_'"_s;
    QTest::newRow("glob") << u"a1#*?[!x-z][[]"_s << PatternForm::Glob
                          << u"GLOB '[aA]1[0-9]*?[^x-zX-Z][[]'"_s;
    QTest::newRow("similar") << u"a#(%[!x]"_s << PatternForm::SimilarTo
                             << u"SIMILAR TO 'a[0-9]!(!%[^x]' ESCAPE '!'"_s;
    QTest::newRow("digits on sql server")
        << u"1#"_s << PatternForm::LikeClasses << u"LIKE '1[0-9]'"_s;
    QTest::newRow("nothing but like") << u"1#[ab]"_s << PatternForm::LikeOnly << u"LIKE '1__'"_s;
    QTest::newRow("backslash") << u"a\\b"_s << PatternForm::LikeOnly << u"LIKE 'a\\b' ESCAPE '!'"_s;
}

void TestOdbcText::classesArePutIntoTheServersPatterns()
{
    QFETCH(const QString, pattern);
    QFETCH(const PatternForm, form);
    QFETCH(const QString, expected);
    QCOMPARE(likeClause(pattern, form), expected);
}

QTEST_GUILESS_MAIN(TestOdbcText)
#include "tst_odbc_text.moc"
