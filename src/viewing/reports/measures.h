// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Pages are laid out in whole units of 1/20 point, on every device.
namespace ostrand::viewing::reports {

inline constexpr int unitsPerPoint = 20;

constexpr int fromPoints(double points)
{
    return qRound(points * unitsPerPoint);
}

constexpr int fromMillimetres(double millimetres)
{
    return fromPoints(millimetres * 72 / 25.4);
}

} // namespace ostrand::viewing::reports
