// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "store/memory_project.h"
#include "store/sql/translate.h"
#include "store/statement_catalogue.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace ostrand;
using namespace ostrand::tests;
using store::Error;
namespace errors = ostrand::store::errors;

namespace {

store::sql::Statement translated(const QString& statement)
{
    return store::sql::translate(store::sql::tokenise(statement));
}

/// The number of the error that a statement is refused for, 0 when it is not.
int refusal(const QString& statement)
{
    try {
        translated(statement);
    } catch (const Error& error) {
        return error.description().isEmpty() ? -1 : error.number();
    }
    return 0;
}

QStringList sorted(QStringList rows)
{
    rows.sort();
    return rows;
}

} // namespace

class TestTranslate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySelectOfTheProgramYieldsItsRows_data();
    void everySelectOfTheProgramYieldsItsRows();
    void everyActionOfTheProgramDoesItsWork_data();
    void everyActionOfTheProgramDoesItsWork();
    void criteriaFindTheirRows();
    void slipsEndInTheErrorOfTheirPlace_data();
    void slipsEndInTheErrorOfTheirPlace();
    void textLiteralsBecomeParameters();
    void statementsThatDifferInTextsShareOneSkeleton();
    void aCriterionCountsItsParametersBehindTheStatements();
    void plainSelectsAreKeyed();
    void selectsThatGatherRowsAreNotKeyed_data();
    void selectsThatGatherRowsAreNotKeyed();
    void keyedPiecesMakeAWorkingStatement();
    void droppingFormsLeaveRefusedRowsOut();
    void namesBeyondAsciiTakeTheSpellingOfTheSchema();
    void deepNestingEndsInAnError();
    void longChainsStillRun();
    void comparisonsUseTheIndexOfTheirColumn();
    void unnamedExpressionsGetNamesInOrder();
};

void TestTranslate::everySelectOfTheProgramYieldsItsRows_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QStringList>("rows");
    for (const QueryCase& query : queryCases())
        QTest::newRow(query.name) << query.statement << query.rows;
}

void TestTranslate::everySelectOfTheProgramYieldsItsRows()
{
    QFETCH(QString, statement);
    QFETCH(QStringList, rows);
    const MemoryProject project;
    const QStringList found = project.run(statement);
    if (statement.contains(u"order by"))
        QCOMPARE(found, rows);
    else
        QCOMPARE(sorted(found), sorted(rows));
}

void TestTranslate::everyActionOfTheProgramDoesItsWork_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QByteArray>("check");
    QTest::addColumn<QStringList>("rows");
    for (const ActionCase& action : actionCases())
        QTest::newRow(action.name) << action.statement << action.check << action.rows;
}

void TestTranslate::everyActionOfTheProgramDoesItsWork()
{
    QFETCH(QString, statement);
    QFETCH(QByteArray, check);
    QFETCH(QStringList, rows);
    const MemoryProject project;
    QCOMPARE(project.run(statement), QStringList());
    QCOMPARE(project.rowsOf(check), rows);
}

void TestTranslate::criteriaFindTheirRows()
{
    const MemoryProject project;
    const QList<QByteArray> sources{"FormColumnNames", "qryDoc", "qryIndex"};
    for (int i = 0; i < criteria().size(); ++i) {
        const auto tokens = store::sql::tokenise(criteria()[i]);
        const QByteArray where = store::sql::translateCriterion(tokens, 1);
        const QByteArray sql = "SELECT count(*) FROM " + sources[i] + " WHERE " + where;
        QCOMPARE(project.rowsOf(sql, tokens.literals), QStringList{u"1"_s});
    }
}

