// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/collation.h"
#include "store/error.h"
#include "support/program_fixture.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/report_data.h"

#include <QTest>

#include <sqlite3.h>

#include <numeric>
#include <set>

using namespace Qt::StringLiterals;
using namespace ostrand::viewing::reports;
using ostrand::tests::ProgramFixture;

namespace {

constexpr int alarmSummary = 1;
constexpr int instrumentIndex = 2;
constexpr int maintenance = 3;
constexpr int installationDetails = 4;

std::vector<Description> allForms()
{
    std::vector<Description> all;
    for (int number = 1; number <= 4; ++number) {
        for (const Description& form : reportForms(number))
            all.push_back(form);
    }
    return all;
}

QByteArray nameOf(const Description& report)
{
    return (report.name + u' ' + report.form).toUtf8();
}

std::vector<const Subreport*> subreportsOf(const Description& report)
{
    std::vector<const Subreport*> all;
    for (const Section& section : report.sections) {
        for (const Subreport& subreport : section.subreports)
            all.push_back(&subreport);
    }
    return all;
}

ReportData readFrom(Description report, const QString& project)
{
    setLocation(report, project);
    return read(report);
}

/// The numbers of a tag's documents in a subreport.
QStringList documentsOf(const ReportData& data, const QString& subreport, const QString& tag)
{
    QStringList numbers;
    for (const Row& row : data.of(subreport, tag))
        numbers << row[u"docNo"_s];
    return numbers;
}

/// Makes the file one of an older program that did not know the field.
void renameColumn(const QString& project)
{
    sqlite3* file = nullptr;
    sqlite3_open(project.toUtf8().constData(), &file);
    ostrand::store::registerCollation(file);
    const int result = sqlite3_exec(file,
                                    "DROP VIEW qryIndex;"
                                    "ALTER TABLE \"index\" RENAME COLUMN BodyMaterial TO Body",
                                    nullptr,
                                    nullptr,
                                    nullptr);
    sqlite3_close(file);
    QCOMPARE(result, SQLITE_OK);
}

} // namespace

class TestReportDefinitions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_program = std::make_unique<ProgramFixture>(); }
    void everyNumberHasItsReport_data();
    void everyNumberHasItsReport();
    void otherNumbersHaveNone();
    void columnsFillThePaper();
    void everyTableIsRead_data();
    void everyTableIsRead();
    void everySourceIsPointedAtTheProject();
    void everyFieldOfTheIndexIsReadThatIsThere();
    void theSampleHasItsRows_data();
    void theSampleHasItsRows();
    void totalsOfTheSampleAreThoseOfTheTable();
    void everyFormOfAnEmptyProjectIsEmpty();
    void aDocumentIsOfAKindByItsTypeOrItsRole();
    void aTieFindsItsTagInAnyCase();
    void requisitionAndPurchaseOrderShareAColumn();
    void devicesInTheControlRoomAreNotInstalled_data();
    void devicesInTheControlRoomAreNotInstalled();
    void rowsComeInTheOrderOfThePlant();
    void aMissingFieldIsTheEnginesError();

private:
    std::unique_ptr<ProgramFixture> m_program;
};

void TestReportDefinitions::everyNumberHasItsReport_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("forms");
    QTest::newRow("1") << alarmSummary << u"crxAlarmSummary"_s << QStringList{u"A4"_s};
    QTest::newRow("2") << instrumentIndex << u"crxIndex"_s << QStringList{u"A3"_s, u"A4"_s};
    QTest::newRow("3") << maintenance << u"crxMaintenance"_s
                       << QStringList{u"List"_s, u"One tag per page"_s};
    QTest::newRow("4") << installationDetails << u"crxInstallationDtls"_s
                       << QStringList{u"A3"_s, u"A4"_s};
}

void TestReportDefinitions::everyNumberHasItsReport()
{
    QFETCH(int, number);
    QFETCH(QString, name);
    QStringList forms;
    for (const Description& form : reportForms(number)) {
        QCOMPARE(form.name, name);
        forms << form.form;
    }
    QTEST(forms, "forms");
}

void TestReportDefinitions::otherNumbersHaveNone()
{
    for (const int number : {-1, 0, 5})
        QVERIFY(reportForms(number).empty());
}

