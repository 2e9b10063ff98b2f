// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/moment.h"

#include "store/error.h"
#include "store/function_table.h"
#include "store/sql/dates.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrand::store {

namespace {

std::optional<QDateTime> momentOfDays(double days)
{
    constexpr double most = 2958466;  // the first day of the year 10000
    constexpr double least = -657435; // the last day of the year 99
    if (!(days > least && days < most))
        return {};
    const double day = std::floor(days);
    const auto seconds = static_cast<qint64>(std::nearbyint((days - day) * 86400));
    const QDate date = QDate(1899, 12, 30).addDays(static_cast<qint64>(day));
    return QDateTime(date, QTime(0, 0), Qt::UTC).addSecs(seconds);
}

} // namespace

std::optional<QDateTime> momentOfText(const QString& text)
{
    const auto stored = sql::dateLiteral(text);
    if (!stored)
        return {};
    const QDate date = QDate::fromString(stored->left(10), u"yyyy-MM-dd"_s);
    const QTime time = QTime::fromString(stored->mid(11), u"HH:mm:ss"_s);
    return QDateTime(date, time.isValid() ? time : QTime(0, 0), Qt::UTC);
}

std::optional<QDateTime> momentOf(const Value& value)
{
    if (value.isNull())
        return {};
    return value.isText() ? momentOfText(value.text()) : momentOfDays(value.number());
}

namespace functions {

namespace {

QDate dateOf(const Value& value)
{
    const auto moment = momentOf(value);
    if (!moment)
        refuseType();
    return moment->date();
}

Value year(Arguments arguments)
{
    return dateOf(arguments[0]).year();
}

Value month(Arguments arguments)
{
    return dateOf(arguments[0]).month();
}

Value day(Arguments arguments)
{
    return dateOf(arguments[0]).day();
}

/// The stored form of a date: without the time of day at midnight.
Value moment(Arguments arguments)
{
    const auto found = momentOf(arguments[0]);
    if (!found)
        refuseType();
    const bool midnight = found->time() == QTime(0, 0);
    return found->toString(midnight ? u"yyyy-MM-dd"_s : u"yyyy-MM-dd HH:mm:ss"_s);
}

constexpr std::array entries{
    Entry{"ostrand_year", 1, 1, Nulls::Pass, year},
    Entry{"ostrand_month", 1, 1, Nulls::Pass, month},
    Entry{"ostrand_day", 1, 1, Nulls::Pass, day},
    Entry{"ostrand_moment", 1, 1, Nulls::Pass, moment},
};

} // namespace

std::span<const Entry> dateFunctions()
{
    return entries;
}

} // namespace functions

} // namespace ostrand::store
