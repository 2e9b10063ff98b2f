// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What stands in the PDFs of the reports, against the tables of the project.
#include "support/program_fixture.h"
#include "viewing/printed_report.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/pages.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;
using ostrand::tests::PrintedReport;
using ostrand::tests::ProgramFixture;

namespace {

constexpr int alarmSummary = 1;
constexpr int instrumentIndex = 2;
constexpr int maintenance = 3;
constexpr int installationDetails = 4;

QSet<QString> setOf(const QStringList& texts)
{
    return {texts.begin(), texts.end()};
}

QStringList tagsOf(const QString& project, const QString& where = {})
{
    return ProgramFixture::values(project, u"select PlantItemNo from index "_s + where);
}

QStringList tagsOf(const std::vector<PrintedReport::PrintedRow>& rows)
{
    QStringList tags;
    for (const PrintedReport::PrintedRow& row : rows)
        tags << row.tag;
    return tags;
}

QStringList hardTags()
{
    QFile list(QFINDTESTDATA("../support/hard_tags.txt"));
    if (!list.open(QIODevice::ReadOnly))
        qFatal("no hard tags");
    QStringList tags = QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts);
    for (QString& tag : tags) {
        tag.replace(u"<TAB>"_s, u"\t"_s).replace(u"<SP>"_s, u" "_s);
        tag.replace(u"<CR>"_s, u"\r"_s).replace(u"<LF>"_s, u"\n"_s);
    }
    return tags;
}

} // namespace

class TestReportContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyTagIsPrintedOnce_data();
    void everyTagIsPrintedOnce();
    void documentsStandBesideTheirTag();
    void cellsHoldTheFieldsOfTheirTag();
    void documentsOfMaintenanceStandUnderTheirTag();
    void drawingsOfAlarmsStandUnderTheirTag();
    void rangesOfInstallationStandUnderTheirTag();
    void longRemarksStandUnderTheirTag();
    void groupsAreAddedUp();
    void pagesAreNumberedAndSayWhatTheyShow();
    void aGroupThatGoesOnSaysSo();
    void anAreaBeginsAPage();
    void revisionsStandOnTheFirstPage();
    void theLogoIsPrinted();
    void tagsAreCountedAsPeopleCount();
    void marksStandExactlyWhereTheyBelong();
    void hardTagsAreAllPrinted();
    void aCardIsPrintedForEveryTag();

private:
    /// A form of a report on the sample, printed once for all tests.
    const PrintedReport& print(int number, std::size_t form = 0)
    {
        auto& printed = m_printed[{number, form}];
        if (!printed) {
            printed = std::make_unique<PrintedReport>(
                reportForms(number)[form], m_sample, m_folder.path());
        }
        return *printed;
    }
    /// Of texts "tag|value" the values of each tag, joined by blanks.
    QHash<QString, QString> byTag(const QString& select) const
    {
        QHash<QString, QString> found;
        for (const QString& text : ProgramFixture::values(m_sample, select)) {
            QString& values = found[text.section(u'|', 0, 0)];
            values += (values.isEmpty() ? u""_s : u" "_s) + text.section(u'|', 1);
        }
        return found;
    }
    QString add(const QString& project, const QStringList& fields, const QStringList& values) const
    {
        ProgramFixture::execute(project,
                                u"insert into [index] ("_s + fields.join(u", "_s) + u") values ('"_s
                                    + values.join(u"', '"_s) + u"')"_s);
        return values.front();
    }

    std::unique_ptr<ProgramFixture> m_program;
    QTemporaryDir m_folder;
    QString m_sample;
    QSet<QString> m_tags;
    std::map<std::pair<int, std::size_t>, std::unique_ptr<PrintedReport>> m_printed;
};

void TestReportContent::initTestCase()
{
    m_program = std::make_unique<ProgramFixture>();
    m_sample = m_program->sampleProject();
    m_tags = setOf(tagsOf(m_sample));
}