void TestReportDefinitions::columnsFillThePaper()
{
    for (const Description& report : allForms()) {
        if (report.card)
            continue;
        const double width =
            std::accumulate(report.columns.begin(),
                            report.columns.end(),
                            0.0,
                            [](double sum, const Column& column) { return sum + column.width; });
        const double body = report.paper == Paper::A3Landscape ? 400 : 277;
        QVERIFY2(width == body, nameOf(report).constData());
    }
}

void TestReportDefinitions::everyTableIsRead_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("tables");
    const QStringList blocks{u"index"_s, u"qryIndexRev"_s, u"qryrptindexheader"_s};
    const QStringList documents{u"itemDocXRef"_s, u"document"_s, u"plDocType"_s};
    QTest::newRow("crxAlarmSummary") << alarmSummary << blocks;
    QTest::newRow("crxIndex") << instrumentIndex << blocks + documents;
    QTest::newRow("crxMaintenance") << maintenance << blocks + documents;
    QTest::newRow("crxInstallationDtls") << installationDetails << blocks + documents;
}

void TestReportDefinitions::everyTableIsRead()
{
    QFETCH(int, number);
    QFETCH(QStringList, tables);
    for (const Description& report : reportForms(number)) {
        QCOMPARE(report.source.tables.front(), u"index"_s);
        QStringList read = report.source.tables;
        std::set<QString> names;
        for (const Subreport* subreport : subreportsOf(report)) {
            read += subreport->source.tables;
            QVERIFY2(names.insert(subreport->name).second, qPrintable(subreport->name));
            for (const QString& table : subreport->source.tables)
                QVERIFY2(subreport->source.select.contains(table), qPrintable(table));
        }
        for (const QString& table : tables)
            QVERIFY2(read.contains(table), qPrintable(table));
        for (const Column& column : report.columns)
            QVERIFY(column.subreport.isEmpty() || names.contains(column.subreport));
        for (const Under& under : report.under)
            QVERIFY(under.subreport.isEmpty() || names.contains(under.subreport));
        QVERIFY(names.contains(headerBlock));
        QVERIFY(names.contains(revisionBlock));
    }
}

void TestReportDefinitions::everySourceIsPointedAtTheProject()
{
    for (Description report : allForms()) {
        setLocation(report, u"/plant/new.mdb"_s);
        QCOMPARE(report.source.location, u"/plant/new.mdb"_s);
        for (const Subreport* subreport : subreportsOf(report))
            QCOMPARE(subreport->source.location, u"/plant/new.mdb"_s);
    }
}

void TestReportDefinitions::everyFieldOfTheIndexIsReadThatIsThere()
{
    const QString project = m_program->sampleProject();
    const QStringList shared{u"PlantItemNo"_s,
                             u"CompanyTrackingNumber"_s,
                             u"OperatingUnitNumber"_s,
                             u"ProcessUnitArea"_s,
                             u"MeasureVariable"_s,
                             u"TypeModifier"_s,
                             u"SequenceNo"_s,
                             u"LoopSuffix"_s,
                             u"InstrumentSuffix"_s,
                             u"ServiceDescription"_s,
                             u"LoopNumber"_s,
                             u"LoopTypicalNum"_s,
                             u"InstrumentType"_s,
                             u"EquipOrLineNo"_s,
                             u"Location"_s,
                             u"ProcessSystemNo"_s,
                             u"ConstructionArea"_s,
                             u"ScopeArea"_s,
                             u"ElectricalArea"_s,
                             u"ElectricalAreaClassification"_s,
                             u"PlantItemClassification"_s,
                             u"FireArea"_s,
                             u"WorkArea"_s,
                             u"IOType"_s,
                             u"Manufacturer"_s,
                             u"ModelNumber"_s,
                             u"ManufacturerSerialNumber"_s,
                             u"Supplier"_s,
                             u"SupplierModelNumber"_s,
                             u"BodyMaterial"_s,
                             u"JunctionBoxNumber"_s,
                             u"MarshallingRack"_s,
                             u"MaintenanceRecord"_s,
                             u"SignalType"_s,
                             u"ProcessSetPointValue"_s,
                             u"CalibrationSetPointValue"_s,
                             u"H_H_H_SETTING"_s,
                             u"H_H_SETTING"_s,
                             u"H_SETTING"_s,
                             u"L_SETTING"_s,
                             u"L_L_SETTING"_s,
                             u"L_L_L_SETTING"_s,
                             u"TagType"_s,
                             u"FormatType"_s,
                             u"Remarks"_s,
                             u"TagPath"_s,
                             u"TagFileName"_s};
    const QStringList ranges{u"ProcessRangeValue"_s, u"CalibrationRangeValue"_s};
    const QStringList scale{u"ScaleRangeValue"_s, u"ScaleSetPointValue"_s};
    const QStringList parts{u"MinProcessValue"_s,
                            u"MaxProcessValue"_s,
                            u"ProcessUnitsOfMeasure"_s,
                            u"MinCalibrationValue"_s,
                            u"MaxCalibrationValue"_s,
                            u"CalibUnitsOfMeasure"_s};
    const std::map<int, QStringList> more{{alarmSummary, ranges + scale},
                                          {instrumentIndex, ranges + scale},
                                          {maintenance, ranges},
                                          {installationDetails, parts}};
    for (const auto& [number, own] : more) {
        for (const Description& report : reportForms(number)) {
            const ReportData data = readFrom(report, project);
            for (const QString& field : shared + own)
                QVERIFY2(data.rows.front().fields().at(field) >= 0, qPrintable(field));
        }
    }
}

