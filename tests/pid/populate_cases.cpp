// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/populate_cases.h"

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

const std::vector<PidRow> pressureLoop{{u"PT"_s, u"1001"_s, u"Inlet gas"_s},
                                       {u"PIC"_s, u"1001"_s, u"Inlet gas control"_s},
                                       {u"PV"_s, u"1001"_s, u"Inlet gas valve"_s}};

const std::vector<PidRow> threeEquals{{u"TI"_s, u"2011"_s, u"First"_s},
                                      {u"TI"_s, u"2011"_s, u"Second"_s},
                                      {u"TI"_s, u"2011"_s, u"Third"_s},
                                      {u"TI"_s, u"2012"_s, u"Other"_s}};

/// Texts that a program might take for something else.
const QStringList& hardTags()
{
    static const QStringList tags{u"\"quoted\""_s,
                                  u"=1+1"_s,
                                  u"@SUM(A1)"_s,
                                  u"0042"_s,
                                  u"1E5"_s,
                                  u"2026-01-31"_s,
                                  u"100 %"_s,
                                  u"A;B--C"_s,
                                  u"Rücklauf °C"_s,
                                  u"Δp λ"_s,
                                  u"流量"_s,
                                  u"a\\b/c"_s,
                                  u"<b>&amp;"_s,
                                  u"{0} %1 &x"_s};
    return tags;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

} // namespace

void PopulateCases::init()
{
    m_source = m_makeSource();
    m_desk = std::make_unique<PopulateDesk>();
    m_desk->name(m_source->path());
}

void PopulateCases::cleanup()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    m_desk.reset();
    m_source.reset();
}

// ---- the list

void PopulateCases::instrumentsAreListedInTheOrderOfTheirTags()
{
    fill(pressureLoop);
    fill({{u"PT"_s, u"0999"_s, u"Earlier"_s}});
    QCOMPARE(m_desk->lines(),
             (QStringList{u"PIC-1001"_s, u"PT-0999"_s, u"PT-1001"_s, u"PV-1001"_s}));
    QCOMPARE(m_desk->texts(), QStringList());
}

void PopulateCases::whatLacksFunctionOrTagIsNotListed()
{
    fill({{u"PT"_s, {}, {}}, {{}, u"1001"_s, {}}, {{}, {}, {}}, {u"FT"_s, u"1"_s, {}}});
    QCOMPARE(m_desk->lines(), QStringList{u"FT-1"_s});
}

void PopulateCases::emptyTextsAreListed()
{
    fill({{u"PI"_s, u""_s, {}}, {u""_s, u"1077"_s, {}}});
    QCOMPARE(m_desk->lines(), (QStringList{u"-1077"_s, u"PI-"_s}));
}

void PopulateCases::equalInstrumentsAreNumbered()
{
    fill(threeEquals);
    QCOMPARE(m_desk->lines(),
             (QStringList{u"TI-2011"_s, u"TI-2011(1)"_s, u"TI-2011(2)"_s, u"TI-2012"_s}));
}

void PopulateCases::caseTellsInstrumentsApartWhereTheDatabaseSaysSo()
{
    fill({{u"TI"_s, u"20a"_s, {}}, {u"TI"_s, u"20A"_s, {}}});
    const QStringList lines = m_desk->lines().value_or(QStringList());
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.filter(u"(1)"_s).size(), m_source->ignoresCase() ? 1 : 0);
    QCOMPARE(lines.at(1).toUpper(), m_source->ignoresCase() ? u"TI-20A(1)"_s : u"TI-20A"_s);
}

void PopulateCases::aBlankAtTheEndTellsTagsApart()
{
    fill({{u"SDV"_s, u"2031"_s, {}}, {u"SDV"_s, u"2031 "_s, {}}});
    QCOMPARE(sorted(m_desk->lines().value_or(QStringList())),
             (QStringList{u"SDV-2031"_s, u"SDV-2031 "_s}));
}

void PopulateCases::textsAreListedAsTheyStand()
{
    QStringList expected;
    for (const QString& tag : hardTags()) {
        fill({{u"X"_s, tag, {}}});
        expected << u"X-"_s + tag;
    }
    QCOMPARE(sorted(m_desk->lines().value_or(QStringList())), sorted(expected));
}