void TestReportContent::everyTagIsPrintedOnce_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("where");
    const QString alarms =
        u"where ScaleSetPointValue is not null or ProcessSetPointValue is not null or "
        "CalibrationSetPointValue is not null or H_H_H_SETTING is not null or H_H_SETTING is not "
        "null or H_SETTING is not null or L_SETTING is not null or L_L_SETTING is not null or "
        "L_L_L_SETTING is not null"_s;
    QTest::newRow("alarm summary") << alarmSummary << 0 << alarms;
    QTest::newRow("index A3") << instrumentIndex << 0 << QString();
    QTest::newRow("index A4") << instrumentIndex << 1 << QString();
    QTest::newRow("maintenance") << maintenance << 0 << QString();
    QTest::newRow("installation A3") << installationDetails << 0 << u"where Location <> 'DCS'"_s;
    QTest::newRow("installation A4") << installationDetails << 1 << u"where Location <> 'DCS'"_s;
}

void TestReportContent::everyTagIsPrintedOnce()
{
    QFETCH(int, number);
    QFETCH(int, form);
    QFETCH(QString, where);
    QStringList printed = tagsOf(print(number, static_cast<std::size_t>(form)).rows(m_tags));
    QStringList stored = tagsOf(m_sample, where);
    printed.sort();
    stored.sort();
    QCOMPARE(printed, stored);
}

void TestReportContent::documentsStandBesideTheirTag()
{
    const std::vector<std::pair<int, QString>> columns{
        {6, u"docType = 'PID'"_s},
        {7, u"docType = 'DATASHEET'"_s},
        {8, u"docType = 'LOOP DWG'"_s},
        {9, u"docType = 'REQUISITION' or docType = 'PURCHASE ORDER'"_s}};
    const auto printed = print(instrumentIndex).rows(m_tags);
    int compared = 0;
    for (const auto& [column, kind] : columns) {
        const QHash<QString, QString> stored = byTag(
            u"select Tag & '|' & docNo from qryDocXref where "_s + kind + u" order by docNo"_s);
        compared += static_cast<int>(stored.size());
        for (const auto& row : printed)
            QCOMPARE(row.tag + u' ' + row.cells[column], row.tag + u' ' + stored.value(row.tag));
    }
    QVERIFY(compared > 4 * 300);
}

void TestReportContent::cellsHoldTheFieldsOfTheirTag()
{
    const QStringList fields{u"PlantItemNo"_s,
                             u"InstrumentType"_s,
                             u"ServiceDescription"_s,
                             u"LoopNumber"_s,
                             u"EquipOrLineNo"_s,
                             u"Location"_s};
    const auto printed = print(instrumentIndex).rows(m_tags);
    QCOMPARE(printed.size(), std::size_t(418));
    for (int i = 0; i < fields.size(); ++i) {
        const QHash<QString, QString> stored =
            byTag(u"select PlantItemNo & '|' & "_s + fields[i] + u" from index"_s);
        for (const auto& row : printed)
            QCOMPARE(row.cells[i], stored.value(row.tag).simplified());
    }
}

void TestReportContent::documentsOfMaintenanceStandUnderTheirTag()
{
    const PrintedReport& report = print(maintenance);
    QStringList printed;
    QString tag;
    for (int page = 0; page < report.pageCount(); ++page) {
        for (const QString& line : report.lines(page)) {
            const QString first = line.section(u' ', 0, 0);
            if (m_tags.contains(first)) {
                tag = first;
                continue;
            }
            for (const auto* kind :
                 {u"DATASHEET", u"PID", u"LOOP DWG", u"REQUISITION", u"PURCHASE ORDER"}) {
                const QString lead = QString::fromUtf16(kind) + u' ';
                if (line.startsWith(lead))
                    printed << tag + u'|' + lead.trimmed() + u'|' + line.mid(lead.size());
            }
        }
    }
    QStringList stored = ProgramFixture::values(
        m_sample, u"select Tag & '|' & docType & '|' & docNo & ' ' & Title from qryDocXref"_s);
    QCOMPARE(stored.size(), 1707);
    printed.sort();
    stored.sort();
    QCOMPARE(printed, stored);
}

void TestReportContent::drawingsOfAlarmsStandUnderTheirTag()
{
    const PrintedReport& report = print(alarmSummary);
    const QHash<QString, QString> stored =
        byTag(u"select Tag & '|' & docNo from qryDocXref where docType = 'PID'"_s);
    QString tag;
    int found = 0;
    for (int page = 0; page < report.pageCount(); ++page) {
        for (const QString& line : report.lines(page)) {
            const QString first = line.section(u' ', 0, 0);
            if (m_tags.contains(first))
                tag = first;
            if (first != u"P&ID"_s)
                continue;
            QCOMPARE(line, u"P&ID "_s + stored.value(tag));
            ++found;
        }
    }
    QVERIFY(found > 100);
}

