// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "store/memory_project.h"
#include "store/value.h"

#include <QElapsedTimer>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;
using namespace ostrand::tests;
using ostrand::store::Value;

class TestFunctions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsYieldTheirValues_data();
    void callsYieldTheirValues();
    void callsThatCannotBeAnsweredFail_data();
    void callsThatCannotBeAnsweredFail();
    void likeKnowsItsWildcards_data();
    void likeKnowsItsWildcards();
    void likeWithNullIsNull();
    void hostilePatternsEndSoon();
    void patternsAreKeptPerStatement();
    void firstAndLastKeepTheRowsOrder();
    void spreadsLeaveNullsOut();
    void valuesReadAsTextsAndNumbers();
    void errorsCarryNumberAndDescription();
};

void TestFunctions::callsYieldTheirValues_data()
{
    QTest::addColumn<QString>("value");
    const auto row = [](const QString& expression, const QString& value) {
        QTest::newRow(qPrintable(expression)) << value;
    };
    row(u"Len(Null)"_s, u"Null"_s);
    row(u"Len('äöü')"_s, u"3"_s);
    row(u"Len(125)"_s, u"3"_s);
    row(u"Mid('abc', 9)"_s, u""_s);
    row(u"Mid('abc', 2, 99)"_s, u"bc"_s);
    row(u"Left('abc', 0)"_s, u""_s);
    row(u"Right('abc', 9)"_s, u"abc"_s);
    row(u"Trim('  a b  ') & '|'"_s, u"a b|"_s);
    row(u"LTrim('  a ') & '|'"_s, u"a |"_s);
    row(u"RTrim('  a ') & '|'"_s, u"  a|"_s);
    row(u"InStr('abcABC', 'B')"_s, u"2"_s);
    row(u"InStr(3, 'abcABC', 'b')"_s, u"5"_s);
    row(u"InStr(1, 'abcABC', 'B', 0)"_s, u"5"_s);
    row(u"InStr('abc', 'x')"_s, u"0"_s);
    row(u"InStr('abc', '')"_s, u"1"_s);
    row(u"InStr(Null, 'x')"_s, u"Null"_s);
    row(u"Replace('aXbxc', 'x', '--')"_s, u"a--b--c"_s);
    row(u"Replace('aXbxc', 'x', '-', 1, 1)"_s, u"a-bxc"_s);
    row(u"Replace('aXbxc', 'x', '-', 1, -1, 0)"_s, u"aXb-c"_s);
    row(u"Replace('aaa', 'a', 'aa')"_s, u"aaaaaa"_s);
    row(u"StrComp('a', 'B')"_s, u"-1"_s);
    row(u"StrComp('a', 'A')"_s, u"0"_s);
    row(u"StrComp('a', 'A', 0)"_s, u"1"_s);
    row(u"Asc('A')"_s, u"65"_s);
    row(u"Chr(65) & Chr(233)"_s, u"A\u00e9"_s);
    row(u"UCase('ß')"_s, u"SS"_s);
    row(u"Val('12.5 bar')"_s, u"12.5"_s);
    row(u"Val('  - 3')"_s, u"-3.0"_s);
    row(u"Val('bar')"_s, u"0.0"_s);
    row(u"Val('1e3x')"_s, u"1000.0"_s);
    row(u"CStr(1.50)"_s, u"1.5"_s);
    row(u"CLng('2.5')"_s, u"2"_s);
    row(u"CLng(3.5)"_s, u"4"_s);
    row(u"CInt(-2.6)"_s, u"-3"_s);
    row(u"CDbl('1.25')"_s, u"1.25"_s);
    row(u"CBool('True')"_s, u"-1"_s);
    row(u"CBool(0)"_s, u"0"_s);
    row(u"Int(-1.5)"_s, u"-2"_s);
    row(u"Fix(-1.5)"_s, u"-1"_s);
    row(u"Abs(-3)"_s, u"3"_s);
    row(u"Round(2.5)"_s, u"2.0"_s);
    row(u"Round(2.345, 1)"_s, u"2.3"_s);
    row(u"9223372036854775807 + 1 > 0"_s, u"-1"_s);
    row(u"Year('2024-02-29 10:00:00')"_s, u"2024"_s);
    row(u"Month(#3/4/2024#)"_s, u"3"_s);
    row(u"Day(45000)"_s, u"15"_s);
    row(u"Year(Null)"_s, u"Null"_s);
    row(u"Format(#3/4/2024#, 'dd.mm.yyyy')"_s, u"04.03.2024"_s);
    row(u"Format(#3/4/2024 15:07#, 'd mmm yy hh:mm')"_s, u"4 Mar 24 15:07"_s);
    row(u"Format(#3/4/2024 15:07:09#, 'h:nn:ss AM/PM')"_s, u"3:07:09 PM"_s);
    row(u"Format(#3/4/2024#, 'dddd, mmmm d')"_s, u"Monday, March 4"_s);
    row(u"Format(1234.5, '#,##0.00')"_s, u"1,234.50"_s);
    row(u"Format(7, '000')"_s, u"007"_s);
    row(u"Format(0.125, '0.0%')"_s, u"12.5%"_s);
    row(u"Format(1.5, '0.##')"_s, u"1.5"_s);
    row(u"Format(2, '0.##')"_s, u"2"_s);
    row(u"Format(-3, '0;(0)')"_s, u"(3)"_s);
    row(u"Format('12', '0.0')"_s, u"12.0"_s);
    row(u"Format('abc', '>')"_s, u"ABC"_s);
    row(u"Format(-1, 'Yes/No')"_s, u"Yes"_s);
    row(u"Format(Null, '0')"_s, u""_s);
    row(u"Format('text', '0')"_s, u"text"_s);
}

