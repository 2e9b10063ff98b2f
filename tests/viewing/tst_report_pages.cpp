// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// How a report breaks into pages.
#include "made_report.h"
#include "viewing/reports/geometry.h"
#include "viewing/reports/pages.h"

#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;
using ostrand::tests::lines;
using ostrand::tests::MadeReport;
using ostrand::tests::RecordedSheet;
using ostrand::tests::texts;

namespace {

const QString headHeading = u"Area: North"_s;

bool isHeading(const QString& text)
{
    return text.startsWith(u"Area: ") || text.startsWith(u"Unit: ");
}

bool isTag(const QString& text)
{
    static const QRegularExpression tag(u"^T-\\d+$"_s);
    return tag.match(text).hasMatch();
}

/// The line between the body and the footer.
int bodyEnd(const QStringList& page)
{
    return static_cast<int>(page.indexOf(QRegularExpression(u"^Filter: .*"_s)));
}

} // namespace

class ReportPagesTest : public QObject
{
    Q_OBJECT

private slots:
    void printsEachRowOnceAndWhole();
    void repeatsColumnHeadsAndGroupHeadings();
    void leavesNoHeadingAloneAtTheBottom();
    void beginsAPageWithAGroupThatAsksForIt();
    void continuesARowHigherThanAPage();
    void splitsNoRowThatAPageHasRoomFor();
    void numbersPages();
    void sumsUpGroupsOnTheLastPage();
    void continuesTotalsOnAFurtherPage();
    void isTheSameLaidOutBitByBit();
    void saysThatThereIsNothing();
    void printsOneRowAPageAsACard();
    void printsTiedRowsUnderTheirRow();
    void marksWarnings();
    void takesThousandsOfTiedRows();
};

void ReportPagesTest::printsEachRowOnceAndWhole()
{
    MadeReport made;
    made.addRows(400);
    const auto layout = made.layOut();
    QVERIFY(layout->count() > 5);
    QStringList tags;
    int parts = 0;
    for (int page = 0; page < layout->count(); ++page) {
        const QStringList here = texts(*layout, page);
        for (const QString& text : here) {
            if (isTag(text))
                tags << text;
            if (text.startsWith(u"part ")) {
                ++parts;
                QVERIFY2(here.contains(text.section(u' ', 3)), qPrintable(text));
            }
        }
    }
    QStringList expected;
    for (int i = 0; i < 400; ++i)
        expected << u"T-%1"_s.arg(i);
    QCOMPARE(tags, expected);
    QCOMPARE(parts, 100 * (1 + 2 + 3 + 4));
}

void ReportPagesTest::repeatsColumnHeadsAndGroupHeadings()
{
    MadeReport made;
    made.addRows(400);
    const auto layout = made.layOut();
    QString area = u"(none)"_s;
    QString unit = u"(none)"_s;
    for (int page = 0; page + 1 < layout->count(); ++page) {
        const QStringList here = texts(*layout, page);
        for (const QString& caption : {u"TAG"_s, u"SERVICE"_s, u"REMARKS"_s})
            QCOMPARE(here.count(caption), 1);
        const qsizetype first = here.indexOf(u"REMARKS"_s) + 1;
        QVERIFY2(here[first].startsWith(u"Area: "), qPrintable(here[first]));
        // A heading that stood on the page before says so.
        QCOMPARE(here[first + 1] == u"(continued)", here[first] == area);
        for (qsizetype i = first; i < here.size(); ++i) {
            if (here[i].startsWith(u"Unit: "))
                QCOMPARE(here[i + 1] == u"(continued)", here[i] == unit);
            if (here[i].startsWith(u"Area: "))
                area = here[i];
            if (here[i].startsWith(u"Unit: "))
                unit = here[i];
        }
    }
    QCOMPARE(area, u"Area: South"_s);
}

void ReportPagesTest::leavesNoHeadingAloneAtTheBottom()
{
    // Groups of every size, so that headings come to lie everywhere on a page.
    MadeReport made;
    for (int i = 0; i < 900; ++i) {
        const int group = static_cast<int>(std::sqrt(static_cast<double>(i)));
        made.add(u"T-%1"_s.arg(i), u"service"_s, {}, u"A"_s, QString::number(group));
    }
    const auto layout = made.layOut();
    for (int page = 0; page + 1 < layout->count(); ++page) {
        const QStringList here = texts(*layout, page);
        const QString last = here[bodyEnd(here) - 1];
        QVERIFY2(last == u"service", qPrintable(last));
    }
}

