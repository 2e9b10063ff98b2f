// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Values on their way through a data source, whatever server stands behind it.
#include "odbc_cases.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace ostrand::store;
using ostrand::tests::first;
using ostrand::tests::OdbcSource;
using ostrand::tests::openSource;
using ostrand::tests::sourceKind;

class TestOdbcValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nullIsNull();
    void numbersComeAsNumbers();
    void datesComeAsDates();
    void flagsComeAsFlags();
    void textsOfAllSortsComeWhole_data();
    void textsOfAllSortsComeWhole();
    void namesMayHaveOddCharacters();

private:
    std::unique_ptr<OdbcSource> m_source;
};

void TestOdbcValues::initTestCase()
{
    m_source = ostrand::tests::makeOdbcSource(sourceKind);
    m_source->makeInstrumentTable({{u"PT"_s, u"7"_s, 3, u"steam"_s}, {u"FT"_s, u"102"_s, {}, {}}},
                                  {u"Notes"_s});
}

void TestOdbcValues::nullIsNull()
{
    const auto rows = openSource().OpenRecordset(
        u"select ID_COUNT_, SERVICE_ from [PID_Components_Instruments] where TAG_='102'"_s);
    QVERIFY(rows->Field(0).isNull());
    QVERIFY(rows->Field(1).isNull());
}

void TestOdbcValues::numbersComeAsNumbers()
{
    m_source->run(u"DROP TABLE IF EXISTS numbers; CREATE TABLE numbers (whole integer, "
                  u"great bigint, real double precision, exact numeric(10,3), long numeric(30,0));"
                  u"INSERT INTO numbers VALUES (-7, 9007199254740993, 0.1, 12.5, 42),"
                  u" (NULL, NULL, NULL, NULL, NULL)"_s);
    const auto rows = openSource().OpenRecordset(u"select * from numbers"_s);
    QCOMPARE(rows->Field(u"whole"_s), Value(-7));
    QCOMPARE(rows->Field(u"great"_s).integer(), Q_INT64_C(9007199254740993));
    QCOMPARE(rows->Field(u"real"_s), Value(0.1));
    QCOMPARE(rows->Field(u"exact"_s).text(), u"12.5"_s);
    QCOMPARE(rows->Field(u"long"_s).text(), u"42"_s);
    rows->MoveNext();
    for (int i = 0; i < rows->FieldCount(); ++i)
        QVERIFY2(rows->Field(i).isNull(), qPrintable(rows->FieldName(i)));
}

void TestOdbcValues::datesComeAsDates()
{
    m_source->run(
        u"DROP TABLE IF EXISTS dates; CREATE TABLE dates (d date, t timestamp, m timestamp,"
        u" c time, n date); INSERT INTO dates VALUES ('2020-02-29', '2021-03-04 05:06:07',"
        u" '2021-03-04 00:00:00', '13:14:15', NULL)"_s);
    const auto rows = openSource().OpenRecordset(u"select * from dates"_s);
    QCOMPARE(rows->Field(u"d"_s), Value(u"2020-02-29"_s));
    QCOMPARE(rows->Field(u"t"_s), Value(u"2021-03-04 05:06:07"_s));
    QCOMPARE(rows->Field(u"m"_s), Value(u"2021-03-04"_s));
    QCOMPARE(rows->Field(u"c"_s), Value(u"1899-12-30 13:14:15"_s));
    QVERIFY(rows->Field(u"n"_s).isNull());
}

void TestOdbcValues::flagsComeAsFlags()
{
    const QString type = sourceKind == "sqlite"_L1 ? u"bit"_s : u"boolean"_s;
    const QString values = sourceKind == "sqlite"_L1 ? u"(1, 0, NULL)"_s : u"(true, false, NULL)"_s;
    m_source->run(u"DROP TABLE IF EXISTS flags; CREATE TABLE flags (yes "_s + type + u", no "_s
                  + type + u", none "_s + type + u"); INSERT INTO flags VALUES "_s + values);
    const auto rows = openSource().OpenRecordset(u"select * from flags"_s);
    QCOMPARE(rows->Field(u"yes"_s), Value(true));
    QCOMPARE(rows->Field(u"no"_s), Value(false));
    QVERIFY(rows->Field(u"none"_s).isNull());
}

void TestOdbcValues::textsOfAllSortsComeWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("quotes") << u"'O''Brien' said \"so\""_s;
    QTest::newRow("unicode") << u"Größe µ Ω 温度 \u0436"_s;
    QTest::newRow("beyond the first plane") << u"\U0001F600 and \U0001D11E"_s;
    QTest::newRow("signs of statements") << u"a;b [c] {d} ? % _ \\ -- /* #"_s;
    QTest::newRow("lines") << u"one\r\ntwo\tthree"_s;
    QTest::newRow("blanks") << u"  both ends  "_s;
    QTest::newRow("one piece") << QString(4095, u'x');
    QTest::newRow("a piece and a character") << QString(4096, u'y');
    QTest::newRow("ten thousand characters") << QString(5000, u'ä') + QString(5000, u'z');
    QTest::newRow("pairs over the end of a piece") << u"x"_s + u"\U0001F600"_s.repeated(3000);
}

void TestOdbcValues::textsOfAllSortsComeWhole()
{
    QFETCH(const QString, text);
    const QString literal = u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
    const QString update = u"UPDATE  [PID_Components_Instruments] SET Notes = "_s + literal
                           + u" WHERE FUNCTION_=  'PT' And TAG_ ='7';"_s;
    // SQLite's driver loses its way in statements with characters of two units.
    const bool canBeSaid =
        sourceKind != "sqlite"_L1
        || std::none_of(text.begin(), text.end(), [](QChar c) { return c.isSurrogate(); });
    const Database database = openSource();
    if (canBeSaid)
        database.ExecutePassThrough(update);
    else
        m_source->run(update);
    QCOMPARE(first(database, u"select Notes from [PID_Components_Instruments] where TAG_='7'"_s),
             Value(text));
    if (canBeSaid) {
        const QString count =
            u"select count(*) from [PID_Components_Instruments] where Notes = "_s + literal;
        QCOMPARE(first(database, count), Value(1));
    }
}

void TestOdbcValues::namesMayHaveOddCharacters()
{
    m_source->run(u"DROP TABLE IF EXISTS \"Odd-Table & 'Co' Größe\"; CREATE TABLE "
                  u"\"Odd-Table & 'Co' Größe\" (\"A b-c\" text, \"select\" text, \"a\"\"q\" text);"
                  u"INSERT INTO \"Odd-Table & 'Co' Größe\" VALUES ('1', '2', '3')"_s);
    const Database database = openSource();
    const auto rows =
        database.OpenRecordset(u"select [A b-c], [SELECT], [a\"q] from [odd-table & 'Co' Größe]"_s);
    QCOMPARE(rows->Field(0), Value(u"1"_s));
    QCOMPARE(rows->Field(1), Value(u"2"_s));
    QCOMPARE(rows->Field(2), Value(u"3"_s));
    database.ExecutePassThrough(u"update [Odd-Table & 'Co' Größe] set [A b-c] = '[A b-c]';"_s);
    QCOMPARE(first(database, u"select [A b-c] from [Odd-Table & 'Co' Größe]"_s),
             Value(u"[A b-c]"_s));
}

QTEST_GUILESS_MAIN(TestOdbcValues)
#include "tst_odbc_values.moc"
