// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/cell_text.h"

#include <QCoreApplication>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrand::datasheets {
namespace {

constexpr double wholeLimit = 1e15; ///< from here on not every whole number has its own value

store::Value numberValue(double number)
{
    if (std::abs(number) < wholeLimit && std::trunc(number) == number)
        return static_cast<qint64>(number);
    return number;
}

QString momentText(const QDateTime& moment)
{
    const bool midnight = moment.time() == QTime(0, 0);
    return moment.toString(midnight ? u"yyyy-MM-dd"_s : u"yyyy-MM-dd HH:mm:ss"_s);
}

} // namespace

QString textOf(const spreadsheet::CellValue& value)
{
    if (std::holds_alternative<std::monostate>(value))
        return {};
    if (const auto* text = std::get_if<QString>(&value))
        return *text;
    if (const auto* number = std::get_if<double>(&value))
        return numberValue(*number).text();
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? u"True"_s : u"False"_s;
    if (const auto* moment = std::get_if<QDateTime>(&value))
        return momentText(*moment);
    throw spreadsheet::Error(spreadsheet::errors::typeMismatch,
                             QCoreApplication::translate("cXlHndlr", "Type mismatch"));
}

store::Value storedValue(const spreadsheet::CellValue& value)
{
    const QString text = textOf(value);
    if (text.isEmpty())
        return {};
    const auto* number = std::get_if<double>(&value);
    // The engine spells a number with an exponent in a way of its own when it lands in a text.
    if (number && !text.contains(u'E'))
        return numberValue(*number);
    return text;
}

} // namespace ostrand::datasheets
