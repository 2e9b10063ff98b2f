// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/columns.h"
#include "viewing/reports/definitions/definitions.h"
#include "viewing/reports/definitions/settings.h"
#include "viewing/reports/definitions/sources.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

struct AlarmSummary
{
    Q_DECLARE_TR_FUNCTIONS(Reports)

public:
    static std::vector<Column> columns();
    static Description description();
};

Column settingColumn(const QString& field, double width)
{
    Column column = fieldColumn(field, width);
    column.warn = [field](const Row& tag) { return isDoubtful(tag, field); };
    return column;
}

std::vector<Column> AlarmSummary::columns()
{
    std::vector<Column> columns{
        tagColumn(24),
        fieldColumn(u"ServiceDescription"_s, 58),
        fieldColumn(u"LoopNumber"_s, 18),
        fieldColumn(u"SignalType"_s, 22),
        {.caption = tr("Range"), .width = 28, .compose = rangeOf},
        {.caption = tr("Set point"),
         .width = 24,
         .compose = setPointOf,
         .warn = isSetPointDoubtful},
    };
    constexpr double settingWidth = 17;
    for (const QString& field : settingFields())
        columns.push_back(settingColumn(field, settingWidth));
    columns.back().width = 18;
    return columns;
}

Description AlarmSummary::description()
{
    const Subreport pid = documents({u"PID"_s});
    return {
        .name = u"crxAlarmSummary"_s,
        .title = tr("Controller and Alarm Summary"),
        .form = tr("A4"),
        .paper = Paper::A4Landscape,
        .source = tags({u"ProcessRangeValue"_s,
                        u"CalibrationRangeValue"_s,
                        u"ScaleRangeValue"_s,
                        u"ScaleSetPointValue"_s}),
        .key = tagField,
        .sections = {{SectionKind::PageHeader, {header()}},
                     {SectionKind::GroupHeader},
                     {SectionKind::Details, {pid}},
                     {SectionKind::ReportFooter},
                     {SectionKind::PageFooter, {revisions()}}},
        .groups = {{tr("Unit"), u"OperatingUnitNumber"_s}},
        .sort = {tagField},
        .filter = hasSettings,
        .filterText = tr("tags with a set point or an alarm setting"),
        .sortText = tr("unit, tag"),
        .columns = columns(),
        .under = {{tr("P&ID"), pid.name, {documentLine()}, true}},
        .totals = {{tr("Controllers"),
                    [](const Row& tag) { return tag[u"ScaleSetPointValue"_s].isEmpty() ? 0 : 1; }},
                   {tr("Set points"),
                    [](const Row& tag) { return setPointOf(tag).isEmpty() ? 0 : 1; }},
                   {tr("Alarm settings"), settingCount},
                   {tr("With a warning (!)"),
                    [](const Row& tag) { return isDoubtful(tag) ? 1 : 0; }}},
    };
}

} // namespace

std::vector<Description> crxAlarmSummary()
{
    return {AlarmSummary::description()};
}

} // namespace ostrand::viewing::reports
