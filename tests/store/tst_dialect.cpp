// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/memory_project.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::tests;

/// What statements beyond those of the program mean: the dialect itself.
class TestDialect : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialectMeansWhatItSays_data();
    void dialectMeansWhatItSays();
    void actionsOfTheDialectWork_data();
    void actionsOfTheDialectWork();
};

void TestDialect::dialectMeansWhatItSays_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QStringList>("rows");
    const auto row = [](const char* name, const QString& statement, const QStringList& rows) {
        QTest::newRow(name) << statement << rows;
    };
    // ---- select and from
    row("top", u"select top 2 Tag from qryIndex order by Tag"_s, {u"FT-101"_s, u"LT-103"_s});
    row("top percent",
        u"select top 50 percent Tag from qryIndex order by Tag"_s,
        {u"FT-101"_s, u"LT-103"_s});
    row("distinctrow",
        u"select distinctrow Location from qryIndex order by Location"_s,
        {u"Field"_s, u"Field"_s, u"Panel"_s});
    row("all", u"select all Location from qryIndex where Tag = 'FT-101'"_s, {u"Field"_s});
    row("distinct regardless of case",
        u"select count(*) from (select distinct IIf(Tag = 'FT-101', 'FIELD', Location) as a from "
        "qryIndex)"_s,
        {u"2"_s});
    row("alias without as",
        u"select i.Tag from qryIndex i where i.Location = 'panel'"_s,
        {u"PT-102"_s});
    row("bracketed alias",
        u"select [the index].Tag from qryIndex as [the index] where [the "
        "index].[Location]='Panel'"_s,
        {u"PT-102"_s});
    row("alias of a column in brackets",
        u"select Tag as [a & b-c] from qryIndex order by 1 desc"_s,
        {u"PT-102"_s, u"LT-103"_s, u"FT-101"_s});
    row("inner join",
        u"select i.Tag, x.docNo from qryIndex as i inner join itemDocXRef as x on i.Tag = "
        "x.PlantItemNo order by i.Tag, x.docNo"_s,
        {u"FT-101|DS-1"_s, u"FT-101|PID-1"_s, u"LT-103|DS-1"_s});
    row("left join",
        u"select i.Tag, x.docNo from qryIndex i left outer join itemDocXRef x on i.Tag = "
        "x.PlantItemNo where x.docNo is null"_s,
        {u"PT-102|Null"_s});
    row("right join",
        u"select x.docNo, i.Tag from itemDocXRef x right join qryIndex i on i.Tag = "
        "x.PlantItemNo where x.docNo is null"_s,
        {u"Null|PT-102"_s});
    row("nested joins",
        u"SELECT i.PlantItemNo, d.docType FROM ((index AS i INNER JOIN itemDocXRef AS x ON "
        "(i.PlantItemNo = x.PlantItemNo)) INNER JOIN document AS d ON x.docNo = d.docNo) LEFT "
        "JOIN plDocType p ON p.docType = d.docType ORDER BY i.PlantItemNo, d.docType;"_s,
        {u"FT-101|DATASHEET"_s, u"FT-101|PID"_s, u"LT-103|DATASHEET"_s});
    row("joins in brackets on the right",
        u"select i.PlantItemNo, d.docType from index i left join (itemDocXRef x inner join "
        "document d on x.docNo = d.docNo) on i.PlantItemNo = x.PlantItemNo order by "
        "i.PlantItemNo, d.docType"_s,
        {u"FT-101|DATASHEET"_s, u"FT-101|PID"_s, u"LT-103|DATASHEET"_s, u"PT-102|Null"_s});
    row("comma before an outer join",
        u"select count(*) from plDocType, index i left join itemDocXRef x on i.PlantItemNo = "
        "x.PlantItemNo"_s,
        {u"24"_s});
    row("subquery in from",
        u"select s.Location, s.n from (select Location, count(*) as n from index group by "
        "Location) as s order by s.n desc"_s,
        {u"Field|2"_s, u"Panel|1"_s});
    row("scalar subquery",
        u"select Tag, (select count(*) from itemDocXRef x where x.PlantItemNo = i.Tag) as n from "
        "qryIndex i order by Tag"_s,
        {u"FT-101|2"_s, u"LT-103|1"_s, u"PT-102|0"_s});
    row("exists",
        u"select Tag from qryIndex i where not exists (select * from itemDocXRef x where "
        "x.PlantItemNo = i.Tag)"_s,
        {u"PT-102"_s});
    row("group and having",
        u"select PlantItemNo, count(docNo) as n from itemDocXRef group by PlantItemNo having "
        "count(*) > 1"_s,
        {u"FT-101|2"_s});
    row("group by an expression regardless of case",
        u"select count(*) from (select 'a' as t from plDocType where docType='PID' union all "
        "select 'A' as t from plDocType where docType='NA') group by t & ''"_s,
        {u"2"_s});
    row("union all",
        u"select 'x' as a from plDocType where docType = 'NA' union all select 'X' "
        "from plDocType where docType = 'NA'"_s,
        {u"x"_s, u"X"_s});
    row("union",
        u"select count(*) from (select Location from index union select 'FIELD' from index)"_s,
        {u"2"_s});
    row("top within a union",
        u"select top 1 Tag from qryIndex union all select top 1 docNo from qryDoc where docNo = "
        "'PO-1'"_s,
        {u"FT-101"_s, u"PO-1"_s});
    row("without from", u"select 1 + 1, 'a'"_s, {u"2|a"_s});
    row("aggregates",
        u"select Sum(ReportNum), Min(FileName), Max(FileName), Avg(ReportNum), "
        "First(ReportNum), Last(ReportNum), StDev(ReportNum), Var(ReportNum) from qryDsType"_s,
        {u"3|flow.xlt|level.xlt|1.5|2|1|0.707106781186548|0.5"_s});
    // ---- names
    row("keywords as names",
        u"select static, [static] from ProjectInfo where static = 0"_s,
        {u"0|0"_s});
    row("object and field",
        u"select object, Field from Map where object = 'B3'"_s,
        {u"B3|plant"_s});
    row("Date as a column",
        u"select Date from qryIndexRev order by Date desc"_s,
        {u"2024-03-01"_s, u"2024-01-31"_s});
    row("bang",
        u"select [qryIndex]![Tag] from qryIndex where qryIndex!Tag='PT-102'"_s,
        {u"PT-102"_s});
    // ---- values
    row("true and false",
        u"select attributeName from qryProjectInfo where static = False"_s,
        {u"plant"_s});
    row("not true",
        u"select attributeName from qryProjectInfo where not static = True"_s,
        {u"plant"_s});
    row("comparisons count as -1", u"select (1 = 1), (1 = 2), (1 < 2) + 0"_s, {u"-1|0|-1"_s});
    row("dates, month first", u"select RevNo from qryIndexRev where Date < #2/1/2024#"_s, {u"A"_s});
    row("dates, year first",
        u"select RevNo from qryIndexRev where Date between #2024-02-01# and #2024-03-01#"_s,
        {u"B"_s});
    row("date with time",
        u"select #3/4/2024 1:05:09 PM#, #31/12/99#, #14:30#, #1/2/2024 0:00#"_s,
        {u"2024-03-04 13:05:09|1999-12-31|1899-12-30 14:30:00|2024-01-02"_s});
    row("doubled quotes",
        u"select 'it''s', \"say \"\"so\"\"\", \"it's\""_s,
        {u"it's|say \"so\"|it's"_s});
    row("null with &",
        u"select Null & 'a', 'a' & Null & 'b', Null & Null, 1.5 & 'x', 2 & 1"_s,
        {u"a|ab|Null|1.5x|21"_s});
    row("plus", u"select 'a' + 'b', 1 + 2, 'a' + Null, '3' + 4"_s, {u"ab|3|Null|7.0"_s});
    row("arithmetic",
        u"select 7 \\ 2, 7 Mod 3, -7 Mod 3, 2 ^ 10, 5 / 2, 7.6 \\ 2, -2 ^ 2"_s,
        {u"3|1|-1|1024.0|2.5|4|-4.0"_s});
    row("precedence",
        u"select 1 + 2 * 3, (1 + 2) * 3, 10 - 4 - 3, 2 * 3 Mod 4, 'a' & 1 + 1"_s,
        {u"7|9|3|2|a2"_s});
    row("minus of a minus", u"select 5--3, 5 - -3, - - 2"_s, {u"8|8|2"_s});
    row("division by nought", u"select 1 / 0, 1 \\ 0, 1 Mod 0"_s, {u"Null|Null|Null"_s});
    row("in a list",
        u"select Tag from qryIndex where Tag in ('ft-101', 'x', 'LT-103') order by "
        "Tag"_s,
        {u"FT-101"_s, u"LT-103"_s});
    row("not in a list",
        u"select Tag from qryIndex where Tag not in ('ft-101', 'LT-103')"_s,
        {u"PT-102"_s});
    row("not between",
        u"select Tag from qryIndex where Tag not between 'a' and 'M'"_s,
        {u"PT-102"_s});
    row("not like", u"select Tag from qryIndex where Tag not like '[a-m]T-*'"_s, {u"PT-102"_s});
    row("like digits", u"select Tag from qryIndex where Tag like '?t-##3'"_s, {u"LT-103"_s});
    row("xor",
        u"select Tag from qryIndex where Tag = 'FT-101' xor Location = 'field'"_s,
        {u"LT-103"_s});
    row("order of or and and",
        u"select Tag from qryIndex where Tag = 'FT-101' or Tag = 'LT-103' "
        "and Location = 'Panel'"_s,
        {u"FT-101"_s});
    row("greater or equal written backwards",
        u"select Tag from qryIndex where Tag => 'PT-102'"_s,
        {u"PT-102"_s});
    row("text without case in a foreign table",
        u"select TAG_ from PID_Components_Instruments where SERVICE_ = 'STEAM'"_s,
        {u"102"_s});
    row("order of a foreign table",
        u"select FUNCTION_ from PID_Components_Instruments where ID_COUNT_ <> 3 order by "
        "lcase(FUNCTION_) desc"_s,
        {u"XX"_s, u"PT"_s, u"FT"_s});
    // ---- functions
    row("nz and iif",
        u"select Nz(TagPath, 'none'), IIf(TagPath Is Null, 'a', 'b'), Nz(TagPath), "
        "IsNull(TagPath) from index where PlantItemNo = 'PT-102'"_s,
        {u"none|a||-1"_s});
    row("pieces of texts",
        u"select Len('FT-101'), Mid('FT-101', 4), Mid('FT-101', 1, 2), Left('FT-101', 2), "
        "Right('FT-101', 3), InStr('FT-101', 't'), UCase('aé'), LCase('AÉ')"_s,
        {u"6|101|FT|FT|101|2|AÉ|aé"_s});
    row("left and right beside joins",
        u"select Left(i.Tag, 2), Right(i.Tag, 1) from qryIndex i left join itemDocXRef x on "
        "Left(i.Tag, 6) = x.PlantItemNo where x.docNo is null"_s,
        {u"PT|2"_s});
    row("date functions",
        u"select Year(Date), Month(Date), Day(Date) from qryIndexRev where RevNo = 'A'"_s,
        {u"2024|1|31"_s});
    row("now is later",
        u"select IIf(Now() >= Date(), 'ok', 'bad'), IIf(Date() > #1/1/2024#, "
        "'ok', 'bad')"_s,
        {u"ok|ok"_s});
}