void ReportPagesTest::beginsAPageWithAGroupThatAsksForIt()
{
    MadeReport made;
    made.report->groups[0].newPage = true;
    made.addRows(40);
    const auto layout = made.layOut();
    int first = 0;
    while (!texts(*layout, first).contains(u"Area: South"_s))
        ++first;
    QVERIFY(!texts(*layout, first).contains(headHeading));
    QVERIFY(texts(*layout, first).contains(u"T-20"_s));
    QVERIFY(!texts(*layout, first).contains(u"T-19"_s));
}

void ReportPagesTest::continuesARowHigherThanAPage()
{
    MadeReport made;
    made.add(u"T-0"_s, u"before"_s);
    QStringList remarks;
    for (int i = 0; i < 250; ++i)
        remarks << u"remark %1"_s.arg(i);
    made.add(u"T-1"_s, u"long"_s, remarks.join(u"\r\n"_s));
    made.add(u"T-2"_s, u"behind"_s);
    const auto layout = made.layOut();
    QStringList found;
    for (int page = 0; page < layout->count(); ++page) {
        const QStringList here = texts(*layout, page);
        const bool goesOn = !found.isEmpty() && found.size() < remarks.size();
        const qsizetype name = here.indexOf(u"T-1"_s);
        if (goesOn) {
            QVERIFY(name > 0);
            QCOMPARE(here[name + 1], u"(continued)"_s);
        } else if (name > 0) {
            QVERIFY2(!here.contains(u"T-0"_s), "begins no fresh page");
            QVERIFY(here[name + 1] != u"(continued)");
        }
        found << here.filter(u"remark "_s);
    }
    QCOMPARE(found, remarks);
}

/// The revisions leave less room on the first page than others have.
void ReportPagesTest::splitsNoRowThatAPageHasRoomFor()
{
    const auto firstPageOf = [](int lineCount) {
        MadeReport made;
        made.data.subreports[revisionBlock][QString()] = {
            MadeReport::row({u"RevNo"_s, u"Description"_s}, {u"A"_s, u"issue"_s})};
        QStringList remarks;
        for (int i = 0; i < lineCount; ++i)
            remarks << u"remark %1"_s.arg(i);
        made.add(u"T-1"_s, {}, remarks.join(u'\n'));
        const auto layout = made.layOut();
        const QStringList first = texts(*layout, 0);
        const qsizetype shown = first.filter(u"remark "_s).size();
        if (shown == 0) {
            if (first.contains(u"TAG"_s) || !first.contains(u"DESCRIPTION"_s)
                || first.contains(headHeading))
                return -1;
            const QStringList second = texts(*layout, 1);
            if (second.contains(u"(continued)"_s) || !second.contains(u"TAG"_s))
                return -2;
            return second.filter(u"remark "_s).size() == lineCount ? 2 : -3;
        }
        return shown == lineCount ? 1 : 0;
    };
    // From a row that fits the first page to one that fits none.
    std::vector<int> kinds;
    for (int count = 20; count < 60; ++count) {
        const int kind = firstPageOf(count);
        if (kinds.empty() || kinds.back() != kind)
            kinds.push_back(kind);
    }
    QCOMPARE(kinds, std::vector<int>({1, 2, 0}));
}

void ReportPagesTest::numbersPages()
{
    MadeReport made;
    made.addRows(400);
    Layout layout(made.report, made.data);
    while (layout.count() == 0)
        layout.step();
    QVERIFY(!layout.complete());
    QVERIFY(texts(layout, 0).contains(u"1"_s));
    while (!layout.complete())
        layout.step();
    for (int page = 0; page < layout.count(); ++page)
        QVERIFY(texts(layout, page).contains(u"%1 of %2"_s.arg(page + 1).arg(layout.count())));
}

