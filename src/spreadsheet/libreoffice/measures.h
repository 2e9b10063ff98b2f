// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <sal/types.h>

/// The application measures in hundredths of a millimetre.
namespace ostrand::spreadsheet::libreoffice {

inline constexpr double hundredthsPerInch = 2540;
inline constexpr double pointsPerInch = 72;
inline constexpr double pixelsPerInch = 96;

/// Of a column: its digits, and the margins and the line beside them.
inline constexpr double pixelsPerDigit = 7;
inline constexpr double pixelsBeside = 5;

inline sal_Int32 fromInches(double inches)
{
    return static_cast<sal_Int32>(std::lround(inches * hundredthsPerInch));
}
inline sal_Int32 fromPoints(double points)
{
    return fromInches(points / pointsPerInch);
}
inline double toPoints(double hundredths)
{
    return hundredths / hundredthsPerInch * pointsPerInch;
}

} // namespace ostrand::spreadsheet::libreoffice
