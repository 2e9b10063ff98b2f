// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/settings.h"

#include "viewing/reports/definitions/quantity.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

QString firstFilled(const Row& tag, const QStringList& fields)
{
    for (const QString& field : fields) {
        QString text = tag[field].trimmed();
        if (!text.isEmpty())
            return text;
    }
    return {};
}

bool isOutside(const QString& text, const Row& tag)
{
    const auto value = quantityOf(text);
    const auto range = value ? spanOf(rangeOf(tag)) : std::nullopt;
    return range && isSameUnit(value->unit, range->unit)
           && (value->value < range->low || value->value > range->high);
}

/// The nearest setting in one direction of the list that can be compared with a value.
std::optional<double> neighbour(const Row& tag, const Quantity& of, const QStringList& fields)
{
    for (const QString& field : fields) {
        const auto other = quantityOf(tag[field]);
        if (other && isSameUnit(of.unit, other->unit))
            return other->value;
    }
    return std::nullopt;
}

} // namespace

const QStringList& settingFields()
{
    static const QStringList fields{u"H_H_H_SETTING"_s,
                                    u"H_H_SETTING"_s,
                                    u"H_SETTING"_s,
                                    u"L_SETTING"_s,
                                    u"L_L_SETTING"_s,
                                    u"L_L_L_SETTING"_s};
    return fields;
}

QString rangeOf(const Row& tag)
{
    return firstFilled(tag,
                       {u"ScaleRangeValue"_s, u"ProcessRangeValue"_s, u"CalibrationRangeValue"_s});
}

QString setPointOf(const Row& tag)
{
    return firstFilled(
        tag, {u"ScaleSetPointValue"_s, u"ProcessSetPointValue"_s, u"CalibrationSetPointValue"_s});
}

int settingCount(const Row& tag)
{
    return static_cast<int>(
        std::count_if(settingFields().begin(), settingFields().end(), [&](const QString& field) {
            return !tag[field].trimmed().isEmpty();
        }));
}

bool hasSettings(const Row& tag)
{
    return settingCount(tag) > 0 || !setPointOf(tag).isEmpty();
}

bool isDoubtful(const Row& tag, const QString& field)
{
    if (isOutside(tag[field], tag))
        return true;
    const auto setting = quantityOf(tag[field]);
    if (!setting)
        return false;
    const QStringList& all = settingFields();
    const qsizetype place = all.indexOf(field);
    QStringList higher = all.first(place);
    std::reverse(higher.begin(), higher.end());
    const auto above = neighbour(tag, *setting, higher);
    const auto below = neighbour(tag, *setting, all.sliced(place + 1));
    return (above && *above < setting->value) || (below && *below > setting->value);
}

bool isSetPointDoubtful(const Row& tag)
{
    return isOutside(setPointOf(tag), tag);
}

bool isDoubtful(const Row& tag)
{
    return isSetPointDoubtful(tag)
           || std::any_of(settingFields().begin(),
                          settingFields().end(),
                          [&](const QString& field) { return isDoubtful(tag, field); });
}

} // namespace ostrand::viewing::reports
