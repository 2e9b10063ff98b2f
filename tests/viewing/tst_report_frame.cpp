// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What stands around the rows of a report: the header and the revisions.
#include "made_report.h"
#include "viewing/reports/geometry.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;
using ostrand::tests::lines;
using ostrand::tests::MadeReport;
using ostrand::tests::RecordedSheet;
using ostrand::tests::texts;

namespace {

const QStringList revisionFields{
    u"RevNo"_s, u"Date"_s, u"Description"_s, u"createdBy"_s, u"checkedBy"_s, u"approvedBy"_s};

/// Words of `size` characters in all, each with its number.
QString words(int size, const QString& word)
{
    QString text;
    for (int i = 0; text.size() < size; ++i)
        text += u"%1%2 "_s.arg(word).arg(i);
    return text.left(size).trimmed();
}

MadeReport withRevisions(const std::vector<QStringList>& revisions)
{
    MadeReport made;
    made.addRows(100);
    for (const QStringList& revision : revisions)
        made.data.subreports[revisionBlock][QString()].push_back(
            MadeReport::row(revisionFields, revision));
    return made;
}

MadeReport withHeader(const QString& company, const QString& plant, const QString& location)
{
    MadeReport made;
    made.add(u"T-1"_s, {});
    made.data.subreports[headerBlock][QString()] = {
        MadeReport::row({u"company"_s, u"plant"_s, u"operating unit"_s, u"location"_s},
                        {company, plant, u"Unit 5"_s, location})};
    return made;
}

/// The lines that belong to a text, from the one that begins as it does.
std::vector<RecordedSheet::Line> linesOf(const QString& text, const Layout& layout)
{
    std::vector<RecordedSheet::Line> found;
    QString rest = text;
    for (const RecordedSheet::Line& line : lines(layout, 0)) {
        if (rest.isEmpty() || !rest.startsWith(line.text) || line.text.isEmpty())
            continue;
        rest = rest.sliced(line.text.size()).trimmed();
        found.push_back(line);
    }
    return rest.isEmpty() ? found : std::vector<RecordedSheet::Line>();
}

/// The lines of the header lie in it, one under the other, none over the next.
void checkProjectLines(const Layout& layout)
{
    int end = pageMargin;
    bool inside = false;
    for (const RecordedSheet::Line& line : lines(layout, 0)) {
        inside = inside || line.text == u"Contract";
        if (!inside || line.face->font().bold() == false)
            continue;
        QVERIFY2(line.corner.y() >= end, qPrintable(line.text));
        end = line.corner.y() + line.face->lineHeight();
        if (line.text == QDate::currentDate().toString(Qt::ISODate))
            break;
    }
    QVERIFY(inside);
    QVERIFY(end > pageMargin);
    QVERIFY(end <= PageFrame::bodyTop());
}

} // namespace

class ReportFrameTest : public QObject
{
    Q_OBJECT

private slots:
    void showsTheLastRevisionsOnTheFirstPage();
    void wrapsDescriptionsOfRevisions();
    void keepsEndlessRevisionsOnHalfThePage();
    void printsTheDayOfARevision();
    void wrapsTheCompany();
    void fitsLongValuesIntoTheHeader_data();
    void fitsLongValuesIntoTheHeader();
    void cutsWhatTheHeaderHasNoRoomFor();
};

void ReportFrameTest::showsTheLastRevisionsOnTheFirstPage()
{
    MadeReport made;
    made.addRows(100);
    std::vector<Row> revisions;
    for (const QString& number : {u"A"_s, u"1"_s, u"B"_s, u"0"_s, u"2"_s}) {
        const int day = int(QStringLiteral("AB012").indexOf(number)) + 10;
        revisions.push_back(MadeReport::row(revisionFields,
                                            {number,
                                             u"2026-01-%1"_s.arg(day),
                                             u"issue "_s + number,
                                             u"me"_s,
                                             u"you"_s,
                                             u"they"_s}));
    }
    made.data.subreports[revisionBlock][QString()] = revisions;
    const auto layout = made.layOut();
    const QStringList first = texts(*layout, 0);
    const QStringList expected{
        u"NO"_s,      u"DATE"_s, u"DESCRIPTION"_s, u"BY"_s,         u"CHK"_s,
        u"APPR"_s,    u"2"_s,    u"2026-01-14"_s,  u"issue 2"_s,    u"me"_s,
        u"you"_s,     u"they"_s, u"1"_s,           u"2026-01-13"_s, u"issue 1"_s,
        u"me"_s,      u"you"_s,  u"they"_s,        u"0"_s,          u"2026-01-12"_s,
        u"issue 0"_s, u"me"_s,   u"you"_s,         u"they"_s,       u"Earlier revisions: 2"_s};
    const qsizetype start = first.indexOf(u"NO"_s);
    QVERIFY(start > 0);
    QCOMPARE(first.sliced(start, expected.size()), expected);
    QVERIFY(!texts(*layout, 1).contains(u"DESCRIPTION"_s));
    // No row reaches into the block.
    int top = 0;
    int lowest = 0;
    for (const RecordedSheet::Line& line : lines(*layout, 0)) {
        if (line.text == u"NO")
            top = line.corner.y();
        if (line.text.startsWith(u"part "))
            lowest = std::max(lowest, line.corner.y() + line.face->lineHeight());
    }
    QVERIFY(lowest > 0 && lowest < top);
}

