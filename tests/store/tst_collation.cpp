// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/collation.h"
#include "store/collation_table.h"
#include "store/folding.h"
#include "store/memory_project.h"
#include "store/text_reader.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <random>
#include <vector>

using namespace Qt::StringLiterals;
using namespace ostrand::tests;
using ostrand::store::compareText;
using ostrand::store::sameText;

namespace {

int signOf(int order)
{
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

/// Characters that meet every branch of the order: letters in both cases, marks that count last,
/// blanks, accents, characters for two letters, other scripts, surrogates alone and in pairs.
QString randomText(std::mt19937& random)
{
    static const QString alphabet =
        u"aAbBfFtT019 -'._/#\u00e9\u00c9\u00e4\u00c6\u00e6\u00df\u00fe\u00ff\u0178\u00ad\u0001"_s
        + QString(QChar(u'\0')) + u"\u03b1\u0391\u0436\u0416\u4e2d\uffff\u017f"_s
        + QString::fromUcs4(U"\U0001F600\U00010400\U00010428", 3) + QChar(0xd800) + QChar(0xdc00);
    QString text;
    const auto length = static_cast<int>(random() % 7);
    for (int i = 0; i < length; ++i)
        text += alphabet[static_cast<qsizetype>(random() % static_cast<unsigned>(alphabet.size()))];
    return text;
}

/// The whole key of a text, built the plain way: codes, accents, and what counts last.
std::vector<std::uint64_t> keyOf(QString text)
{
    namespace tables = ostrand::store::collation;
    while (text.endsWith(u' '))
        text.chop(1);
    std::vector<std::uint64_t> codes;
    std::vector<std::uint64_t> accents;
    std::vector<std::uint64_t> last;
    for (ostrand::store::Utf16Reader reader(text); !reader.atEnd();) {
        const char32_t character = reader.next();
        const char32_t folded = character > 0xff ? ostrand::store::foldCase(character) : character;
        if (folded > 0xff) {
            codes.push_back(0x10000 + folded);
            accents.push_back(2);
        } else if (tables::latinCodes[folded] == 0) {
            last.insert(last.end(), {accents.size() + 1, tables::latinMarks[folded]});
        } else {
            codes.push_back(tables::latinCodes[folded]);
            if (tables::secondCode(folded) != 0)
                codes.push_back(tables::secondCode(folded));
            accents.push_back(tables::latinMarks[folded]);
        }
    }
    while (!accents.empty() && accents.back() == 2)
        accents.pop_back();
    codes.push_back(0);
    codes.insert(codes.end(), accents.begin(), accents.end());
    codes.push_back(0);
    codes.insert(codes.end(), last.begin(), last.end());
    return codes;
}

} // namespace

class TestCollation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tagsComeInTheirKnownOrder();
    void textsThatCountAsEqual_data();
    void textsThatCountAsEqual();
    void textsThatDiffer_data();
    void textsThatDiffer();
    void latinComesInTheOrderOfItsCodes();
    void theOrderIsThatOfWholeKeys();
    void theOrderIsTotal();
    void upperAndLowerCaseAreEqualInManyScripts();
    void bothEncodingsGiveOneOrder();
    void brokenUtf8KeepsATotalOrder();
    void uniqueIndexesRefuseOtherCase();
    void sortingManyTagsIsFast();
};

void TestCollation::tagsComeInTheirKnownOrder()
{
    const QStringList tags{u"FT 101"_s,
                           u"FT.101"_s,
                           u"FT_101"_s,
                           u"FT100"_s,
                           u"FT101"_s,
                           u"FT-101"_s,
                           u"FT-101A"_s,
                           u"Ft-102"_s,
                           u"FT-99"_s};
    for (int i = 0; i < tags.size(); ++i) {
        for (int j = 0; j < tags.size(); ++j) {
            const int expected = i < j ? -1 : (i > j ? 1 : 0);
            QVERIFY2(signOf(compareText(tags[i], tags[j])) == expected,
                     qPrintable(tags[i] + u" ? " + tags[j]));
        }
    }
}

