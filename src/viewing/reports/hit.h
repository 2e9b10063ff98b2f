// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <vector>

namespace ostrand::viewing::reports {

/// A text that was looked for and found on a page.
struct Hit
{
    /// In points, in reading order; one for each line that the text goes over. Never empty.
    std::vector<QRectF> places;
};

} // namespace ostrand::viewing::reports