void TestReportContent::rangesOfInstallationStandUnderTheirTag()
{
    const PrintedReport& report = print(installationDetails);
    int process = 0;
    int calibration = 0;
    bool seen = false;
    for (int page = 0; page < report.pageCount(); ++page) {
        const QStringList lines = report.lines(page);
        for (int i = 0; i < lines.size(); ++i) {
            process += static_cast<int>(lines[i].count(u"Process range "_s));
            calibration += static_cast<int>(lines[i].count(u"Calibration range "_s));
            if (lines[i].startsWith(u"LT-1002 "_s)) {
                seen = true;
                QCOMPARE(lines[i + 1],
                         u"Process range 0 to 100 % Calibration range 0 to 356 mm Datasheet "
                         "HGC-10-DS-LT-1002 Requisition HGC-RQ-I-106"_s);
            }
        }
    }
    QVERIFY(seen);
    const auto stored = [&](const QString& field) {
        return ProgramFixture::value(
                   m_sample, u"select count("_s + field + u") from index where Location <> 'DCS'"_s)
            .toInt();
    };
    QCOMPARE(process, stored(u"MaxProcessValue"_s));
    QCOMPARE(calibration, stored(u"MaxCalibrationValue"_s));
}

void TestReportContent::longRemarksStandUnderTheirTag()
{
    const QString select = u"select Remarks from index where Len(Remarks) > 48"_s;
    const std::map<int, QString> selects{
        {instrumentIndex, select}, {installationDetails, select + u" and Location <> 'DCS'"_s}};
    for (const auto& [number, where] : selects) {
        for (const std::size_t form : {0U, 1U}) {
            const PrintedReport& report = print(number, form);
            QString all;
            for (int page = 0; page < report.pageCount(); ++page)
                all += report.text(page) + u' ';
            const QStringList remarks = ProgramFixture::values(m_sample, where);
            QVERIFY(remarks.size() >= 5);
            for (const QString& text : remarks)
                QVERIFY2(all.contains(u"Remarks "_s + text.simplified()), qPrintable(text));
            QCOMPARE(all.count(u"see below"_s), remarks.size());
        }
    }
}

void TestReportContent::groupsAreAddedUp()
{
    const auto line = [&](const QString& label, const QString& where) -> QString {
        const auto value = [&](const QString& what) -> QString {
            return ProgramFixture::value(m_sample, u"select "_s + what + where);
        };
        const QStringList loops = ProgramFixture::values(
            m_sample, u"select distinct LoopNumber from index "_s + where.section(u"index "_s, 1));
        return label + u' ' + value(u"count(*)"_s) + u' ' + QString::number(loops.size());
    };
    const PrintedReport& report = print(instrumentIndex);
    const QStringList last = report.lines(report.pageCount() - 1);
    const QStringList areas = ProgramFixture::values(
        m_sample, u"select distinct ProcessUnitArea from index order by ProcessUnitArea"_s);
    QCOMPARE(areas.size(), 5);
    for (const QString& area : areas) {
        const QString where = u" from index where ProcessUnitArea = '"_s + area + u'\'';
        QVERIFY2(last.contains(line(u"Area: "_s + area, where)), qPrintable(area));
    }
    const QStringList units =
        ProgramFixture::values(m_sample, u"select distinct OperatingUnitNumber from index"_s);
    for (const QString& unit : units) {
        const QString where = u" from index where OperatingUnitNumber = '"_s + unit + u'\'';
        QVERIFY2(last.contains(line(u"Unit: "_s + unit, where)), qPrintable(unit));
    }
    QVERIFY(last.contains(u"Total 418 182"_s));

    const PrintedReport& alarms = print(alarmSummary);
    QVERIFY(alarms.lines(alarms.pageCount() - 1).contains(u"Total 113 33 78 197 0"_s));
    const PrintedReport& care = print(maintenance);
    QVERIFY(care.lines(care.pageCount() - 1).contains(u"Total 418 154 182"_s));
    const PrintedReport& installation = print(installationDetails);
    QVERIFY(installation.lines(installation.pageCount() - 1).contains(u"Total 348"_s));
}