void TestTranslate::slipsEndInTheErrorOfTheirPlace_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("number");
    const auto row = [](const QString& statement, int number) {
        QTest::newRow(qPrintable(statement.left(60))) << statement << number;
    };
    for (const auto& other : {u""_s,
                              u"create table a (b text)"_s,
                              u"drop table index"_s,
                              u"pragma writable_schema = 1"_s,
                              u"attach 'x' as y"_s,
                              u"qryIndex"_s,
                              u"vacuum"_s,
                              u"begin"_s,
                              u"(select 1)"_s,
                              u"alter table a"_s,
                              u"transform sum(a) select b from c pivot d"_s,
                              u"parameters p text; select p"_s,
                              u"with a as (select 1) select *"_s})
        row(other, errors::notAStatement);
    row(u"select from index"_s, errors::syntaxInSelect);
    row(u"select a, from index"_s, errors::syntaxInSelect);
    row(u"select a b from index"_s, errors::syntaxInSelect);
    row(u"select a into b from index"_s, errors::syntaxInSelect);
    row(u"select * from"_s, errors::syntaxInFrom);
    row(u"select * from a b c"_s, errors::syntaxInFrom);
    row(u"select * from a inner join b"_s, errors::syntaxInFrom);
    row(u"select * from a join b on a.x = b.x"_s, errors::syntaxInFrom);
    row(u"select * from (a inner join b on a.x = b.x"_s, errors::syntaxInFrom);
    row(u"insert index values (1)"_s, errors::syntaxInInsert);
    row(u"insert into index values 1"_s, errors::syntaxInInsert);
    row(u"insert into index values (1), (2)"_s, errors::syntaxInInsert);
    row(u"insert into index (a, b values (1, 2)"_s, errors::syntaxInInsert);
    row(u"insert into index default values"_s, errors::syntaxInInsert);
    row(u"update index a = 1"_s, errors::syntaxInUpdate);
    row(u"update index set a"_s, errors::syntaxInUpdate);
    row(u"update index set other.a = 1"_s, errors::syntaxInUpdate);
    row(u"update (select 1 as a) as s set a = 2"_s, errors::syntaxInUpdate);
    row(u"delete index"_s, errors::syntaxInFrom);
    row(u"delete other.* from index"_s, errors::syntaxInFrom);
    row(u"select * from index where Tag = 'O'Brien'"_s, errors::invalidExpression);
    row(u"select * from index where Tag = 'O'Brien"_s, errors::invalidExpression);
    row(u"select * from index where"_s, errors::invalidExpression);
    row(u"select * from index where a = "_s, errors::invalidExpression);
    row(u"select * from index where (a = 1"_s, errors::invalidExpression);
    row(u"select * from index where a = 1; select 2"_s, errors::invalidExpression);
    row(u"select * from index where a in ()"_s, errors::invalidExpression);
    row(u"select * from index where a = #13/32/2024#"_s, errors::invalidExpression);
    row(u"select * from index where a = #2024"_s, errors::invalidExpression);
    row(u"select * from index where [a = 1"_s, errors::invalidExpression);
    row(u"select * from index where a = $1"_s, errors::invalidExpression);
    row(u"select * from index where a = ?"_s, errors::invalidExpression);
    row(u"select * from index where a = :b"_s, errors::invalidExpression);
    row(u"select * from index where a = 1 or"_s, errors::invalidExpression);
    row(u"select * from index order Tag"_s, errors::invalidExpression);
    row(u"select * from index order by Tag limit 1"_s, errors::invalidExpression);
    row(u"select Len() from index"_s, errors::invalidExpression);
    row(u"select Foo(1) from index"_s, errors::undefinedFunction);
    row(u"select * from index where load_extension('x') = 1"_s, errors::undefinedFunction);
    row(u"select * from index where randomblob(9) = 1"_s, errors::undefinedFunction);
    row(u"select * from sqlite_schema"_s, errors::tableNotFound);
    row(u"delete from SQLITE_sequence"_s, errors::tableNotFound);
    row(u"select * from pragma_table_info"_s, errors::tableNotFound);
}

void TestTranslate::slipsEndInTheErrorOfTheirPlace()
{
    QFETCH(QString, statement);
    QFETCH(int, number);
    QCOMPARE(refusal(statement), number);
}

void TestTranslate::textLiteralsBecomeParameters()
{
    const auto tokens = store::sql::tokenise(u"select 'a' from t where b = \"c\" or b = 'd'"_s);
    QCOMPARE(tokens.literals, (QStringList{u"a"_s, u"c"_s, u"d"_s}));
    const QByteArray sql = store::sql::translate(tokens).sql;
    for (const char* parameter : {"?1", "?2", "?3"})
        QCOMPARE(sql.count(parameter), 1);
    QVERIFY(!sql.contains('\''));
}

void TestTranslate::statementsThatDifferInTextsShareOneSkeleton()
{
    const auto skeleton = [](const QString& statement) {
        return store::sql::tokenise(statement).skeleton;
    };
    QCOMPARE(skeleton(u"select a from t where b = 'x'"_s),
             skeleton(u"select a from t where b = 'it''s'"_s));
    QVERIFY(skeleton(u"select a from t where b = 'x'"_s)
            != skeleton(u"select a from t where b = x"_s));
    QVERIFY(skeleton(u"select a from t where b = 1"_s)
            != skeleton(u"select a from t where b = 2"_s));
    QVERIFY(skeleton(u"select a from [t u]"_s) != skeleton(u"select a from t u"_s));
}

void TestTranslate::aCriterionCountsItsParametersBehindTheStatements()
{
    const auto tokens = store::sql::tokenise(u"[Tag] = 'a' and b = 'c'"_s);
    const QByteArray where = store::sql::translateCriterion(tokens, 4);
    QVERIFY(where.contains("?4"));
    QVERIFY(where.contains("?5"));
    QVERIFY(!where.contains("?1"));
    QVERIFY_THROWS_EXCEPTION(Error,
                             store::sql::translateCriterion(store::sql::tokenise(u"a = 1;"_s), 1));
    QVERIFY_THROWS_EXCEPTION(Error, store::sql::translateCriterion(store::sql::tokenise(u""_s), 1));
}