void TestCollation::textsThatCountAsEqual_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::newRow("case") << u"Ft-101a"_s << u"fT-101A"_s;
    QTest::newRow("blanks at the end") << u"PT  "_s << u"PT"_s;
    QTest::newRow("only blanks") << u"   "_s << u""_s;
    QTest::newRow("accented case") << u"\u00c9t\u00e9"_s << u"\u00e9T\u00c9"_s;
    QTest::newRow("sharp s") << u"Stra\u00dfe"_s << u"STRASSE"_s;
    QTest::newRow("ligature") << u"\u00c6on"_s << u"aeon"_s;
    QTest::newRow("thorn") << u"\u00deor"_s << u"thor"_s;
    QTest::newRow("capital beyond Latin-1 of a letter within") << u"\u0178"_s << u"\u00ff"_s;
    QTest::newRow("Cyrillic") << u"\u041a\u041b\u0410\u041f\u0410\u041d"_s
                              << u"\u043a\u043b\u0430\u043f\u0430\u043d"_s;
    QTest::newRow("sharp s, marks behind it at the same place") << u"\u00df-"_s << u"\u00df-"_s;
}

void TestCollation::textsThatCountAsEqual()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QCOMPARE(compareText(a, b), 0);
    QCOMPARE(compareText(b, a), 0);
}

void TestCollation::textsThatDiffer_data()
{
    QTest::addColumn<QString>("less");
    QTest::addColumn<QString>("greater");
    QTest::newRow("accents count") << u"resume"_s << u"r\u00e9sume"_s;
    QTest::newRow("letters count before accents") << u"\u00e9a"_s << u"eb"_s;
    QTest::newRow("an accent further in front counts more") << u"e\u00e9"_s << u"\u00e9e"_s;
    QTest::newRow("grave behind acute") << u"\u00e9"_s << u"\u00e8"_s;
    QTest::newRow("blanks in front count") << u" a"_s << u"a"_s;
    QTest::newRow("blanks within count") << u"a b"_s << u"ab"_s;
    QTest::newRow("shorter first") << u"FT"_s << u"FT-"_s;
    QTest::newRow("hyphens count by their place") << u"F-T1"_s << u"FT-1"_s;
    QTest::newRow("apostrophe before hyphen") << u"a'b"_s << u"a-b"_s;
    QTest::newRow("hyphens count behind accents") << u"a-e"_s << u"a\u00e9"_s;
    QTest::newRow("digits before letters") << u"9"_s << u"a"_s;
    QTest::newRow("underscore before digits") << u"_"_s << u"0"_s;
    QTest::newRow("beyond Latin-1 last") << u"zz"_s << u"\u0100"_s;
    QTest::newRow("code points and not units")
        << u"\uffee"_s << QString::fromUcs4(U"\U0001F600", 1);
    QTest::newRow("a character of no place") << u"a"_s << QString(u"a"_s + QChar(u'\0'));
    QTest::newRow("nothing first") << u""_s << u"!"_s;
}

void TestCollation::textsThatDiffer()
{
    QFETCH(QString, less);
    QFETCH(QString, greater);
    QVERIFY(compareText(less, greater) < 0);
    QVERIFY(compareText(greater, less) > 0);
}

/// The printable characters, as an index of them stands in a file of the older engine.
void TestCollation::latinComesInTheOrderOfItsCodes()
{
    const QString order =
        u" !\"#$%&()*,./:;?@[\\]^_`{|}~\u00a1\u00a6\u00a8\u00af\u00b4\u00b8\u00bf+<=>\u00b1"
        u"\u00ab\u00bb\u00d7\u00f7\u00a2\u00a3\u00a4\u00a5\u00a7\u00a9\u00ac\u00ae\u00b0\u00b5"
        u"\u00b6\u00b70\u00bc\u00bd\u00be123456789abcdefghijklmnopqrstuvwxyz"_s;
    for (qsizetype i = 0; i + 1 < order.size(); ++i) {
        const QString a = order.mid(i, 1) + u'x';
        const QString b = order.mid(i + 1, 1) + u'x';
        QVERIFY2(compareText(a, b) < 0, qPrintable(a + u" < "_s + b));
    }
}