void ReportFrameTest::wrapsDescriptionsOfRevisions()
{
    const QString description = words(255, u"issue"_s);
    const QString name = words(50, u"name"_s);
    std::vector<QStringList> revisions;
    for (const QString& number : {u"A"_s, u"B"_s, u"C"_s})
        revisions.push_back({number, u"2026-01-10"_s, description, name, u"you"_s, u"they"_s});
    const auto layout = withRevisions(revisions).layOut();
    const std::vector<RecordedSheet::Line> found = linesOf(description, *layout);
    QVERIFY(found.size() > 1U && found.size() <= 3U);
    QVERIFY(!linesOf(name, *layout).empty());
    int top = 0;
    int lowest = 0;
    int footer = 0;
    int end = 0;
    for (const RecordedSheet::Line& line : lines(*layout, 0)) {
        const int bottom = line.corner.y() + line.face->lineHeight();
        if (line.text == u"NO")
            top = line.corner.y();
        if (top == 0 && line.text.startsWith(u"part "))
            lowest = std::max(lowest, bottom);
        if (line.text.startsWith(u"Filter: "))
            footer = line.corner.y();
        if (top > 0 && footer == 0)
            end = std::max(end, bottom);
        QVERIFY2(!line.text.contains(u'\u2026'), qPrintable(line.text));
    }
    QVERIFY(lowest > 0 && lowest < top && top < end && end < footer);
}

void ReportFrameTest::keepsEndlessRevisionsOnHalfThePage()
{
    const QString endless(10000, u'W');
    const MadeReport made =
        withRevisions({{u"A"_s, endless, endless, endless, endless, endless},
                       {u"B"_s, endless, endless, endless, endless, endless},
                       {u"C"_s, endless, u"x\n"_s.repeated(200), endless, endless, endless}});
    const auto layout = made.layOut();
    int top = 0;
    for (const RecordedSheet::Line& line : lines(*layout, 0)) {
        if (line.text == u"NO")
            top = line.corner.y();
    }
    QVERIFY(top > sheetSize(made.report->paper).height() * 2 / 5);
    QVERIFY(texts(*layout, 0).contains(u"T-0"_s));
}

void ReportFrameTest::printsTheDayOfARevision()
{
    const auto layout = withRevisions({{u"A"_s, u"2025-10-20 13:45:10"_s, {}, {}, {}, {}},
                                       {u"B"_s, u"2025-10-21"_s, {}, {}, {}, {}},
                                       {u"C"_s, u"about 2025-10-22 13:45"_s, {}, {}, {}, {}}})
                            .layOut();
    const QStringList page = texts(*layout, 0);
    QVERIFY(page.contains(u"2025-10-20"_s));
    QVERIFY(page.contains(u"2025-10-21"_s));
    QVERIFY(!linesOf(u"about 2025-10-22 13:45"_s, *layout).empty());
    QVERIFY(page.filter(u"13:45:10"_s).isEmpty());
}

void ReportFrameTest::wrapsTheCompany()
{
    const QString company = words(100, u"Company"_s);
    const auto layout = withHeader(company, {}, {}).layOut();
    QCOMPARE(linesOf(company, *layout).size(), 2U);
    for (const RecordedSheet::Line& line : linesOf(company, *layout))
        QVERIFY(line.corner.y() > pageMargin
                && line.corner.y() + line.face->lineHeight() < PageFrame::bodyTop());
}

void ReportFrameTest::fitsLongValuesIntoTheHeader_data()
{
    QTest::addColumn<QString>("plant");
    QTest::addColumn<QString>("location");
    QTest::addColumn<double>("points");
    QTest::newRow("short") << u"Plant"_s << u"Here"_s << 7.5;
    QTest::newRow("one long") << words(60, u"plant"_s) << u"Here"_s << 7.5;
    QTest::newRow("two long") << words(60, u"plant"_s) << words(60, u"place"_s) << 5.5;
    QTest::newRow("longer") << words(80, u"plant"_s) << words(80, u"place"_s) << 5.5;
}

void ReportFrameTest::fitsLongValuesIntoTheHeader()
{
    QFETCH(QString, plant);
    QFETCH(QString, location);
    QFETCH(double, points);
    const auto layout = withHeader(u"Company"_s, plant, location).layOut();
    for (const QString& text : {plant, location}) {
        const std::vector<RecordedSheet::Line> found = linesOf(text, *layout);
        QVERIFY2(!found.empty(), qPrintable(texts(*layout, 0).join(u'|')));
        const double size = text.size() > 30 ? points : 7.5;
        QCOMPARE(double(found[0].face->font().pixelSize()) / unitsPerPoint, size);
    }
    checkProjectLines(*layout);
}

void ReportFrameTest::cutsWhatTheHeaderHasNoRoomFor()
{
    MadeReport made;
    made.add(u"T-1"_s, {});
    const QString plant = u"Plant "_s + QString(10000, u'x');
    made.data.subreports[headerBlock][QString()] = {
        MadeReport::row({u"plant"_s, u"company"_s, u"contract"_s, u"location"_s},
                        {plant, QString(10000, u'W'), u"HGC-1"_s, u"first\r\nsecond"_s})};
    const auto layout = made.layOut();
    const QStringList page = texts(*layout, 0);
    QVERIFY(page.contains(u"HGC-1"_s));
    QCOMPARE(page.count(u"Plant"_s), 2); // the caption, and the word before the endless one
    const QString cut = page.filter(u"xxx"_s).join(u'|');
    QVERIFY2(cut.startsWith(u"xxx") && cut.endsWith(u"x\u2026"), qPrintable(cut));
    for (const RecordedSheet::Line& line : lines(*layout, 0))
        QVERIFY(line.corner.x() + line.face->width(line.text)
                <= sheetSize(made.report->paper).width() - pageMargin);
}

QTEST_MAIN(ReportFrameTest)
#include "tst_report_frame.moc"