void ReportPagesTest::sumsUpGroupsOnTheLastPage()
{
    MadeReport made;
    made.report->totals = {
        {u"Lines"_s, [](const Row& row) { return int(row[u"Service"_s].count(u"part")); }, {}},
        {u"Sorts"_s, {}, [](const Row& row) { return row[u"Tag"_s].right(1); }}};
    made.addRows(100);
    const auto layout = made.layOut();
    const QStringList last = texts(*layout, layout->count() - 1);
    const qsizetype start = last.indexOf(u"Totals"_s);
    QVERIFY(start > 0);
    const QStringList expected{
        u"Totals"_s,  u"Tags"_s, u"Lines"_s,   u"Sorts"_s, u"Area: North"_s, u"50"_s,
        u"123"_s,     u"10"_s,   u"Unit: 0"_s, u"25"_s,    u"61"_s,          u"10"_s,
        u"Unit: 1"_s, u"25"_s,   u"62"_s,      u"10"_s,    u"Area: South"_s, u"50"_s,
        u"127"_s,     u"10"_s,   u"Unit: 2"_s, u"25"_s,    u"63"_s,          u"10"_s,
        u"Unit: 3"_s, u"25"_s,   u"64"_s,      u"10"_s,    u"Total"_s,       u"100"_s,
        u"250"_s,     u"10"_s};
    QCOMPARE(last.sliced(start, expected.size()), expected);
}

void ReportPagesTest::continuesTotalsOnAFurtherPage()
{
    MadeReport made;
    for (int i = 0; i < 120; ++i)
        made.add(u"T-%1"_s.arg(i), {}, {}, u"A"_s, QString::number(i));
    const auto layout = made.layOut();
    QStringList groups;
    for (int page = 0; page < layout->count(); ++page) {
        const QStringList here = texts(*layout, page);
        const qsizetype head =
            std::max(here.indexOf(u"Totals"_s), here.indexOf(u"Totals (continued)"_s));
        if (head < 0)
            continue;
        QVERIFY2(isHeading(here[head + 2]), "no line stands with the heading");
        groups << here.sliced(head).filter(u"Unit: "_s);
    }
    QCOMPARE(groups.size(), 120);
    const QStringList last = texts(*layout, layout->count() - 1);
    QVERIFY(last.contains(u"Totals (continued)"_s));
    QVERIFY2(isHeading(last[last.indexOf(u"Total"_s) - 2]), "the sum stands alone");
}

void ReportPagesTest::isTheSameLaidOutBitByBit()
{
    MadeReport made;
    made.addRows(200);
    Pages whole(made.report, made.data);
    whole.layOutAll();
    Pages bits(made.report, made.data);
    int before = 0;
    int steps = 0;
    int countAtFirstPage = -1;
    while (bits.layOutMore(0)) {
        ++steps;
        QVERIFY(bits.count() >= before);
        before = bits.count();
        if (before > 0 && countAtFirstPage < 0)
            countAtFirstPage = steps;
    }
    QVERIFY(bits.complete());
    QVERIFY(!bits.layOutMore(0));
    QVERIFY(countAtFirstPage > 0 && countAtFirstPage < steps / 2);
    QCOMPARE(bits.count(), whole.count());
    for (int page = 0; page < whole.count(); ++page) {
        QImage pictures[2];
        for (int i = 0; i < 2; ++i) {
            pictures[i] = QImage(whole.size().toSize(), QImage::Format_RGB32);
            pictures[i].fill(Qt::white);
            QPainter painter(&pictures[i]);
            (i == 0 ? whole : bits).draw(painter, page);
        }
        QVERIFY(pictures[0] == pictures[1]);
    }
}

void ReportPagesTest::saysThatThereIsNothing()
{
    const MadeReport made;
    const auto layout = made.layOut();
    QCOMPARE(layout->count(), 1);
    const QStringList page = texts(*layout, 0);
    QVERIFY(page.contains(u"No tags to list."_s));
    QVERIFY(page.contains(u"Made List"_s));
    QVERIFY(page.contains(u"1 of 1"_s));
    QVERIFY(page.contains(u"Filter: all tags"_s));
    QVERIFY(page.contains(u"made.mdb"_s));
    QVERIFY(!page.contains(u"Totals"_s));
}

