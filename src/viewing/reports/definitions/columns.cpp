// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/columns.h"

#include "viewing/reports/definitions/sources.h"
#include "viewing/reports/report_data.h"

#include <QCoreApplication>
#include <QHash>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {

namespace {

bool isLong(const QString& remarks)
{
    constexpr qsizetype longest = 48;
    return remarks.size() > longest;
}

} // namespace

QString captionOf(const QString& field)
{
    static const QHash<QString, const char*> captions{
        {u"PlantItemNo"_s, QT_TRANSLATE_NOOP("Reports", "Tag")},
        {u"InstrumentType"_s, QT_TRANSLATE_NOOP("Reports", "Instrument type")},
        {u"ServiceDescription"_s, QT_TRANSLATE_NOOP("Reports", "Service description")},
        {u"LoopNumber"_s, QT_TRANSLATE_NOOP("Reports", "Loop")},
        {u"EquipOrLineNo"_s, QT_TRANSLATE_NOOP("Reports", "Equipment / line")},
        {u"Location"_s, QT_TRANSLATE_NOOP("Reports", "Location")},
        {u"Manufacturer"_s, QT_TRANSLATE_NOOP("Reports", "Manufacturer")},
        {u"ModelNumber"_s, QT_TRANSLATE_NOOP("Reports", "Model")},
        {u"ManufacturerSerialNumber"_s, QT_TRANSLATE_NOOP("Reports", "Serial number")},
        {u"BodyMaterial"_s, QT_TRANSLATE_NOOP("Reports", "Body material")},
        {u"SignalType"_s, QT_TRANSLATE_NOOP("Reports", "Signal")},
        {u"ProcessUnitArea"_s, QT_TRANSLATE_NOOP("Reports", "Area")},
        {u"OperatingUnitNumber"_s, QT_TRANSLATE_NOOP("Reports", "Unit")},
        {u"ElectricalArea"_s, QT_TRANSLATE_NOOP("Reports", "Electrical area")},
        {u"ConstructionArea"_s, QT_TRANSLATE_NOOP("Reports", "Construction area")},
        {u"JunctionBoxNumber"_s, QT_TRANSLATE_NOOP("Reports", "Junction box")},
        {u"MaintenanceRecord"_s, QT_TRANSLATE_NOOP("Reports", "Maintenance record")},
        {u"CalibrationRangeValue"_s, QT_TRANSLATE_NOOP("Reports", "Calibration range")},
        {u"ProcessRangeValue"_s, QT_TRANSLATE_NOOP("Reports", "Process range")},
        {u"ProcessSetPointValue"_s, QT_TRANSLATE_NOOP("Reports", "Process set point")},
        {u"CalibrationSetPointValue"_s, QT_TRANSLATE_NOOP("Reports", "Calibration set point")},
        {u"H_H_H_SETTING"_s, QT_TRANSLATE_NOOP("Reports", "HHH")},
        {u"H_H_SETTING"_s, QT_TRANSLATE_NOOP("Reports", "HH")},
        {u"H_SETTING"_s, QT_TRANSLATE_NOOP("Reports", "H")},
        {u"L_SETTING"_s, QT_TRANSLATE_NOOP("Reports", "L")},
        {u"L_L_SETTING"_s, QT_TRANSLATE_NOOP("Reports", "LL")},
        {u"L_L_L_SETTING"_s, QT_TRANSLATE_NOOP("Reports", "LLL")},
        {u"Remarks"_s, QT_TRANSLATE_NOOP("Reports", "Remarks")},
    };
    const char* const caption = captions.value(field);
    return caption == nullptr ? field : QCoreApplication::translate("Reports", caption);
}

Column tagColumn(double width)
{
    Column column = fieldColumn(tagField, width);
    column.bold = true;
    return column;
}

Column fieldColumn(const QString& field, double width)
{
    return {.caption = captionOf(field), .width = width, .field = field};
}

Column documentColumn(const QString& kind, const QString& caption, double width)
{
    return {.caption = caption, .width = width, .subreport = kind, .line = documentLine().compose};
}

Column documentLine()
{
    return {.caption = {}, .width = 1, .compose = [](const Row& document) {
                return document[u"docNo"_s];
            }};
}

Column remarksColumn(double width)
{
    Column column = fieldColumn(u"Remarks"_s, width);
    column.compose = [](const Row& tag) {
        const QString& remarks = tag[u"Remarks"_s];
        return isLong(remarks) ? QCoreApplication::translate("Reports", "see below") : remarks;
    };
    return column;
}

Under longRemarks()
{
    const auto text = [](const Row& tag) {
        const QString& remarks = tag[u"Remarks"_s];
        return isLong(remarks) ? remarks : QString();
    };
    return {.caption = captionOf(u"Remarks"_s),
            .subreport = {},
            .columns = {{.caption = {}, .width = 1, .compose = text}},
            .joined = true};
}

Card::Item fieldItem(const QString& field)
{
    const bool isSetting = field.endsWith(u"_SETTING"_s);
    const QString caption = captionOf(field);
    return {isSetting ? QCoreApplication::translate("Reports", "Setting %1").arg(caption) : caption,
            [field](const Row& tag) { return tag[field]; }};
}

} // namespace ostrand::viewing::reports