void TestReportDefinitions::theSampleHasItsRows_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("select");
    QTest::addColumn<int>("rows");
    QTest::newRow("crxAlarmSummary")
        << alarmSummary
        << u"select count(*) from index where ScaleSetPointValue is not null or "
           "ProcessSetPointValue is not null or CalibrationSetPointValue is not null or "
           "H_H_H_SETTING is not null or H_H_SETTING is not null or H_SETTING is not null or "
           "L_SETTING is not null or L_L_SETTING is not null or L_L_L_SETTING is not null"_s
        << 113;
    QTest::newRow("crxIndex") << instrumentIndex << u"select count(*) from index"_s << 418;
    QTest::newRow("crxMaintenance") << maintenance << u"select count(*) from index"_s << 418;
    QTest::newRow("crxInstallationDtls")
        << installationDetails << u"select count(*) from index where Location <> 'DCS'"_s << 348;
}

void TestReportDefinitions::theSampleHasItsRows()
{
    QFETCH(int, number);
    QFETCH(QString, select);
    QFETCH(int, rows);
    const QString project = m_program->sampleProject();
    QCOMPARE(ProgramFixture::value(project, select).toInt(), rows);
    for (const Description& report : reportForms(number)) {
        const ReportData data = readFrom(report, project);
        QCOMPARE(static_cast<int>(data.rows.size()), rows);
        std::set<QString> tags;
        for (const Row& row : data.rows)
            tags.insert(row[report.key]);
        QCOMPARE(static_cast<int>(tags.size()), rows);
    }
}

void TestReportDefinitions::totalsOfTheSampleAreThoseOfTheTable()
{
    const QString project = m_program->sampleProject();
    const auto totalsOf = [&](int number) {
        const Description report = reportForms(number).front();
        const ReportData data = readFrom(report, project);
        QStringList totals;
        for (const Total& total : report.totals) {
            int sum = 0;
            std::set<QString> texts;
            for (const Row& row : data.rows) {
                sum += total.count ? total.count(row) : 0;
                if (total.distinct && !total.distinct(row).isEmpty())
                    texts.insert(total.distinct(row));
            }
            totals << total.caption + u' '
                          + QString::number(total.count ? sum : static_cast<int>(texts.size()));
        }
        return totals;
    };
    const auto filled = [&](const QString& field) {
        return ProgramFixture::value(project, u"select count("_s + field + u") from index"_s)
            .toInt();
    };
    QCOMPARE(filled(u"ScaleSetPointValue"_s), 33);
    QCOMPARE(filled(u"H_H_H_SETTING"_s) + filled(u"H_H_SETTING"_s) + filled(u"H_SETTING"_s)
                 + filled(u"L_SETTING"_s) + filled(u"L_L_SETTING"_s) + filled(u"L_L_L_SETTING"_s),
             197);
    QCOMPARE(totalsOf(alarmSummary),
             (QStringList{u"Controllers 33"_s,
                          u"Set points 78"_s,
                          u"Alarm settings 197"_s,
                          u"With a warning (!) 0"_s}));
    QCOMPARE(totalsOf(instrumentIndex), QStringList{u"Loops 182"_s});
    QCOMPARE(totalsOf(maintenance), (QStringList{u"With calibration data 154"_s, u"Loops 182"_s}));
}

