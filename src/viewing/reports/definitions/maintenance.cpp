// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/columns.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/definitions/sources.h"
#include "viewing/reports/report_data.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

struct Maintenance
{
    Q_DECLARE_TR_FUNCTIONS(Reports)

public:
    static Description list();
    static Description card();
};

/// The calibrated range, with that of the process in brackets where they differ.
QString calibrationRange(const Row& tag)
{
    const QString calibration = tag[u"CalibrationRangeValue"_s].trimmed();
    const QString process = tag[u"ProcessRangeValue"_s].trimmed();
    if (process.isEmpty() || process == calibration)
        return calibration;
    return QString(calibration + u" ("_s + process + u')').trimmed();
}

int isCalibrated(const Row& tag)
{
    const bool empty = tag[u"CalibrationRangeValue"_s].trimmed().isEmpty()
                       && tag[u"CalibrationSetPointValue"_s].trimmed().isEmpty();
    return empty ? 0 : 1;
}

/// The document's own type, and the role that it has for the tag where that is another.
QString kindOf(const Row& document)
{
    QStringList kinds{document[u"docType"_s], document[u"context"_s]};
    kinds.removeAll(QString());
    if (kinds.size() == 2 && kinds[0].compare(kinds[1], Qt::CaseInsensitive) == 0)
        kinds.removeLast();
    return kinds.join(u" / "_s);
}

/// The list of a tag's documents, aligned with the columns above: behind an indent their kinds,
/// numbers and titles.
Under documentLines(const QString& subreport)
{
    return {.caption = {},
            .subreport = subreport,
            .columns = {{.caption = {}, .width = 20},
                        {.caption = {}, .width = 34, .compose = kindOf},
                        {.caption = {}, .width = 50, .field = u"docNo"_s},
                        {.caption = {}, .width = 165, .field = u"Title"_s}}};
}

Description Maintenance::list()
{
    const Subreport purchaseOrder = documents({u"PURCHASE ORDER"_s});
    const Subreport datasheet = documents({u"DATASHEET"_s});
    const Subreport every = allDocuments();
    return {
        .name = u"crxMaintenance"_s,
        .title = tr("Maintenance"),
        .form = tr("List"),
        .paper = Paper::A4Landscape,
        .source = tags({u"ProcessRangeValue"_s, u"CalibrationRangeValue"_s}),
        .key = tagField,
        .sections = {{SectionKind::ReportHeader, {revisions()}},
                     {SectionKind::PageHeader, {header()}},
                     {SectionKind::GroupHeader},
                     {SectionKind::GroupHeader},
                     {SectionKind::Details, {purchaseOrder, datasheet, every}},
                     {SectionKind::ReportFooter},
                     {SectionKind::PageFooter}},
        .groups = {{captionOf(u"Location"_s), u"Location"_s}, {tr("Area"), u"ProcessUnitArea"_s}},
        .sort = {tagField},
        .filterText = tr("all tags"),
        .sortText = tr("location, area, tag"),
        .columns = {tagColumn(24),
                    fieldColumn(u"InstrumentType"_s, 34),
                    fieldColumn(u"ServiceDescription"_s, 50),
                    fieldColumn(u"Manufacturer"_s, 30),
                    fieldColumn(u"ModelNumber"_s, 28),
                    {.caption = tr("Calibration range (process)"),
                     .width = 34,
                     .compose = calibrationRange},
                    fieldColumn(u"CalibrationSetPointValue"_s, 23),
                    documentColumn(purchaseOrder.name, tr("Purchase order"), 24),
                    documentColumn(datasheet.name, tr("Datasheet"), 30)},
        .under = {documentLines(every.name)},
        .totals = {{tr("With calibration data"), isCalibrated},
                   {.caption = tr("Loops"),
                    .distinct = [](const Row& tag) { return tag[u"LoopNumber"_s]; }}},
    };
}

Description Maintenance::card()
{
    Description report = list();
    report.form = tr("One tag per page");
    report.columns.clear();
    Under& every = report.under.front();
    every.caption = tr("Documents");
    every.columns.erase(every.columns.begin());
    report.under.push_back({.caption = captionOf(u"Remarks"_s),
                            .subreport = {},
                            .columns = {fieldColumn(u"Remarks"_s, 1)},
                            .joined = true});
    report.card = Card{
        .items = {fieldItem(tagField),
                  fieldItem(u"InstrumentType"_s),
                  fieldItem(u"ServiceDescription"_s),
                  fieldItem(u"LoopNumber"_s),
                  fieldItem(u"EquipOrLineNo"_s),
                  fieldItem(u"Location"_s),
                  fieldItem(u"Manufacturer"_s),
                  fieldItem(u"ModelNumber"_s),
                  fieldItem(u"ManufacturerSerialNumber"_s),
                  fieldItem(u"BodyMaterial"_s),
                  fieldItem(u"ElectricalArea"_s),
                  fieldItem(u"SignalType"_s),
                  fieldItem(u"CalibrationRangeValue"_s),
                  fieldItem(u"CalibrationSetPointValue"_s),
                  fieldItem(u"ProcessRangeValue"_s),
                  fieldItem(u"ProcessSetPointValue"_s),
                  fieldItem(u"H_H_H_SETTING"_s),
                  fieldItem(u"L_SETTING"_s),
                  fieldItem(u"H_H_SETTING"_s),
                  fieldItem(u"L_L_SETTING"_s),
                  fieldItem(u"H_SETTING"_s),
                  fieldItem(u"L_L_L_SETTING"_s),
                  fieldItem(u"JunctionBoxNumber"_s),
                  fieldItem(u"MaintenanceRecord"_s)},
        .tableCaption = tr("Calibration"),
        .tableColumns = {tr("Input"),
                         tr("As found"),
                         tr("Error"),
                         tr("As left"),
                         tr("Error"),
                         tr("By"),
                         tr("Date")},
        .tableRows = {u"0 %"_s, u"25 %"_s, u"50 %"_s, u"75 %"_s, u"100 %"_s},
    };
    return report;
}

} // namespace

std::vector<Description> crxMaintenance()
{
    return {Maintenance::list(), Maintenance::card()};
}

} // namespace ostrand::viewing::reports