void TestFunctions::callsYieldTheirValues()
{
    QFETCH(QString, value);
    const QString expression = QString::fromUtf8(QTest::currentDataTag());
    const MemoryProject project(false);
    QCOMPARE(project.run(u"select "_s + expression), QStringList{value});
}

void TestFunctions::callsThatCannotBeAnsweredFail_data()
{
    QTest::addColumn<QString>("expression");
    for (const char* expression : {"Mid('abc', 0)",
                                   "Left('abc', -1)",
                                   "Mid('abc', 1, -1)",
                                   "InStr(0, 'a', 'a')",
                                   "Asc('')",
                                   "Chr(256)",
                                   "Chr(-1)",
                                   "CLng('x')",
                                   "CInt(40000)",
                                   "Year('x')",
                                   "'a' + 1",
                                   "Round(1, -1)",
                                   "'x' \\ 2"})
        QTest::newRow(expression) << QString::fromUtf8(expression);
}

void TestFunctions::callsThatCannotBeAnsweredFail()
{
    QFETCH(QString, expression);
    const MemoryProject project(false);
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, project.run(u"select "_s + expression));
}

void TestFunctions::likeKnowsItsWildcards_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("matches");
    const auto row = [](const QString& text, const QString& pattern, bool matches) {
        QTest::addRow("%s like %s", qPrintable(text), qPrintable(pattern))
            << text << pattern << matches;
    };
    row(u"FT-101"_s, u"ft-101"_s, true);
    row(u"FT-101"_s, u"FT-1*"_s, true);
    row(u"FT-101"_s, u"*01"_s, true);
    row(u"FT-101"_s, u"*-*-*"_s, false);
    row(u"FT-101"_s, u"F?-101"_s, true);
    row(u"FT-101"_s, u"FT-##1"_s, true);
    row(u"FT-1a1"_s, u"FT-##1"_s, false);
    row(u"FT-101"_s, u"[a-f]t*"_s, true);
    row(u"FT-101"_s, u"[A-E]t*"_s, false);
    row(u"FT-101"_s, u"[!a-e]t*"_s, true);
    row(u"FT-101"_s, u"[!f]*"_s, false);
    row(u"a*b"_s, u"a[*]b"_s, true);
    row(u"axb"_s, u"a[*]b"_s, false);
    row(u"a[b"_s, u"a[[]b"_s, true);
    row(u"a[b"_s, u"a[b"_s, true);
    row(u"a-b"_s, u"a[x-]b"_s, true);
    row(u"a!b"_s, u"a[!]b"_s, true);
    row(u"ab"_s, u"a[]b"_s, true);
    row(u"100%"_s, u"100%"_s, true);
    row(u"1005"_s, u"100%"_s, false);
    row(u"a_b"_s, u"a_b"_s, true);
    row(u"axb"_s, u"a_b"_s, false);
    row(u""_s, u""_s, true);
    row(u""_s, u"*"_s, true);
    row(u""_s, u"?"_s, false);
    row(u"a"_s, u""_s, false);
    row(u"ÉTÉ"_s, u"été"_s, true);
    row(u"ete"_s, u"été"_s, false);
    row(u"КЛАПАН"_s, u"кл?пан"_s, true);
    row(u"mississippi"_s, u"*iss*ip*"_s, true);
    row(u"aab"_s, u"*ab"_s, true);
}