void TestCollation::theOrderIsThatOfWholeKeys()
{
    std::mt19937 random(99);
    for (int i = 0; i < 200'000; ++i) {
        const QString front = randomText(random);
        const QString a = front + randomText(random);
        const QString b = (random() % 2 == 0 ? front.toUpper() : front) + randomText(random);
        const auto keyA = keyOf(a);
        const auto keyB = keyOf(b);
        const int expected = keyA < keyB ? -1 : (keyB < keyA ? 1 : 0);
        const QByteArray shown = a.toUtf8() + " ? " + b.toUtf8();
        QVERIFY2(signOf(compareText(a, b)) == expected, shown.toHex(' ').constData());
    }
}

void TestCollation::theOrderIsTotal()
{
    std::mt19937 random(20260101);
    for (int i = 0; i < 200'000; ++i) {
        const QString a = randomText(random);
        const QString b = randomText(random);
        const QString c = randomText(random);
        const int ab = signOf(compareText(a, b));
        const int bc = signOf(compareText(b, c));
        const int ac = signOf(compareText(a, c));
        QVERIFY(compareText(a, a) == 0);
        QCOMPARE(signOf(compareText(b, a)), -ab);
        if (ab == bc)
            QVERIFY2(ac == ab, qPrintable(a + u'|' + b + u'|' + c));
        if (ab == 0)
            QVERIFY2(ac == bc, qPrintable(a + u'|' + b + u'|' + c));
    }
}

void TestCollation::upperAndLowerCaseAreEqualInManyScripts()
{
    const QList<std::pair<QString, QString>> pairs{
        {u"\u0141\u00d3D\u0179"_s, u"\u0142\u00f3d\u017a"_s},
        {u"\u0391\u03a9"_s, u"\u03b1\u03c9"_s},
        {u"\u03a3"_s, u"\u03c2"_s},
        {u"\u0402\u042f"_s, u"\u0452\u044f"_s},
        {u"\u0531\u0556"_s, u"\u0561\u0586"_s},
        {u"\u10a0"_s, u"\u2d00"_s},
        {u"\uff21\uff3a"_s, u"\uff41\uff5a"_s},
        {u"\u1e9e"_s, u"\u00df"_s},
        {u"\u212a"_s, u"k"_s},
        {QString::fromUcs4(U"\U00010400", 1), QString::fromUcs4(U"\U00010428", 1)},
    };
    for (const auto& [upper, lower] : pairs) {
        QVERIFY2(sameText(upper, lower), qPrintable(upper + lower));
        QCOMPARE(ostrand::store::foldCase(QStringView(upper)),
                 ostrand::store::foldCase(QStringView(lower)));
    }
    QVERIFY(!sameText(u"\u00d7", u"\u00f7")); // the signs for times and divided are no letters
    QVERIFY(!sameText(u"\u0430", u"a"));
}