void TestReportDefinitions::everyFormOfAnEmptyProjectIsEmpty()
{
    const QString project = m_program->emptyProject();
    for (const Description& report : allForms()) {
        const ReportData data = readFrom(report, project);
        QVERIFY(data.rows.empty());
        QCOMPARE(data.of(headerBlock).size(), std::size_t(1));
        QVERIFY(data.of(revisionBlock).empty());
    }
}

void TestReportDefinitions::aDocumentIsOfAKindByItsTypeOrItsRole()
{
    const QString project = m_program->emptyProject();
    for (const auto* sql :
         {u"insert into [index] (PlantItemNo, TagFileName) values ('FT-1', 'FT-1.xls')",
          u"insert into document (docNo, docType) values ('P-10', 'PID')",
          u"insert into document (docNo, docType) values ('P-9', 'PID')",
          u"insert into document (docNo, docType) values ('D-1', 'DATASHEET')",
          u"insert into document (docNo) values ('X-1')",
          u"insert into document (docNo, docType) values ('N-1', 'NA')",
          u"insert into itemDocXRef (PlantItemNo, docNo) values ('FT-1', 'P-10')",
          u"insert into itemDocXRef (PlantItemNo, docNo, context) values ('FT-1', 'P-9', 'PID')",
          u"insert into itemDocXRef (PlantItemNo, docNo, context) values ('FT-1', 'P-9', 'spare')",
          u"insert into itemDocXRef (PlantItemNo, docNo, context) values ('FT-1', 'D-1', 'pid')",
          u"insert into itemDocXRef (PlantItemNo, docNo, context) values ('FT-1', 'X-1', 'PID')",
          u"insert into itemDocXRef (PlantItemNo, docNo, context) values ('FT-1', 'N-1', 'PID')",
          u"insert into itemDocXRef (PlantItemNo, docNo, context) values ('FT-1', '**DELETED**', "
          "'PID')"})
        ProgramFixture::execute(project, QString::fromUtf16(sql));
    const ReportData data = readFrom(reportForms(instrumentIndex).front(), project);
    QStringList pids = documentsOf(data, u"PID"_s, u"FT-1"_s);
    QCOMPARE(pids, (QStringList{u"D-1"_s, u"P-10"_s, u"P-9"_s, u"X-1"_s}));
    QCOMPARE(documentsOf(data, u"DATASHEET"_s, u"FT-1"_s), QStringList{u"D-1"_s});
    QCOMPARE(documentsOf(data, u"LOOP DWG"_s, u"FT-1"_s), QStringList());

    const Description list = reportForms(maintenance).front();
    const ReportData every = readFrom(list, project);
    QStringList lines;
    for (const Row& row : every.of(u"documents"_s, u"FT-1"_s)) {
        const Under& under = list.under.front();
        lines << under.columns[1].compose(row) + u": "_s + row[under.columns[2].field];
    }
    QCOMPARE(lines,
             (QStringList{u"DATASHEET / pid: D-1"_s,
                          u"PID: P-10"_s,
                          u"PID: P-9"_s,
                          u"PID / spare: P-9"_s,
                          u"PID: X-1"_s}));
}

void TestReportDefinitions::aTieFindsItsTagInAnyCase()
{
    const QString project = m_program->emptyProject();
    ProgramFixture::execute(project, u"insert into [index] (PlantItemNo) values ('FT-1a')"_s);
    ProgramFixture::execute(project,
                            u"insert into document (docNo, docType) values ('P', 'PID')"_s);
    ProgramFixture::execute(
        project, u"insert into itemDocXRef (PlantItemNo, docNo) values ('ft-1A', 'P')"_s);
    for (const int number : {alarmSummary, instrumentIndex, installationDetails}) {
        const ReportData data = readFrom(reportForms(number).front(), project);
        QCOMPARE(documentsOf(data, u"PID"_s, u"FT-1a"_s), QStringList{u"P"_s});
    }
    const ReportData data = readFrom(reportForms(maintenance).front(), project);
    QCOMPARE(documentsOf(data, u"documents"_s, u"FT-1a"_s), QStringList{u"P"_s});
}

