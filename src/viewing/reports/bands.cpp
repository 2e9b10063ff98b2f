// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/bands.h"

#include "viewing/reports/measures.h"
#include "viewing/reports/sheet.h"

#include <algorithm>
#include <utility>

namespace ostrand::viewing::reports {
namespace {

void showBoxes(Sheet& sheet, const Band& band, int left, int top, int height)
{
    const int first = left + band.boxes.front();
    const int last = left + band.boxes.back();
    for (const int x : band.boxes)
        sheet.rule({left + x, top, left + x, top + height}, Rule::Hair);
    sheet.rule({first, top, last, top}, Rule::Hair);
    sheet.rule({first, top + height, last, top + height}, Rule::Hair);
}

void showBand(Sheet& sheet, const Band& band, QPoint at, int first, int end)
{
    const int top = first == 0 ? band.above : 0;
    const int height = top + (end - first) * band.lineHeight + (end == band.lines ? band.below : 0);
    if (band.shaded)
        sheet.fill(
            {at.x() + band.boxes.front(), at.y(), band.boxes.back() - band.boxes.front(), height},
            Shade::Medium);
    for (const Cell& cell : band.cells) {
        const QPoint corner = at + QPoint(cell.x, top);
        sheet.text(cell.text, corner, first, end);
        if (cell.warned && first == 0) {
            const QRect mark = cell.text.places(0, 1, 0, 1).front().translated(corner);
            constexpr int wider = fromPoints(2.2);
            sheet.warning(mark.adjusted(-wider, -wider / 8, wider, -wider / 4));
        }
    }
    if (!band.boxes.empty())
        showBoxes(sheet, band, at.x(), at.y(), height);
    for (const int x : band.edges)
        sheet.rule({at.x() + x, at.y(), at.x() + x, at.y() + height}, Rule::Hair);
}

} // namespace

void Band::add(Cell cell)
{
    lines = std::max(lines, cell.text.lineCount());
    cells.push_back(std::move(cell));
}

void Block::add(Band band)
{
    m_lines += band.lines;
    m_bands.push_back(std::move(band));
}

int Block::height(int first, int end) const
{
    int height = 0;
    int start = 0;
    for (const Band& band : m_bands) {
        const int from = std::max(first - start, 0);
        const int to = std::min(end - start, band.lines);
        if (from < to) {
            height += (to - from) * band.lineHeight + (from == 0 ? band.above : 0)
                      + (to == band.lines ? band.below : 0);
        }
        start += band.lines;
    }
    return height;
}

int Block::fitting(int first, int room) const
{
    int start = 0;
    int height = 0;
    int end = first;
    for (const Band& band : m_bands) {
        for (int line = std::max(first - start, 0); line < band.lines; ++line) {
            height += band.lineHeight + (line == 0 ? band.above : 0);
            const int whole = height + (line + 1 == band.lines ? band.below : 0);
            if (whole > room && end > first)
                return end;
            height = whole;
            end = start + line + 1;
        }
        start += band.lines;
    }
    return end;
}

void Block::show(Sheet& sheet, QPoint at, int first, int end) const
{
    int start = 0;
    int y = at.y();
    for (const Band& band : m_bands) {
        const int from = std::max(first - start, 0);
        const int to = std::min(end - start, band.lines);
        if (from < to) {
            showBand(sheet, band, {at.x(), y}, from, to);
            y += (to - from) * band.lineHeight + (from == 0 ? band.above : 0)
                 + (to == band.lines ? band.below : 0);
        }
        start += band.lines;
    }
}

} // namespace ostrand::viewing::reports