void TestFunctions::likeKnowsItsWildcards()
{
    QFETCH(QString, text);
    QFETCH(QString, pattern);
    QFETCH(bool, matches);
    const MemoryProject project(false);
    const QStringList expected{matches ? u"1"_s : u"0"_s};
    QCOMPARE(project.rowsOf("SELECT ?1 LIKE ?2", {text, pattern}), expected);
}

void TestFunctions::likeWithNullIsNull()
{
    const MemoryProject project(false);
    QCOMPARE(project.run(u"select Null like '*', 'a' like Null"_s), QStringList{u"Null|Null"_s});
}

void TestFunctions::hostilePatternsEndSoon()
{
    const MemoryProject project(false);
    const QString text = u"a"_s.repeated(20'000);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(project.rowsOf("SELECT ?1 LIKE ?2", {text, u"*a"_s.repeated(500) + u"b"_s}),
             QStringList{u"0"_s});
    QCOMPARE(project.rowsOf("SELECT ?1 LIKE ?2", {text, u"*[!b]"_s.repeated(500) + u"b"_s}),
             QStringList{u"0"_s});
    QVERIFY(timer.elapsed() < 5'000);
    QVERIFY_THROWS_EXCEPTION(std::runtime_error,
                             project.rowsOf("SELECT ?1 LIKE ?2", {text, u"*a"_s.repeated(50'000)}));
}

void TestFunctions::patternsAreKeptPerStatement()
{
    const MemoryProject project;
    QCOMPARE(project.run(u"select count(*) from document where docNo like docType & '*'"_s),
             QStringList{u"1"_s});
    QCOMPARE(project.run(u"select count(*) from document where docNo like 'P*'"_s),
             QStringList{u"2"_s});
}

void TestFunctions::firstAndLastKeepTheRowsOrder()
{
    const MemoryProject project(false);
    project.execute("CREATE TABLE t (g INTEGER, a TEXT);"
                    "INSERT INTO t VALUES (1, 'x'), (1, NULL), (2, 'z'), (1, 'y')");
    QCOMPARE(project.run(u"select g, First(a), Last(a) from t group by g order by g"_s),
             (QStringList{u"1|x|y"_s, u"2|z|z"_s}));
    QCOMPARE(project.run(u"select First(a), Last(a) from t where g = 9"_s),
             QStringList{u"Null|Null"_s});
}

void TestFunctions::spreadsLeaveNullsOut()
{
    const MemoryProject project(false);
    project.execute("CREATE TABLE t (a REAL); INSERT INTO t VALUES (2), (NULL), (4), (6)");
    QCOMPARE(
        project.run(u"select Var(a), StDev(a), Round(VarP(a), 4), Round(StDevP(a), 4) from t"_s),
        QStringList{u"4.0|2.0|2.6667|1.633"_s});
    QCOMPARE(project.run(u"select Var(a), VarP(a) from t where a = 2"_s),
             QStringList{u"Null|0.0"_s});
}

void TestFunctions::valuesReadAsTextsAndNumbers()
{
    QCOMPARE(Value().text(), u""_s);
    QVERIFY(Value().isNullOrEmpty() && Value(u""_s).isNullOrEmpty());
    QVERIFY(!Value(0).isNullOrEmpty());
    QCOMPARE(Value(true).integer(), -1);
    QCOMPARE(Value(1.5).text(), u"1.5"_s);
    QCOMPARE(Value(2.0).text(), u"2"_s);
    QCOMPARE(Value(0.1).text(), u"0.1"_s);
    QCOMPARE(Value(u" 12 "_s).number(), 12.0);
    QCOMPARE(Value(u"x"_s).number(), 0.0);
    QCOMPARE(Value(u"9007199254740993"_s).integer(), 9007199254740993);
    QCOMPARE(Value(2.5).integer(), 2);
    QCOMPARE(Value(3.5).integer(), 4);
    QCOMPARE(Value(1e300).integer(), std::numeric_limits<qint64>::max());
    QCOMPARE(Value(-1e300).integer(), std::numeric_limits<qint64>::min());
    QCOMPARE(Value(std::numeric_limits<double>::quiet_NaN()).integer(), 0);
    QVERIFY(Value(-1).flag() && !Value(u"0"_s).flag());
    QVERIFY(Value(u"a"_s) != Value(u"A"_s));
    QVERIFY(Value(1) != Value(1.0));
}

void TestFunctions::errorsCarryNumberAndDescription()
{
    const ostrand::store::Error error(3021, u"Kein Satz für \u00e9"_s);
    QCOMPARE(error.number(), 3021);
    QCOMPARE(QString::fromUtf8(error.what()), error.description());
}

QTEST_APPLESS_MAIN(TestFunctions)
#include "tst_functions.moc"
