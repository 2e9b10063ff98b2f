// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/columns.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/definitions/sources.h"
#include "viewing/reports/report_data.h"

#include <QCoreApplication>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

struct InstallationDetails
{
    Q_DECLARE_TR_FUNCTIONS(Reports)

public:
    static Description a3();
    static Description a4();
};

/// What stands in the control system or in a panel is not installed in the field.
bool isInField(const Row& tag)
{
    static const QRegularExpression indoors(u"\\b(DCS|PANEL)\\b"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    return !tag[u"Location"_s].contains(indoors);
}

/// A range in parts: what its subreport is called, and its fields.
struct RangeFields
{
    QString name;
    QString low;
    QString high;
    QString unit;
};

const RangeFields processRange{
    u"process range"_s, u"MinProcessValue"_s, u"MaxProcessValue"_s, u"ProcessUnitsOfMeasure"_s};
const RangeFields calibrationRange{u"calibration range"_s,
                                   u"MinCalibrationValue"_s,
                                   u"MaxCalibrationValue"_s,
                                   u"CalibUnitsOfMeasure"_s};

QStringList fieldsOf(const RangeFields& range)
{
    return {range.low, range.high, range.unit};
}

Subreport ranges(const RangeFields& range)
{
    return {range.name,
            {{u"index"_s},
             u"select PlantItemNo, "_s + fieldsOf(range).join(u", "_s) + u" from index where "_s
                 + range.low + u" is not null or "_s + range.high + u" is not null"_s},
            tagField};
}

/// "0 to 100 bar(g)", or as much of it as there is.
Column rangeLine(const RangeFields& range)
{
    const auto text = [range](const Row& row) {
        QStringList ends{row[range.low], row[range.high]};
        ends.removeAll(QString());
        return QString(ends.join(u" to "_s) + u' ' + row[range.unit]).trimmed();
    };
    return {.caption = {}, .width = 1, .compose = text};
}

Description InstallationDetails::a3()
{
    const Subreport process = ranges(processRange);
    const Subreport calibration = ranges(calibrationRange);
    const Subreport pid = documents({u"PID"_s});
    const Subreport datasheet = documents({u"DATASHEET"_s});
    const Subreport loopDrawing = documents({u"LOOP DWG"_s});
    const Subreport requisition = documents({u"REQUISITION"_s});
    const Subreport purchaseOrder = documents({u"PURCHASE ORDER"_s});
    return {
        .name = u"crxInstallationDtls"_s,
        .title = tr("Installation Details"),
        .form = tr("A3"),
        .paper = Paper::A3Landscape,
        .source = tags(fieldsOf(processRange) + fieldsOf(calibrationRange)),
        .key = tagField,
        .sections =
            {{SectionKind::PageHeader, {header()}},
             {SectionKind::GroupHeader},
             {SectionKind::GroupHeader},
             {SectionKind::Details,
              {pid, loopDrawing, process, calibration, datasheet, requisition, purchaseOrder}},
             {SectionKind::ReportFooter},
             {SectionKind::PageFooter, {revisions()}}},
        .groups = {{captionOf(u"ConstructionArea"_s), u"ConstructionArea"_s},
                   {captionOf(u"Location"_s), u"Location"_s}},
        .sort = {u"EquipOrLineNo"_s, tagField},
        .filter = isInField,
        .filterText = tr("field devices (location other than DCS or panel)"),
        .sortText = tr("construction area, location, equipment or line, tag"),
        .columns = {tagColumn(26),
                    fieldColumn(u"InstrumentType"_s, 40),
                    fieldColumn(u"ServiceDescription"_s, 66),
                    fieldColumn(u"EquipOrLineNo"_s, 30),
                    fieldColumn(u"Location"_s, 24),
                    fieldColumn(u"ConstructionArea"_s, 24),
                    fieldColumn(u"ElectricalArea"_s, 30),
                    fieldColumn(u"SignalType"_s, 30),
                    fieldColumn(u"BodyMaterial"_s, 26),
                    documentColumn(pid.name, tr("P&ID"), 34),
                    documentColumn(loopDrawing.name, tr("Loop drawing"), 36),
                    remarksColumn(34)},
        .under = {{tr("Process range"), process.name, {rangeLine(processRange)}, true},
                  {tr("Calibration range"), calibration.name, {rangeLine(calibrationRange)}, true},
                  {tr("Datasheet"), datasheet.name, {documentLine()}, true},
                  {tr("Requisition"), requisition.name, {documentLine()}, true},
                  {tr("Purchase order"), purchaseOrder.name, {documentLine()}, true},
                  longRemarks()},
    };
}

/// The construction area is told by the heading of the group.
Description InstallationDetails::a4()
{
    Description report = a3();
    report.form = tr("A4");
    report.paper = Paper::A4Landscape;
    report.columns = {tagColumn(24),
                      fieldColumn(u"InstrumentType"_s, 32),
                      fieldColumn(u"ServiceDescription"_s, 46),
                      fieldColumn(u"EquipOrLineNo"_s, 20),
                      fieldColumn(u"Location"_s, 20),
                      fieldColumn(u"ElectricalArea"_s, 22),
                      fieldColumn(u"SignalType"_s, 23),
                      fieldColumn(u"BodyMaterial"_s, 19),
                      documentColumn(u"PID"_s, tr("P&ID"), 24),
                      documentColumn(u"LOOP DWG"_s, tr("Loop drawing"), 27),
                      remarksColumn(20)};
    return report;
}

} // namespace

std::vector<Description> crxInstallationDtls()
{
    return {InstallationDetails::a3(), InstallationDetails::a4()};
}

} // namespace ostrand::viewing::reports