void TestReportDefinitions::requisitionAndPurchaseOrderShareAColumn()
{
    const ReportData data =
        readFrom(reportForms(instrumentIndex).front(), m_program->sampleProject());
    QCOMPARE(documentsOf(data, u"REQUISITION"_s, u"PT-1001"_s),
             (QStringList{u"HGC-RQ-I-111"_s, u"PO-4517117"_s}));
}

void TestReportDefinitions::devicesInTheControlRoomAreNotInstalled_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<bool>("printed");
    QTest::newRow("field") << u"FIELD"_s << true;
    QTest::newRow("none") << u""_s << true;
    QTest::newRow("house") << u"ANALYZER HOUSE"_s << true;
    QTest::newRow("system") << u"DCS"_s << false;
    QTest::newRow("small letters") << u"dcs"_s << false;
    QTest::newRow("panel") << u"Panel"_s << false;
    QTest::newRow("panel of a name") << u"Panel LP-3"_s << false;
    QTest::newRow("part of a word") << u"PANELLED HUT"_s << true;
}

void TestReportDefinitions::devicesInTheControlRoomAreNotInstalled()
{
    QFETCH(QString, location);
    const auto fields = std::make_shared<const Fields>(QStringList{u"Location"_s});
    for (const Description& report : reportForms(installationDetails))
        QTEST(report.filter(Row(fields, {location})), "printed");
}

void TestReportDefinitions::rowsComeInTheOrderOfThePlant()
{
    const QString project = m_program->emptyProject();
    const auto add = [&](const QStringList& values) {
        ProgramFixture::execute(
            project,
            u"insert into [index] (PlantItemNo, ProcessUnitArea, OperatingUnitNumber, LoopNumber, "
            "ConstructionArea, Location, EquipOrLineNo, H_SETTING) values ('"_s
                + values.join(u"', '"_s) + u"', '1')"_s);
    };
    add({u"FT-11"_s, u"A"_s, u"1"_s, u"F-2"_s, u"C-2"_s, u"FIELD"_s, u"V-1"_s});
    add({u"FT-10A"_s, u"A"_s, u"1"_s, u"F-10"_s, u"C-2"_s, u"FIELD"_s, u"V-2"_s});
    add({u"FT-10"_s, u"A"_s, u"1"_s, u"F-10"_s, u"C-10"_s, u"HOUSE"_s, u"V-10"_s});
    add({u"FT-2"_s, u"A"_s, u"10"_s, u"F-1"_s, u"C-2"_s, u"FIELD"_s, u"V-2"_s});
    const auto order = [&](int number) {
        QStringList tags;
        for (const Row& row : readFrom(reportForms(number).front(), project).rows)
            tags << row[u"PlantItemNo"_s];
        return tags.join(u' ');
    };
    QCOMPARE(order(instrumentIndex), u"FT-11 FT-10 FT-10A FT-2"_s);
    QCOMPARE(order(alarmSummary), u"FT-10 FT-10A FT-11 FT-2"_s);
    QCOMPARE(order(maintenance), u"FT-2 FT-10A FT-11 FT-10"_s);
    QCOMPARE(order(installationDetails), u"FT-11 FT-2 FT-10A FT-10"_s);
}

void TestReportDefinitions::aMissingFieldIsTheEnginesError()
{
    const QString project = m_program->emptyProject();
    renameColumn(project);
    for (const Description& report : allForms()) {
        try {
            readFrom(report, project);
            QFAIL(nameOf(report).constData());
        } catch (const ostrand::store::Error& error) {
            QCOMPARE(error.number(), ostrand::store::errors::missingParameter);
        }
    }
}

QTEST_MAIN(TestReportDefinitions)
#include "tst_report_definitions.moc"