void PopulateCases::withoutInstrumentsThereIsNoWindow()
{
    QVERIFY(!m_desk->lines());
    QCOMPARE(m_desk->prompts.boxes.at(0).text, u"No Record Found"_s);
    QVERIFY(m_desk->prompts.boxes.at(0).icon == toolkit::BoxIcon::Exclamation);
    m_desk->texts();
    fill({{u"PT"_s, {}, {}}});
    QVERIFY(!m_desk->lines());
    QCOMPARE(m_desk->texts(), QStringList{u"No Record Found"_s});
}

void PopulateCases::anApostropheEndsTheLoadingWithoutAWord_data()
{
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("tag");
    QTest::newRow("function") << u"P'T"_s << u"1"_s;
    QTest::newRow("tag") << u"PT"_s << u"1'"_s;
}

void PopulateCases::anApostropheEndsTheLoadingWithoutAWord()
{
    QFETCH(QString, function);
    QFETCH(QString, tag);
    fill({{u"A"_s, u"1"_s, {}}, {function, tag, {}}});
    QVERIFY(!m_desk->lines());
    QCOMPARE(m_desk->texts(), QStringList());
}

void PopulateCases::aStarTakesTheTagsBehindItIntoItsGroup()
{
    fill({{u"PT"_s, u"10*"_s, {}}, {u"PT"_s, u"100"_s, {}}, {u"PT"_s, u"200"_s, {}}});
    QCOMPARE(m_desk->lines(), (QStringList{u"PT-10*"_s, u"PT-100(1)"_s, u"PT-200"_s}));
}

void PopulateCases::aStarThatFindsMoreThanThereIsEndsTheLoading()
{
    fill({{u"PT"_s, u"9"_s, {}}, {u"PT"_s, u"9*"_s, {}}});
    QVERIFY(!m_desk->lines());
    QCOMPARE(m_desk->texts(), QStringList());
}

void PopulateCases::aTagThatIsNotLikeItselfEndsTheLoading()
{
    fill({{u"PT"_s, u"A[1]"_s, {}}});
    QVERIFY(!m_desk->lines());
    QCOMPARE(m_desk->texts(), QStringList());
}

// ---- inserting

void PopulateCases::chosenLinesBecomeTagsWithTheirService()
{
    fill(pressureLoop);
    QVERIFY(m_desk->insert({u"PT-1001"_s, u"PV-1001"_s}));
    QCOMPARE(m_desk->storedTags(), (QStringList{u"PT-1001"_s, u"PV-1001"_s}));
    QCOMPARE(m_desk->storedService(u"PT-1001"_s), u"Inlet gas"_s);
    QCOMPARE(m_desk->storedService(u"PV-1001"_s), u"Inlet gas valve"_s);
    QCOMPARE(m_desk->stored(u"PV-1001"_s, u"SequenceNo"_s), u"(null)"_s);
    QCOMPARE(m_desk->texts(), QStringList());
    QCOMPARE(m_desk->reports, QStringList());
}

void PopulateCases::anInstrumentWithoutServiceGetsOneBlank()
{
    fill({{u"A"_s, u"1"_s, {}},
          {u"A"_s, u"2"_s, u"Null"_s},
          {u"A"_s, u"3"_s, u""_s},
          {u"A"_s, u"4"_s, u"null"_s}});
    QVERIFY(m_desk->insert({u"A-1"_s, u"A-2"_s, u"A-3"_s, u"A-4"_s}));
    QCOMPARE(m_desk->storedService(u"A-1"_s), u" "_s);
    QCOMPARE(m_desk->storedService(u"A-2"_s), u" "_s);
    QCOMPARE(m_desk->storedService(u"A-3"_s), u"(null)"_s);
    QCOMPARE(m_desk->storedService(u"A-4"_s), u"null"_s);
}

void PopulateCases::theGridShowsTheNewTags()
{
    fill(pressureLoop);
    m_desk->addTag(u"AT-1"_s);
    QVERIFY(m_desk->insert({u"PIC-1001"_s}));
    QCOMPARE(m_desk->gridTags(), (QStringList{u"AT-1"_s, u"PIC-1001"_s}));
}

void PopulateCases::aKnownTagStaysAsItIs()
{
    fill(pressureLoop);
    m_desk->addTag(u"PT-1001"_s);
    QVERIFY(m_desk->insert({u"PT-1001"_s}));
    QCOMPARE(m_desk->storedTags(), QStringList{u"PT-1001"_s});
    QCOMPARE(m_desk->storedService(u"PT-1001"_s), u"(null)"_s);
    QCOMPARE(m_desk->texts(), QStringList());
}

