// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"
#include "viewing/reports/measures.h"

#include <QSize>

namespace ostrand::viewing::reports {

inline constexpr int pageMargin = fromMillimetres(10);

/// The sheet of a report in units, its long side across.
constexpr QSize sheetSize(Paper paper)
{
    return paper == Paper::A3Landscape ? QSize(fromMillimetres(420), fromMillimetres(297))
                                       : QSize(fromMillimetres(297), fromMillimetres(210));
}

constexpr int bodyWidth(Paper paper)
{
    return sheetSize(paper).width() - 2 * pageMargin;
}

} // namespace ostrand::viewing::reports
