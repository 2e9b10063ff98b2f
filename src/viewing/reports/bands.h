// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/text_block.h"

#include <vector>

namespace ostrand::viewing::reports {

class Sheet;

/// A text in a band.
struct Cell
{
    TextBlock text;
    int x;
    bool warned = false;
};

/// Texts side by side.
struct Band
{
    std::vector<Cell> cells;
    int lines = 1;
    int lineHeight = 0;
    int above = 0; ///< room over the first line
    int below = 0;
    bool shaded = false;
    std::vector<int> boxes = {}; ///< the edges of boxes around the cells
    std::vector<int> edges = {}; ///< where rules part the cells

    void add(Cell cell);
};

/// All that a report prints of one row, as lines that can be counted through over its bands.
class Block
{
public:
    void add(Band band);
    /// More room under the last line.
    void padEnd(int room) { m_bands.back().below += room; }
    bool isEmpty() const { return m_bands.empty(); }
    int lineCount() const { return m_lines; }
    /// The height of the lines from `first` to before `end`.
    int height(int first, int end) const;
    int height() const { return height(0, m_lines); }
    /// The line before which a piece that begins with `first` ends to fit into `room`; at least one
    /// line is taken.
    int fitting(int first, int room) const;
    void show(Sheet& sheet, QPoint at, int first, int end) const;

private:
    std::vector<Band> m_bands;
    int m_lines = 0;
};

} // namespace ostrand::viewing::reports