void TestTranslate::plainSelectsAreKeyed()
{
    const auto keyed =
        translated(u"select i.Tag as a from qryIndex i where i.Tag = 'x' order by i.Tag desc"_s)
            .keyed;
    QVERIFY(keyed);
    QCOMPARE(keyed->source, u"qryIndex"_s);
    QCOMPARE(keyed->alias, QByteArray("\"i\""));
    QCOMPARE(keyed->columns, QByteArray("\"i\".\"Tag\" AS \"a\""));
    QCOMPARE(keyed->from, QByteArray("\"qryIndex\" AS \"i\""));
    QVERIFY(keyed->where.contains("?1"));
    QVERIFY(keyed->orderBy.endsWith(" DESC"));

    const auto bare = translated(u"Select * from Index"_s).keyed;
    QVERIFY(bare);
    QCOMPARE(bare->columns, QByteArray("*"));
    QVERIFY(bare->where.isEmpty() && bare->orderBy.isEmpty());
    QVERIFY(translated(u"select a from t where b in (select max(c) from u group by d)"_s).keyed);
}

void TestTranslate::selectsThatGatherRowsAreNotKeyed_data()
{
    QTest::addColumn<QString>("statement");
    for (const auto& statement : {u"select distinct a from t"_s,
                                  u"select top 1 a from t"_s,
                                  u"select count(*) from t"_s,
                                  u"select a from t group by a"_s,
                                  u"select a from t, u"_s,
                                  u"select a from t inner join u on t.b = u.b"_s,
                                  u"select a from (select a from t)"_s,
                                  u"select a from t union select b from u"_s,
                                  u"select 1 + Max(a) from t"_s,
                                  u"select a from t having Count(a) > 1"_s,
                                  u"select 1"_s})
        QTest::newRow(qPrintable(statement)) << statement;
}

void TestTranslate::selectsThatGatherRowsAreNotKeyed()
{
    QFETCH(QString, statement);
    QVERIFY(!translated(statement).keyed);
}

void TestTranslate::keyedPiecesMakeAWorkingStatement()
{
    const MemoryProject project;
    const auto tokens = store::sql::tokenise(
        u"select x.docNo, x.context & '' as c from itemDocXRef as x where x.PlantItemNo = 'FT-101' "
        "order by x.docNo desc;"_s);
    const auto keyed = store::sql::translate(tokens).keyed;
    QVERIFY(keyed);
    const QByteArray keys = "SELECT " + keyed->alias + ".rowid FROM " + keyed->from + " WHERE "
                            + keyed->where + " ORDER BY " + keyed->orderBy;
    QCOMPARE(project.rowsOf(keys, tokens.literals), (QStringList{u"2"_s, u"1"_s}));
    const QByteArray row = "SELECT " + keyed->columns + " FROM " + keyed->from + " WHERE "
                           + keyed->alias + ".rowid = 2";
    QCOMPARE(project.rowsOf(row, tokens.literals), QStringList{u"PID-1|"_s});
}

void TestTranslate::droppingFormsLeaveRefusedRowsOut()
{
    const MemoryProject project;
    const auto drop = [&project](const QString& statement) {
        const auto tokens = store::sql::tokenise(statement);
        return project.rowsOf(store::sql::translate(tokens).sqlDropping, tokens.literals);
    };
    QCOMPARE(drop(u"insert into document (docNo, docType) values ('ds-1', 'PID')"_s), {});
    QCOMPARE(project.rowsOf("SELECT docType FROM document WHERE docNo = 'DS-1'"),
             QStringList{u"DATASHEET"_s});
    QCOMPARE(drop(u"update document set docNo = 'DS-1' where docNo = 'PO-1'"_s), {});
    QCOMPARE(project.rowsOf("SELECT count(*) FROM document WHERE docNo = 'PO-1'"),
             QStringList{u"1"_s});
    QVERIFY(translated(u"delete from document"_s).sqlDropping.isEmpty());
    QVERIFY(translated(u"select * from document"_s).sqlDropping.isEmpty());
}

void TestTranslate::namesBeyondAsciiTakeTheSpellingOfTheSchema()
{
    const auto resolve = [](const QString& name) {
        return name.compare(u"größe", Qt::CaseInsensitive) == 0 ? u"Größe"_s : name;
    };
    const auto tokens =
        store::sql::tokenise(u"select GRÖSSE, [GRÖßE] as ÄNDERUNG from t order by änderung"_s);
    const QByteArray sql = store::sql::translate(tokens, resolve).sql;
    QVERIFY(sql.contains("\"GRÖSSE\""));
    QVERIFY(sql.contains("\"Größe\" AS \"ÄNDERUNG\""));
    QVERIFY(sql.endsWith("ORDER BY \"ÄNDERUNG\" COLLATE JET"));
}