void TestReportContent::pagesAreNumberedAndSayWhatTheyShow()
{
    for (int number = 1; number <= 4; ++number) {
        const Description form = reportForms(number).front();
        const PrintedReport& report = print(number);
        QVERIFY(report.pageCount() > 1);
        for (int page = 0; page < report.pageCount(); ++page) {
            const QString text = report.text(page);
            const QString place =
                QString::number(page + 1) + u" of "_s + QString::number(report.pageCount());
            for (const QString& said : {place,
                                        form.title,
                                        form.filterText,
                                        form.sortText,
                                        u"Wexcombe Energy Ltd"_s,
                                        u"HGC-2417"_s,
                                        u"Heronsfield Gas Conditioning Plant"_s,
                                        u"Units 05-80"_s,
                                        u"Heronsfield, East Moor"_s})
                QVERIFY2(text.contains(said), qPrintable(said));
        }
    }
}

void TestReportContent::aGroupThatGoesOnSaysSo()
{
    const PrintedReport& report = print(instrumentIndex);
    const QHash<QString, QString> units =
        byTag(u"select PlantItemNo & '|' & OperatingUnitNumber from index"_s);
    QString last;
    int page = -1;
    int continued = 0;
    for (const auto& row : report.rows(m_tags)) {
        const QString unit = units.value(row.tag);
        if (row.page != page) {
            const bool goesOn = unit == last;
            const QString heading = u"Unit: "_s + unit + (goesOn ? u" (continued)"_s : u""_s);
            QVERIFY2(report.lines(row.page).contains(heading), qPrintable(heading));
            continued += goesOn ? 1 : 0;
        }
        page = row.page;
        last = unit;
    }
    QVERIFY(continued > 3);
}

void TestReportContent::anAreaBeginsAPage()
{
    const PrintedReport& report = print(instrumentIndex);
    for (int page = 0; page + 1 < report.pageCount(); ++page) {
        const QStringList headings = report.lines(page).filter(u"Area: "_s);
        QCOMPARE(headings.size(), 1);
    }
}

void TestReportContent::revisionsStandOnTheFirstPage()
{
    for (int number = 1; number <= 4; ++number) {
        const PrintedReport& report = print(number);
        const QStringList lines = report.lines(0);
        const qsizetype heading = lines.indexOf(u"NO DATE DESCRIPTION BY CHK APPR"_s);
        QVERIFY(heading >= 0);
        QCOMPARE(lines[heading + 1],
                 u"1 2025-10-20 Metering skid and flare area updated; alarm settings as agreed at "
                 "the review S. Ingram M. Arkwright R. Penhale"_s);
        QVERIFY(lines[heading + 2].startsWith(u"0 2025-06-02 "_s));
        QVERIFY(lines[heading + 3].startsWith(u"B 2025-02-24 "_s));
        for (int page = 1; page < report.pageCount(); ++page)
            QVERIFY(!report.text(page).contains(u"DESCRIPTION BY CHK"_s));
    }
}

void TestReportContent::theLogoIsPrinted()
{
    const QString logo = QStringLiteral(OSTRAND_BIN_DIR "/Samples/Wexcombe.jpg");
    QVERIFY(QFile::copy(logo, m_program->path(u"Wexcombe.jpg"_s)));
    const PrintedReport report(reportForms(alarmSummary).front(), m_sample, m_folder.path());
    QProcess images;
    images.start(u"pdfimages"_s, {u"-list"_s, m_folder.filePath(u"report.pdf"_s)});
    QVERIFY(images.waitForFinished());
    QVERIFY(images.readAllStandardOutput().contains(" image "));
    QVERIFY(QFile::remove(m_program->path(u"Wexcombe.jpg"_s)));
}

void TestReportContent::tagsAreCountedAsPeopleCount()
{
    const QString project = m_program->emptyProject();
    QStringList tags;
    for (const auto* tag : {u"FT-11", u"FT-10A", u"FT-2", u"FT-10"}) {
        tags << add(project,
                    {u"PlantItemNo"_s, u"LoopNumber"_s, u"H_SETTING"_s, u"Location"_s},
                    {QString::fromUtf16(tag), u"F-1"_s, u"80 %"_s, u"FIELD"_s});
    }
    for (int number = 1; number <= 4; ++number) {
        const PrintedReport report(reportForms(number).front(), project, m_folder.path());
        QCOMPARE(tagsOf(report.rows(setOf(tags))).join(u' '), u"FT-2 FT-10 FT-10A FT-11"_s);
    }
}

