// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/equal_instruments.h"
#include "pid/pid_file.h"
#include "pid/populate_lines.h"
#include "store/database.h"
#include "store/recordset.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand;
using pid::EqualInstruments;
using pid::Instrument;
using tests::PidFile;

namespace {

/// Pieces of texts that may or may not be equal to each other.
const QStringList& pieces()
{
    static const QStringList all{
        u""_s,  u" "_s,  u"a"_s,      u"A"_s,   u"a "_s,      u"ä"_s,   u"Ä"_s,  u"ss"_s,
        u"ß"_s, u"-"_s,  u"a-"_s,     u"æ"_s,   u"AE"_s,      u"σ"_s,   u"ς"_s,  u"Σ"_s,
        u"İ"_s, u"ı"_s,  u"\u00A0"_s, u"é"_s,   u"e\u0301"_s, u"流"_s,  u"𐐀"_s,  u"𐐨"_s,
        u"*"_s, u"?a"_s, u"#"_s,      u"[a]"_s, u"]"_s,       u"!"_s,   u"\""_s, u"%"_s,
        u"_"_s, u"\\"_s, u"|"_s,      u"1"_s,   u"01"_s,      u"1.0"_s, u"\t"_s, u"a\nb"_s};
    return all;
}

} // namespace

class TestPopulateLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countingBeforehandFindsWhatTheStatementFinds();
    void numbersAreCountedAsTheStatementCountsThem();
    void detailsStandBesideTheirLines();
    void aSecondGroupOfEqualsBeginsAnew();
    void manyInstrumentsAreListed();
};

void TestPopulateLines::countingBeforehandFindsWhatTheStatementFinds()
{
    PidFile file;
    std::vector<tests::PidRow> rows;
    for (const QString& piece : pieces()) {
        rows.push_back({piece, u"1"_s, {}});
        rows.push_back({u"F"_s, piece, {}});
        rows.push_back({u"F"_s, u"x"_s + piece, {}});
        rows.push_back({piece, piece, {}});
    }
    file.fill(rows);
    std::vector<Instrument> instruments;
    for (const tests::PidRow& row : rows)
        instruments.push_back({*row.function, *row.tag, {}, {}});
    const store::Database pid = store::DBEngine::OpenDatabase(file.path());
    const EqualInstruments equals(pid, false, instruments);
    // One more, whose number is left to the engine, has all others left to it too.
    std::vector<Instrument> others = instruments;
    others.push_back({1.5, u"1"_s, {}, {}});
    const EqualInstruments statements(pid, false, others);
    for (std::size_t i = 0; i < instruments.size(); ++i) {
        const QString shown = instruments[i].function.text() + u'|' + instruments[i].tag.text();
        QVERIFY2(equals.count(i) == statements.count(i), qPrintable(shown));
    }
    QCOMPARE(equals.count(0), 2); // '' and ' ' with the tag 1
}

void TestPopulateLines::numbersAreCountedAsTheStatementCountsThem()
{
    PidFile file;
    file.run(
        "DROP TABLE \"Components-Instruments\";"
        "CREATE TABLE \"Components-Instruments\" (ID_COUNT_ INTEGER, FUNCTION_ REAL, TAG_ REAL,"
        " SERVICE_ TEXT);"
        "INSERT INTO \"Components-Instruments\" VALUES (1, 1.5, 2.25, NULL), (2, 1.5, 2.25, NULL),"
        " (3, 2.5, 2.25, NULL)");
    const auto found =
        pid::readPopulateLines(store::DBEngine::OpenDatabase(file.path()), false).lines;
    QCOMPARE(found, (QStringList{u"1.5-2.25"_s, u"1.5-2.25(1)"_s, u"2.5-2.25"_s}));
}

void TestPopulateLines::detailsStandBesideTheirLines()
{
    PidFile file;
    file.fill({{u"B"_s, u"2"_s, u"Flow"_s}, {u"A"_s, u"1"_s, {}}, {u"B"_s, u"2"_s, u"Null"_s}});
    const auto found = pid::readPopulateLines(store::DBEngine::OpenDatabase(file.path()), false);
    QCOMPARE(found.lines, (QStringList{u"A-1"_s, u"B-2"_s, u"B-2(1)"_s}));
    const std::vector<pid::TagDetails> expected{{u"A-1(0)"_s, u"2"_s, u" "_s},
                                                {u"B-2(0)"_s, u"1"_s, u"Flow"_s},
                                                {u"B-2(1)"_s, u"3"_s, u" "_s}};
    QVERIFY(found.details == expected);
}

void TestPopulateLines::aSecondGroupOfEqualsBeginsAnew()
{
    PidFile file;
    file.fill({{u"A"_s, u"1"_s, {}},
               {u"A"_s, u"1"_s, {}},
               {u"B"_s, u"1"_s, {}},
               {u"B"_s, u"1"_s, {}},
               {u"B"_s, u"2"_s, {}}});
    QCOMPARE(pid::readPopulateLines(store::DBEngine::OpenDatabase(file.path()), false).lines,
             (QStringList{u"A-1"_s, u"A-1(1)"_s, u"B-1"_s, u"B-1(1)"_s, u"B-2"_s}));
}

void TestPopulateLines::manyInstrumentsAreListed()
{
    constexpr int count = 20000; // one statement each would outlast any patience
    PidFile file;
    std::vector<tests::PidRow> rows;
    for (int i = 0; i < count; ++i)
        rows.push_back({u"TI"_s, QString::number(i / 2).rightJustified(6, u'0'), {}});
    file.fill(rows);
    const auto found =
        pid::readPopulateLines(store::DBEngine::OpenDatabase(file.path()), false).lines;
    QCOMPARE(found.size(), count);
    QCOMPARE(found.last(), u"TI-009999(1)"_s);
}

QTEST_GUILESS_MAIN(TestPopulateLines)
#include "tst_populate_lines.moc"