void TestTranslate::deepNestingEndsInAnError()
{
    const auto nested =
        [](const QString& open, const QString& inner, const QString& close) -> QString {
        return u"select * from t where "_s + open.repeated(100'000) + inner
               + close.repeated(100'000);
    };
    QCOMPARE(refusal(nested(u"("_s, u"1"_s, u")"_s)), errors::invalidExpression);
    QCOMPARE(refusal(nested(u"not "_s, u"1"_s, u""_s)), errors::invalidExpression);
    QCOMPARE(refusal(nested(u"- "_s, u"1"_s, u""_s)), errors::invalidExpression);
    QCOMPARE(refusal(nested(u"len("_s, u"1"_s, u")"_s)), errors::invalidExpression);
    QCOMPARE(refusal(nested(u"a in (select b from c where "_s, u"1"_s, u")"_s)),
             errors::invalidExpression);
    QCOMPARE(refusal(nested(u"1"_s, u""_s, u"=1"_s)), errors::invalidExpression);
    QCOMPARE(refusal(nested(u"1"_s, u""_s, u"-1"_s)), errors::invalidExpression);
    QCOMPARE(refusal(u"select * from "_s + u"("_s.repeated(100'000)), errors::invalidExpression);
    QCOMPARE(refusal(u"select * from "_s + u"(select * from "_s.repeated(100'000)),
             errors::invalidExpression);
}

void TestTranslate::longChainsStillRun()
{
    const MemoryProject project;
    QCOMPARE(project.run(u"select Len('a'"_s + u" & 'b'"_s.repeated(250) + u')'),
             QStringList{u"251"_s});
    QCOMPARE(project.run(u"select 1"_s + u" + 1"_s.repeated(250)), QStringList{u"251"_s});
    const QString conditions = u" or Tag = 'x'"_s.repeated(500);
    QCOMPARE(project.run(u"select count(*) from qryIndex where Tag = 'FT-101'"_s + conditions),
             QStringList{u"1"_s});
    const QString brackets = u"("_s.repeated(15) + u"Tag"_s + u")"_s.repeated(15);
    QCOMPARE(project.run(u"select count(*) from qryIndex where "_s + brackets + u" = 'FT-101'"),
             QStringList{u"1"_s});
}

void TestTranslate::comparisonsUseTheIndexOfTheirColumn()
{
    const MemoryProject project;
    const auto plan = [&project](const QString& statement) {
        const auto tokens = store::sql::tokenise(statement);
        const QByteArray sql = "EXPLAIN QUERY PLAN " + store::sql::translate(tokens).sql;
        return project.rowsOf(sql, tokens.literals).join(u'\n');
    };
    const QString search = u"SEARCH index USING INDEX sqlite_autoindex_index_1"_s;
    QVERIFY(plan(u"select * from index where PlantItemNo = 'x'"_s).contains(search));
    QVERIFY(plan(u"select * from qryIndex where Tag = 'x'"_s).contains(search));
    QVERIFY(plan(u"select * from index where PlantItemNo in ('x', 'y')"_s).contains(search));
    QVERIFY(plan(u"select * from index where PlantItemNo between 'x' and 'y'"_s).contains(search));
    const QString ordered = plan(u"select * from qryIndex order by Tag"_s);
    QVERIFY2(!ordered.contains(u"TEMP B-TREE"), qPrintable(ordered));
    const QString ties = plan(u"select docNo from qryDocXref where Tag = 'a' and  (docType = 'K' "
                              "or context = 'K');"_s);
    QVERIFY2(ties.contains(u"SEARCH x USING INDEX oneTie (PlantItemNo=?)")
                 || ties.contains(u"SEARCH x USING COVERING INDEX oneTie (PlantItemNo=?)"),
             qPrintable(ties));
}

void TestTranslate::unnamedExpressionsGetNamesInOrder()
{
    const MemoryProject project;
    QCOMPARE(
        project.columnsOf(u"select Tag, Len(Tag), Tag & '', Location as [a b] from qryIndex"_s),
        (QStringList{u"Tag"_s, u"Expr1000"_s, u"Expr1001"_s, u"a b"_s}));
    QCOMPARE(project.columnsOf(u"select index.PLANTITEMNO from index, document"_s),
             QStringList{u"PlantItemNo"_s});
}

QTEST_APPLESS_MAIN(TestTranslate)
#include "tst_translate.moc"