void TestReportContent::marksStandExactlyWhereTheyBelong()
{
    const QString project = m_program->emptyProject(u"marks.mdb"_s);
    const QStringList fields{u"PlantItemNo"_s,
                             u"ScaleRangeValue"_s,
                             u"ProcessSetPointValue"_s,
                             u"H_H_H_SETTING"_s,
                             u"H_H_SETTING"_s,
                             u"H_SETTING"_s,
                             u"L_SETTING"_s,
                             u"L_L_SETTING"_s,
                             u"L_L_L_SETTING"_s};
    const QString range = u"0 to 100 %"_s;
    QSet<QString> tags;
    const auto tag = [&](QStringList values) {
        values.insert(1, range);
        tags.insert(add(project, fields, values));
    };
    tag({u"A-1"_s, u"50 %"_s, u"97 %"_s, u"95 %"_s, u"80 %"_s, u"20 %"_s, u"8 %"_s, u"5 %"_s});
    tag({u"A-2"_s, u"50 %"_s, u"94 %"_s, u"95 %"_s, u"80 %"_s, u"20 %"_s, u"8 %"_s, u"5 %"_s});
    tag({u"A-3"_s, u"150 %"_s, u"97 %"_s, u"95 %"_s, u"80 %"_s, u"7 %"_s, u"8 %"_s, u"5 %"_s});
    tag({u"A-4"_s, u"5 bar"_s, u""_s, u""_s, u"120 %"_s, u"20 bar"_s, u""_s, u"-2 %"_s});
    const PrintedReport report(reportForms(alarmSummary).front(), project, m_folder.path());
    QStringList marks;
    for (const auto& row : report.rows(tags)) {
        QStringList marked{row.tag};
        for (int column = 0; column < row.cells.size(); ++column) {
            if (row.cells[column].contains(u'!'))
                marked << QString::number(column);
        }
        marks << marked.join(u' ');
    }
    QCOMPARE(marks, (QStringList{u"A-1"_s, u"A-2 6 7"_s, u"A-3 5 9 10"_s, u"A-4 8 11"_s}));
    QVERIFY(report.lines(report.pageCount() - 1).contains(u"Total 4 0 4 21 3"_s));
}

void TestReportContent::hardTagsAreAllPrinted()
{
    const QString project = m_program->emptyProject(u"hard.mdb"_s);
    int stored = 0;
    for (const QString& tag : hardTags()) {
        QString quoted = tag;
        quoted.replace(u'\'', u"''"_s);
        try {
            add(project, {u"PlantItemNo"_s, u"H_SETTING"_s}, {quoted, u"1 bar"_s});
            ++stored;
        } catch (const ostrand::store::Error&) {
            // Equal to a tag that is there but for case, or too long for the field.
        }
    }
    QVERIFY(stored > 60);
    for (int number = 1; number <= 4; ++number) {
        for (Description form : reportForms(number)) {
            setLocation(form, project);
            ReportData data = read(form);
            QCOMPARE(static_cast<int>(data.rows.size()), stored);
            QStringList tags;
            for (const Row& row : data.rows)
                tags << row[form.key];
            Pages pages(std::make_shared<const Description>(form), std::move(data));
            pages.layOutAll();
            for (const QString& tag : tags) {
                const QString printed = tag.simplified();
                bool found = printed.isEmpty();
                for (int page = 0; page < pages.count() && !found; ++page)
                    found = !pages.find(page, printed).empty();
                QVERIFY2(found, qPrintable(form.name + u": "_s + tag));
            }
        }
    }
}

void TestReportContent::aCardIsPrintedForEveryTag()
{
    const PrintedReport& report = print(maintenance, 1);
    QCOMPARE(report.pageCount(), 418 + 1);
    QSet<QString> tags;
    for (int page = 0; page < 418; ++page) {
        const QStringList lines = report.lines(page);
        const QString tag = lines.filter(u"Instrument type"_s).value(0).section(u' ', 1, 1);
        QVERIFY2(m_tags.contains(tag), qPrintable(tag));
        tags.insert(tag);
        for (const QString& point : {u"0 %"_s, u"25 %"_s, u"50 %"_s, u"75 %"_s, u"100 %"_s})
            QVERIFY(lines.contains(point));
        QVERIFY(lines.contains(u"Input As found Error As left Error By Date"_s));
    }
    QCOMPARE(tags.size(), 418);
}

QTEST_MAIN(TestReportContent)
#include "tst_report_content.moc"