void TestDialect::dialectMeansWhatItSays()
{
    QFETCH(QString, statement);
    QFETCH(QStringList, rows);
    const MemoryProject project;
    QCOMPARE(project.run(statement), rows);
}

void TestDialect::actionsOfTheDialectWork_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QByteArray>("check");
    QTest::addColumn<QStringList>("rows");
    const auto row = [](const char* name,
                        const QString& statement,
                        const QByteArray& check,
                        const QStringList& rows) {
        QTest::newRow(name) << statement << check << rows;
    };
    const QByteArray tags = "SELECT PlantItemNo FROM \"index\" ORDER BY 1";
    row("delete with a star",
        u"delete * from index where PlantItemNo = 'ft-101'"_s,
        tags,
        {u"LT-103"_s, u"PT-102"_s});
    row("delete with an alias",
        u"delete i.* from index as i where i.Location = 'Panel'"_s,
        tags,
        {u"FT-101"_s, u"LT-103"_s});
    row("delete all", u"DELETE FROM index;"_s, tags, {});
    row("insert a select",
        u"insert into plDocType (docType) select PlantItemNo & '!' from index where Location = "
        "'Panel'"_s,
        "SELECT docType FROM plDocType WHERE docType LIKE '*!'",
        {u"PT-102!"_s});
    row("update through a join",
        u"update document inner join itemDocXRef on document.docNo = itemDocXRef.docNo set "
        "document.Title = itemDocXRef.PlantItemNo where itemDocXRef.context is null"_s,
        "SELECT docNo, Title FROM document WHERE Title IS NOT NULL",
        {u"PID-1|FT-101"_s});
    row("update through a join with aliases",
        u"update itemDocXRef as x inner join document as d on d.docNo = x.docNo set x.context = "
        "d.docType where x.context is null"_s,
        "SELECT context FROM itemDocXRef WHERE docNo = 'PID-1'",
        {u"PID"_s});
    row("update through an outer join",
        u"update index left join itemDocXRef on index.PlantItemNo = itemDocXRef.PlantItemNo set "
        "index.Location = 'none' where itemDocXRef.docNo is null"_s,
        "SELECT PlantItemNo FROM \"index\" WHERE Location = 'none'",
        {u"PT-102"_s});
    row("set an expression",
        u"update DsType set ReportNum = ReportNum + 10, FileName = 'x' & "
        "FileName where ReportNum > 1"_s,
        "SELECT ReportNum, FileName FROM DsType ORDER BY 1",
        {u"1|flow.xlt"_s, u"12|xlevel.xlt"_s});
    row("set a comparison",
        u"update ProjectInfo set static = (attributeName = 'plant')"_s,
        "SELECT attributeName FROM ProjectInfo WHERE static = -1",
        {u"plant"_s});
}

void TestDialect::actionsOfTheDialectWork()
{
    QFETCH(QString, statement);
    QFETCH(QByteArray, check);
    QFETCH(QStringList, rows);
    const MemoryProject project;
    QCOMPARE(project.run(statement), QStringList());
    QCOMPARE(project.rowsOf(check), rows);
}

QTEST_APPLESS_MAIN(TestDialect)
#include "tst_dialect.moc"