void ReportPagesTest::printsOneRowAPageAsACard()
{
    MadeReport made;
    made.report->card = Card{{{u"Tag"_s, [](const Row& row) { return row[u"Tag"_s]; }},
                              {u"Service"_s, [](const Row& row) { return row[u"Service"_s]; }},
                              {u"Empty"_s, {}}},
                             u"Calibration"_s,
                             {u"Input"_s, u"As found"_s, u"As left"_s},
                             {u"0 %"_s, u"50 %"_s, u"100 %"_s}};
    for (int i = 0; i < 5; ++i)
        made.add(u"T-%1"_s.arg(i), u"service %1"_s.arg(i));
    const auto layout = made.layOut();
    QCOMPARE(layout->count(), 6);
    for (int page = 0; page < 5; ++page) {
        const QStringList here = texts(*layout, page);
        QCOMPARE(here.filter(QRegularExpression(u"^T-"_s)), QStringList{u"T-%1"_s.arg(page)});
        for (const QString& text :
             {u"service %1"_s.arg(page), u"Calibration"_s, u"As left"_s, u"50 %"_s})
            QVERIFY2(here.contains(text), qPrintable(text));
    }
    QVERIFY(texts(*layout, 5).contains(u"Totals"_s));
}

void ReportPagesTest::printsTiedRowsUnderTheirRow()
{
    MadeReport made;
    made.report->under = {
        {u"Papers"_s, u"papers"_s, {{.caption = {}, .width = 50, .field = u"No"_s}}, false},
        {u"Joined"_s, u"papers"_s, {{.caption = {}, .width = 50, .field = u"No"_s}}, true}};
    made.add(u"T-1"_s, u"service"_s);
    made.add(u"T-2"_s, u"no papers"_s);
    made.data.subreports[u"papers"_s][u"t-1"_s] = {MadeReport::row({u"No"_s}, {u"DOC-1"_s}),
                                                   MadeReport::row({u"No"_s}, {u"DOC-2"_s})};
    const auto layout = made.layOut();
    const QStringList page = texts(*layout, 0);
    const QStringList expected{u"T-1"_s,
                               u"service"_s,
                               u"Papers"_s,
                               u"DOC-1"_s,
                               u"DOC-2"_s,
                               u"Joined"_s,
                               u"DOC-1, DOC-2"_s,
                               u"T-2"_s,
                               u"no papers"_s};
    QCOMPARE(page.sliced(page.indexOf(u"T-1"_s), expected.size()), expected);
    QCOMPARE(page.count(u"Papers"_s), 1);
}

void ReportPagesTest::marksWarnings()
{
    MadeReport made;
    made.report->columns[1].warn = [](const Row& row) { return row[u"Tag"_s] == u"T-2"; };
    made.add(u"T-1"_s, u"fine"_s);
    made.add(u"T-2"_s, u"odd"_s);
    const auto layout = made.layOut();
    RecordedSheet sheet;
    layout->show(sheet, 0);
    QCOMPARE(sheet.warnings.size(), 1U);
    for (const RecordedSheet::Line& line : sheet.lines) {
        if (line.text == u"!  odd") {
            QVERIFY(line.face->font().bold());
            QVERIFY(sheet.warnings[0].contains(line.corner + QPoint(5, 60)));
            return;
        }
    }
    QFAIL("the marked text is missing");
}

void ReportPagesTest::takesThousandsOfTiedRows()
{
    MadeReport made;
    made.report->under = {
        {{}, u"papers"_s, {{.caption = {}, .width = 50, .field = u"No"_s}}, false}};
    made.add(u"T-1"_s, u"many"_s);
    made.add(u"T-2"_s, u"none"_s);
    std::vector<Row>& papers = made.data.subreports[u"papers"_s][u"t-1"_s];
    QStringList expected;
    for (int i = 0; i < 5000; ++i) {
        expected << u"DOC-%1"_s.arg(i);
        papers.push_back(MadeReport::row({u"No"_s}, {expected.last()}));
    }
    const auto layout = made.layOut();
    QStringList found;
    for (int page = 0; page < layout->count(); ++page)
        found << texts(*layout, page).filter(u"DOC-"_s);
    QCOMPARE(found, expected);
    QVERIFY(texts(*layout, layout->count() - 1).contains(u"T-2"_s));
}

QTEST_MAIN(ReportPagesTest)
#include "tst_report_pages.moc"
