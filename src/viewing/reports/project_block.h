// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/text_block.h"
#include "viewing/reports/typeface.h"

#include <QSize>

#include <algorithm>
#include <vector>

namespace ostrand::viewing::reports {

class Sheet;

/// Captions with their values, a line each. Values that are too wide stand in two lines, in smaller
/// letters where the block is not high enough for that, and are cut at last.
class ProjectBlock
{
public:
    struct Entry
    {
        QString caption;
        QString value;
    };
    /// Fits the values into `size`. The faces must outlive the block.
    ProjectBlock(const std::vector<Entry>& entries, const Typefaces& faces, QSize size);
    void show(Sheet& sheet, QPoint at) const;

private:
    struct Line
    {
        TextBlock caption;
        TextBlock value;
        int height() const { return std::max(caption.height(), value.height()); }
    };
    TextBlock fitted(const QString& value, const Typeface& small, int mostLines) const;
    /// Composes all lines with the wide values in `small`; false when they are too high, or a text
    /// is cut.
    bool compose(const std::vector<Entry>& entries, const Typeface& small, int mostLines);
    int height() const;

    const Typefaces& m_faces;
    QSize m_size;
    std::vector<Line> m_lines;
};

} // namespace ostrand::viewing::reports
