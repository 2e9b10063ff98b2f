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

struct InstrumentIndex
{
    Q_DECLARE_TR_FUNCTIONS(Reports)

public:
    static Description a3();
    static Description a4();
};

Description InstrumentIndex::a3()
{
    const Subreport pid = documents({u"PID"_s});
    const Subreport datasheet = documents({u"DATASHEET"_s});
    const Subreport loopDrawing = documents({u"LOOP DWG"_s});
    const Subreport purchase = documents({u"REQUISITION"_s, u"PURCHASE ORDER"_s});
    return {
        .name = u"crxIndex"_s,
        .title = tr("Instrument Index"),
        .form = tr("A3"),
        .paper = Paper::A3Landscape,
        .source = tags({u"ProcessRangeValue"_s,
                        u"CalibrationRangeValue"_s,
                        u"ScaleRangeValue"_s,
                        u"ScaleSetPointValue"_s}),
        .key = tagField,
        .sections = {{SectionKind::ReportHeader, {revisions()}},
                     {SectionKind::PageHeader, {header()}},
                     {SectionKind::GroupHeader},
                     {SectionKind::GroupHeader},
                     {SectionKind::Details, {pid, datasheet, loopDrawing, purchase}},
                     {SectionKind::ReportFooter},
                     {SectionKind::PageFooter}},
        .groups = {{tr("Area"), u"ProcessUnitArea"_s, true},
                   {tr("Unit"), u"OperatingUnitNumber"_s}},
        .sort = {u"LoopNumber"_s, tagField},
        .filterText = tr("all tags"),
        .sortText = tr("area, unit, loop, tag"),
        .columns = {tagColumn(26),
                    fieldColumn(u"InstrumentType"_s, 34),
                    fieldColumn(u"ServiceDescription"_s, 62),
                    fieldColumn(u"LoopNumber"_s, 20),
                    fieldColumn(u"EquipOrLineNo"_s, 28),
                    fieldColumn(u"Location"_s, 20),
                    documentColumn(pid.name, tr("P&ID"), 32),
                    documentColumn(datasheet.name, tr("Datasheet"), 38),
                    documentColumn(loopDrawing.name, tr("Loop drawing"), 34),
                    documentColumn(purchase.name, tr("Requisition / PO"), 34),
                    fieldColumn(u"Manufacturer"_s, 26),
                    fieldColumn(u"ModelNumber"_s, 22),
                    remarksColumn(24)},
        .under = {longRemarks()},
        .totals = {{.caption = tr("Loops"),
                    .distinct = [](const Row& tag) { return tag[u"LoopNumber"_s]; }}},
    };
}

/// Without what purchasing alone wants to know.
Description InstrumentIndex::a4()
{
    Description report = a3();
    report.form = tr("A4");
    report.paper = Paper::A4Landscape;
    report.columns = {tagColumn(24),
                      fieldColumn(u"InstrumentType"_s, 32),
                      fieldColumn(u"ServiceDescription"_s, 54),
                      fieldColumn(u"LoopNumber"_s, 17),
                      fieldColumn(u"EquipOrLineNo"_s, 22),
                      fieldColumn(u"Location"_s, 18),
                      documentColumn(u"PID"_s, tr("P&ID"), 27),
                      documentColumn(u"DATASHEET"_s, tr("Datasheet"), 34),
                      documentColumn(u"LOOP DWG"_s, tr("Loop drawing"), 27),
                      remarksColumn(22)};
    return report;
}

} // namespace

std::vector<Description> crxIndex()
{
    return {InstrumentIndex::a3(), InstrumentIndex::a4()};
}

} // namespace ostrand::viewing::reports
