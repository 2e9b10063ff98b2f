// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "made_report.h"
#include "store/error.h"
#include "support/program_fixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;
using ostrand::store::Error;
using ostrand::tests::MadeReport;
using ostrand::tests::ProgramFixture;

namespace {

/// Tags with their documents.
Description tagList(const QString& path)
{
    Description report;
    report.source.select =
        u"select PlantItemNo, ProcessUnitArea, LoopNumber, Remarks from [index]"_s;
    report.key = u"PlantItemNo"_s;
    report.groups = {{u"Area"_s, u"ProcessUnitArea"_s}};
    report.sort = {u"LoopNumber"_s, u"PlantItemNo"_s};
    report.sections = {{SectionKind::Details,
                        {{u"papers"_s,
                          {{}, u"select PlantItemNo, docNo from itemDocXRef order by docNo"_s},
                          u"PlantItemNo"_s}}},
                       {SectionKind::PageHeader,
                        {{headerBlock, {{}, u"select plant from qryrptindexheader"_s}, {}}}}};
    setLocation(report, path);
    return report;
}

QStringList tagsOf(const ReportData& data)
{
    QStringList tags;
    for (const Row& row : data.rows)
        tags << row[u"PlantItemNo"_s];
    return tags;
}

int errorOf(const Description& report)
{
    try {
        read(report);
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

class Project : public ProgramFixture
{
public:
    QString path = emptyProject();

    void add(const QString& tag, const QString& area, const QString& loop) const
    {
        execute(path,
                u"insert into [index] (PlantItemNo, ProcessUnitArea, LoopNumber) values ('%1', %2, "
                "'%3')"_s.arg(tag, area.isEmpty() ? u"Null"_s : u'\'' + area + u'\'', loop));
    }
};

} // namespace

class ReportDataTest : public QObject
{
    Q_OBJECT

private slots:
    void sortsByGroupsAndInNaturalOrder();
    void filtersRows();
    void looksFieldsUpInAnyCase();
    void tiesSubreportsInAnyCase();
    void readsTheLocationSetLast();
    void readsTheLogo();
    void raisesWhatTheFileIsRefusedFor();
    void readsAProjectThatCannotBeWritten();
};

void ReportDataTest::sortsByGroupsAndInNaturalOrder()
{
    const Project project;
    project.add(u"FT-10A"_s, u"AREA 10"_s, u"F-10"_s);
    project.add(u"FT-10"_s, u"AREA 10"_s, u"F-10"_s);
    project.add(u"FT-2"_s, u"AREA 10"_s, u"F-2"_s);
    project.add(u"PT-1"_s, u"AREA 9"_s, u"P-1"_s);
    project.add(u"XX-1"_s, {}, u"A-1"_s);
    QCOMPARE(tagsOf(read(tagList(project.path))),
             QStringList({u"PT-1"_s, u"FT-2"_s, u"FT-10"_s, u"FT-10A"_s, u"XX-1"_s}));
}

void ReportDataTest::filtersRows()
{
    const Project project;
    project.add(u"FT-1"_s, u"A"_s, u"F-1"_s);
    project.add(u"FT-2"_s, u"B"_s, u"F-2"_s);
    Description report = tagList(project.path);
    report.filter = [](const Row& row) { return row[u"ProcessUnitArea"_s] == u"B"; };
    QCOMPARE(tagsOf(read(report)), QStringList{u"FT-2"_s});
}

void ReportDataTest::looksFieldsUpInAnyCase()
{
    const Project project;
    project.add(u"FT-1"_s, {}, u"F-1"_s);
    const ReportData data = read(tagList(project.path));
    const Row& row = data.rows.front();
    QCOMPARE(row[u"plantitemno"_s], u"FT-1"_s);
    QCOMPARE(row[u"PLANTITEMNO"_s], u"FT-1"_s);
    QCOMPARE(row[u"ProcessUnitArea"_s], QString()); // Null
    QCOMPARE(row[u"NoSuchField"_s], QString());
}

void ReportDataTest::tiesSubreportsInAnyCase()
{
    const Project project;
    project.add(u"FT-1"_s, {}, u"F-1"_s);
    project.add(u"FT-2"_s, {}, u"F-2"_s);
    for (const QString& number : {u"D-2"_s, u"D-1"_s})
        ProgramFixture::execute(
            project.path,
            u"insert into document (docNo, docType) values ('%1', 'PID')"_s.arg(number));
    for (const QString& number : {u"D-2"_s, u"D-1"_s})
        ProgramFixture::execute(project.path,
                                u"insert into itemDocXRef (PlantItemNo, docNo, context) values "
                                "('ft-1', '%1', 'PID')"_s.arg(number));
    const ReportData data = read(tagList(project.path));
    const std::vector<Row>& papers = data.of(u"papers"_s, u"FT-1"_s);
    QCOMPARE(papers.size(), 2U);
    QCOMPARE(papers[0][u"docNo"_s], u"D-1"_s);
    QCOMPARE(papers[1][u"docNo"_s], u"D-2"_s);
    QVERIFY(data.of(u"papers"_s, u"FT-2"_s).empty());
    QVERIFY(data.of(u"no such subreport"_s).empty());
    QCOMPARE(data.of(headerBlock).size(), 1U);
}

void ReportDataTest::readsTheLocationSetLast()
{
    const Project first;
    first.add(u"FT-1"_s, {}, u"F-1"_s);
    const QString second = first.emptyProject(u"second.mdb"_s);
    ProgramFixture::execute(second, u"insert into [index] (PlantItemNo) values ('PT-9')"_s);
    Description report = tagList(first.path);
    QCOMPARE(tagsOf(read(report)), QStringList{u"FT-1"_s});
    setLocation(report, second);
    for (const Section& section : report.sections)
        QCOMPARE(section.subreports.front().source.location, second);
    QCOMPARE(tagsOf(read(report)), QStringList{u"PT-9"_s});
    // Each source is read from its own file.
    setLocation(report, first.path);
    report.source.location = second;
    const ReportData data = read(report);
    QCOMPARE(tagsOf(data), QStringList{u"PT-9"_s});
    QCOMPARE(data.of(headerBlock).size(), 1U);
}

void ReportDataTest::readsTheLogo()
{
    const Project project;
    QCOMPARE(read(tagList(project.path)).logoFile, QString());
    ProgramFixture::execute(project.path,
                            u"delete from ProjectInfo where attributeName = 'logo file'"_s);
    ProgramFixture::execute(
        project.path,
        u"insert into ProjectInfo (attributeName, attributeValue) values ('logo file', 'l.png')"_s);
    QCOMPARE(read(tagList(project.path)).logoFile, u"l.png"_s);
}

void ReportDataTest::raisesWhatTheFileIsRefusedFor()
{
    const Project project;
    QCOMPARE(errorOf(tagList(project.path)), 0);
    QCOMPARE(errorOf(tagList(project.path + u"x"_s)), 3024);
    QCOMPARE(errorOf(tagList(project.file(u"text.mdb"_s, QByteArray(5000, 'x')))), 3343);
    Description report = tagList(project.path);
    report.source.select = u"select Tag from noTable"_s;
    QCOMPARE(errorOf(report), 3078);
    report.source.select = u"select noField from [index]"_s;
    QCOMPARE(errorOf(report), 3061);
}

void ReportDataTest::readsAProjectThatCannotBeWritten()
{
    const Project project;
    project.add(u"FT-1"_s, {}, u"F-1"_s);
    QFile::setPermissions(project.path, QFile::ReadOwner);
    QCOMPARE(tagsOf(read(tagList(project.path))), QStringList{u"FT-1"_s});
}

QTEST_MAIN(ReportDataTest)
#include "tst_report_data.moc"