void TestCollation::bothEncodingsGiveOneOrder()
{
    const MemoryProject project(false);
    const auto statement = project.prepare("SELECT ?1 < ?2 COLLATE JET, ?1 = ?2 COLLATE JET", {});
    std::mt19937 random(7);
    for (int i = 0; i < 20'000; ++i) {
        // Surrogates alone have no form in UTF-8.
        const QString a = QString::fromUtf8(randomText(random).toUtf8());
        const QString b = QString::fromUtf8(randomText(random).toUtf8());
        const QByteArray a8 = a.toUtf8();
        const QByteArray b8 = b.toUtf8();
        sqlite3_reset(statement.get());
        sqlite3_bind_text(
            statement.get(), 1, a8.constData(), static_cast<int>(a8.size()), SQLITE_STATIC);
        sqlite3_bind_text(
            statement.get(), 2, b8.constData(), static_cast<int>(b8.size()), SQLITE_STATIC);
        QCOMPARE(sqlite3_step(statement.get()), SQLITE_ROW);
        const int order = compareText(a, b);
        QCOMPARE(sqlite3_column_int(statement.get(), 0) != 0, order < 0);
        QCOMPARE(sqlite3_column_int(statement.get(), 1) != 0, order == 0);
    }
}

void TestCollation::brokenUtf8KeepsATotalOrder()
{
    const MemoryProject project(false);
    project.execute("CREATE TABLE t (a TEXT COLLATE JET)");
    std::mt19937 random(11);
    const auto insert = project.prepare("INSERT INTO t VALUES (?1)", {});
    for (int i = 0; i < 3'000; ++i) {
        static const QByteArray bytes("aA-\x80\xc3\xa9\xe2\x82\xac\xf0\x9f\xff\xed\xa0\xc0\0 ", 17);
        QByteArray text;
        for (auto length = static_cast<int>(random() % 6); length > 0; --length)
            text += bytes[static_cast<qsizetype>(random() % 17)];
        sqlite3_reset(insert.get());
        sqlite3_bind_text(
            insert.get(), 1, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
        QCOMPARE(sqlite3_step(insert.get()), SQLITE_DONE);
    }
    project.execute("CREATE INDEX i ON t (a)");
    QCOMPARE(project.rowsOf("PRAGMA integrity_check"), QStringList{u"ok"_s});
    const QStringList falls = project.rowsOf("SELECT count(*) FROM (SELECT a, lag(a) OVER (ORDER "
                                             "BY a) AS b FROM t) WHERE b COLLATE JET > a");
    QCOMPARE(falls, QStringList{u"0"_s});
}

void TestCollation::uniqueIndexesRefuseOtherCase()
{
    const MemoryProject project;
    QVERIFY_THROWS_EXCEPTION(std::exception,
                             project.execute("INSERT INTO plDocType VALUES ('loop dwg  ')"));
    project.execute("INSERT INTO plDocType VALUES ('loop-dwg')");
}

void TestCollation::sortingManyTagsIsFast()
{
    const MemoryProject project(false);
    project.execute("CREATE TABLE t (a TEXT)");
    project.execute("BEGIN");
    std::mt19937 random(3);
    const auto insert = project.prepare("INSERT INTO t VALUES (?1)", {});
    for (int i = 0; i < 100'000; ++i) {
        const auto number = static_cast<unsigned>(random() % 100'000);
        const QByteArray tag = QByteArray(number % 3 ? "FT" : "PIC") + '-'
                               + QByteArray::number(number).rightJustified(5, '0');
        sqlite3_reset(insert.get());
        sqlite3_bind_text(
            insert.get(), 1, tag.constData(), static_cast<int>(tag.size()), SQLITE_TRANSIENT);
        sqlite3_step(insert.get());
    }
    project.execute("COMMIT");

    QElapsedTimer timer;
    timer.start();
    const auto sorted = project.prepare("SELECT rowid FROM t ORDER BY a COLLATE JET", {});
    int rows = 0;
    while (sqlite3_step(sorted.get()) == SQLITE_ROW)
        ++rows;
    const qint64 milliseconds = timer.elapsed();
    QCOMPARE(rows, 100'000);
    qInfo("100,000 tags sorted in %lld ms", milliseconds);
    QVERIFY(milliseconds < 1'000); // ten times what it takes: slow machines pass, a slip does not
}

QTEST_APPLESS_MAIN(TestCollation)
#include "tst_collation.moc"
