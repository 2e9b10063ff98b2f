// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/number_formats.h"

#include "spreadsheet/libreoffice/properties.h"

#include <cmath>
#include <com/sun/star/util/Date.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XNumberFormatTypes.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

constexpr qint64 millisecondsADay = 86'400'000;

} // namespace

NumberFormats::NumberFormats(const Reference<css::sheet::XSpreadsheetDocument>& document,
                             std::shared_ptr<ObjectKeeper> keeper)
    : m_keeper(std::move(keeper)),
      m_formats(Reference<css::util::XNumberFormatsSupplier>(document, UNO_QUERY_THROW)
                    ->getNumberFormats())
{
    const auto day = property<css::util::Date>(
        Reference<css::beans::XPropertySet>(document, UNO_QUERY_THROW), "NullDate");
    m_dayZero = QDate(day.Year, day.Month, day.Day);
}

NumberFormats::Meaning NumberFormats::meaningOf(sal_Int32 format)
{
    const auto known = m_meanings.find(format);
    if (known != m_meanings.end())
        return known->second;
    const auto type = property<sal_Int16>(m_keeper->keep(m_formats->getByKey(format)), "Type");
    Meaning meaning = Meaning::Number;
    if ((type & css::util::NumberFormat::DATE) != 0)
        meaning = Meaning::Date;
    else if ((type & css::util::NumberFormat::LOGICAL) != 0)
        meaning = Meaning::Flag;
    m_meanings.emplace(format, meaning);
    return meaning;
}

QDateTime NumberFormats::moment(double days) const
{
    const double whole = std::floor(days);
    const auto milliseconds = std::llround((days - whole) * double(millisecondsADay));
    return QDateTime(m_dayZero, QTime(0, 0), Qt::UTC)
        .addDays(static_cast<qint64>(whole))
        .addMSecs(milliseconds);
}

double NumberFormats::daysOf(const QDateTime& moment) const
{
    return double(m_dayZero.daysTo(moment.date()))
           + double(moment.time().msecsSinceStartOfDay()) / double(millisecondsADay);
}

sal_Int32 NumberFormats::standardFormat(Meaning meaning, bool withTime) const
{
    namespace NumberFormat = css::util::NumberFormat;
    const sal_Int16 type = meaning == Meaning::Flag ? NumberFormat::LOGICAL
                           : withTime               ? NumberFormat::DATETIME
                                                    : NumberFormat::DATE;
    return Reference<css::util::XNumberFormatTypes>(m_formats, UNO_QUERY_THROW)
        ->getStandardFormat(type, css::lang::Locale());
}

} // namespace ostrand::spreadsheet::libreoffice
