// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/value.h"

#include <cmath>
#include <limits>

namespace ostrand::store {

namespace {

constexpr int significantDigits = 15; ///< what a real number shows, so that 0.1 stays "0.1"

qint64 nearest(double number)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (std::isnan(number))
        return 0;
    if (number >= limit)
        return std::numeric_limits<qint64>::max();
    if (number < -limit)
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(std::nearbyint(number)); // halves go to the even neighbour
}

} // namespace

QString Value::text() const
{
    if (const auto* text = std::get_if<QString>(&m_data))
        return *text;
    if (const auto* whole = std::get_if<qint64>(&m_data))
        return QString::number(*whole);
    if (const auto* real = std::get_if<double>(&m_data))
        return QString::number(*real, 'G', significantDigits);
    return {};
}

bool Value::isNullOrEmpty() const
{
    const auto* text = std::get_if<QString>(&m_data);
    return isNull() || (text != nullptr && text->isEmpty());
}

double Value::number() const
{
    if (const auto* whole = std::get_if<qint64>(&m_data))
        return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&m_data))
        return *real;
    if (const auto* text = std::get_if<QString>(&m_data))
        return text->trimmed().toDouble();
    return 0.0;
}

qint64 Value::integer() const
{
    if (const auto* whole = std::get_if<qint64>(&m_data))
        return *whole;
    if (const auto* text = std::get_if<QString>(&m_data)) {
        bool isWhole = false;
        const qint64 whole = text->trimmed().toLongLong(&isWhole);
        if (isWhole)
            return whole;
    }
    return nearest(number());
}

} // namespace ostrand::store
