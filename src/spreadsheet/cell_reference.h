// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace ostrand::spreadsheet {

/// A cell of a sheet, counted from 0.
struct CellPlace
{
    int column;
    int row;
};

/// Workbook files of the format `.xls` end here.
inline constexpr int fileColumns = 256;
inline constexpr int fileRows = 65536;

/// The place of a plain reference such as "D11", in any case; nothing for any other.
inline std::optional<CellPlace> cellPlace(const QString& reference)
{
    constexpr int letters = 26;
    constexpr int mostLetters = 3;
    constexpr int mostDigits = 7;
    CellPlace place{0, 0};
    qsizetype i = 0;
    for (; i < reference.size() && i < mostLetters; ++i) {
        const char16_t letter = reference[i].toUpper().unicode();
        if (letter < u'A' || letter > u'Z')
            break;
        place.column = place.column * letters + (letter - u'A' + 1);
    }
    const qsizetype digits = reference.size() - i;
    if (i == 0 || digits == 0 || digits > mostDigits)
        return {};
    for (; i < reference.size(); ++i) {
        const char16_t digit = reference[i].unicode();
        if (digit < u'0' || digit > u'9')
            return {};
        place.row = place.row * 10 + (digit - u'0');
    }
    return CellPlace{place.column - 1, place.row - 1};
}

/// The same for a cell that a workbook file has.
inline std::optional<CellPlace> fileCellPlace(const QString& reference)
{
    const std::optional<CellPlace> place = cellPlace(reference);
    if (!place || place->row < 0 || place->row >= fileRows || place->column >= fileColumns)
        return {};
    return place;
}

} // namespace ostrand::spreadsheet