void PopulateCases::theSameChoiceAgainAddsNothing()
{
    fill(threeEquals);
    const QStringList chosen{u"TI-2011"_s, u"TI-2011(2)"_s};
    QVERIFY(m_desk->insert(chosen));
    QVERIFY(m_desk->insert(chosen));
    QCOMPARE(m_desk->storedTags(), chosen);
    QCOMPARE(m_desk->reports.size(), 1);
    QCOMPARE(m_desk->texts(), QStringList());
}

void PopulateCases::withNothingChosenNothingIsAdded()
{
    fill(pressureLoop);
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        m_desk->confirm(window);
        QVERIFY(!window.isVisible());
    }));
    QCOMPARE(m_desk->storedTags(), QStringList());
}

void PopulateCases::cancelAddsNothing()
{
    fill(pressureLoop);
    QVERIFY(m_desk->populate([&](const pid::frmPopulate& window) {
        PopulateDesk::select(window, {u"PT-1001"_s});
        PopulateDesk::click(window, u"cmdCancel"_s);
        QVERIFY(!window.isVisible());
    }));
    QCOMPARE(m_desk->storedTags(), QStringList());
}

void PopulateCases::textsAreStoredAsTheyStand()
{
    QStringList chosen;
    for (const QString& tag : hardTags()) {
        fill({{u"X"_s, tag, tag}});
        chosen << u"X-"_s + tag;
    }
    QVERIFY(m_desk->insert(chosen));
    QCOMPARE(sorted(m_desk->storedTags()), sorted(chosen));
    for (const QString& tag : hardTags())
        QCOMPARE(m_desk->storedService(u"X-"_s + tag), tag);
}

// ---- the report

void PopulateCases::aLineAndItsTwinBecomeTwoTagsAndOneEntry()
{
    fill(threeEquals);
    QVERIFY(m_desk->insert({u"TI-2011"_s, u"TI-2011(1)"_s}));
    QCOMPARE(m_desk->storedTags(), (QStringList{u"TI-2011"_s, u"TI-2011(1)"_s}));
    QCOMPARE(m_desk->storedService(u"TI-2011(1)"_s), u"Second"_s);
    QCOMPARE(m_desk->reports, QStringList{u"TI-2011 is renamed as TI-2011(1)\n"_s});
}

void PopulateCases::aTwinAloneIsReported()
{
    fill(threeEquals);
    QVERIFY(m_desk->insert({u"TI-2011(1)"_s, u"TI-2011(2)"_s}));
    QCOMPARE(m_desk->storedTags(), (QStringList{u"TI-2011(1)"_s, u"TI-2011(2)"_s}));
    QCOMPARE(
        m_desk->reports,
        QStringList{u"TI-2011 is renamed as TI-2011(1)\nTI-2011 is renamed as TI-2011(2)\n"_s});
}

void PopulateCases::aTagThatEndsInABracketIsReported()
{
    fill({{u"LT"_s, u"5(old)(b)"_s, {}}, {u"LT"_s, u"6)"_s, {}}});
    QVERIFY(m_desk->insert({u"LT-5(old)(b)"_s, u"LT-6)"_s}));
    QCOMPARE(m_desk->reports,
             QStringList{u"LT-5 is renamed as LT-5(old)(b)\nLT-6) is renamed as LT-6)\n"_s});
}

void PopulateCases::aCommaPutsTheReportOutOfStep()
{
    fill({{u"A"_s, u"1(x,y)"_s, {}}, {u"B"_s, u"2"_s, {}}, {u"B"_s, u"2"_s, {}}});
    QVERIFY(m_desk->insert({u"A-1(x,y)"_s, u"B-2(1)"_s}));
    QCOMPARE(m_desk->reports, QStringList{u"A-1 is renamed as A-1(x\nB-2 is renamed as y)\n"_s});
}

void PopulateCases::theReportIsOfTheLastRunAlone()
{
    fill(threeEquals);
    QVERIFY(m_desk->insert({u"TI-2011(1)"_s}));
    QVERIFY(m_desk->insert({u"TI-2012"_s}));
    QCOMPARE(m_desk->reports, QStringList{u"TI-2011 is renamed as TI-2011(1)\n"_s});
}

} // namespace ostrand::tests
