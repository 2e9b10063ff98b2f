// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/cell_value.h"

namespace ostrand::tests {

/// A cell's value as its user reads it.
inline QString shownText(const spreadsheet::CellValue& value)
{
    constexpr int digits = 15;
    if (const auto* text = std::get_if<QString>(&value))
        return *text;
    if (const auto* number = std::get_if<double>(&value))
        return QString::number(*number, 'G', digits);
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
    if (const auto* moment = std::get_if<QDateTime>(&value))
        return moment->toString(QStringLiteral("yyyy-MM-dd"));
    if (const auto* error = std::get_if<spreadsheet::CellError>(&value))
        return error->text;
    return {};
}

} // namespace ostrand::tests
