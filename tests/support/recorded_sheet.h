// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/sheet.h"
#include "viewing/reports/typeface.h"

#include <vector>

namespace ostrand::tests {

/// Notes what stands on the pages of a report, line by line, in units.
class RecordedSheet final : public viewing::reports::Sheet
{
public:
    struct Line
    {
        QString text;
        QPoint corner; ///< the upper left one
        const viewing::reports::Typeface* face;
    };

    using Sheet::text;
    void text(const viewing::reports::TextBlock& block, QPoint at, int first, int end) override
    {
        for (int i = first; i < std::min(end, block.lineCount()); ++i)
            lines.push_back(
                {block.lineText(i).toString(), at + block.lineStart(i, first), &block.face()});
    }
    void rule(QLine line, viewing::reports::Rule /*rule*/) override { rules.push_back(line); }
    void picture(QRect place, const QImage& /*picture*/) override { pictures.push_back(place); }
    void warning(QRect place) override { warnings.push_back(place); }

    std::vector<Line> lines;
    std::vector<QLine> rules;
    std::vector<QRect> pictures;
    std::vector<QRect> warnings;
};

} // namespace ostrand::tests
