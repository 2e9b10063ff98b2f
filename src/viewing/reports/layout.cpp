// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/layout.h"

#include "viewing/reports/geometry.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace ostrand::viewing::reports {
namespace {

constexpr int groupPadding = fromMillimetres(0.8);
constexpr int totalsGap = fromMillimetres(4);
constexpr int fewestTotals = 3; ///< lines that stand with the heading of the totals

} // namespace

Layout::Layout(std::shared_ptr<const Description> report, ReportData data)
    : m_report(std::move(report)),
      m_data(std::move(data)),
      m_width(bodyWidth(m_report->paper)),
      m_frame(*m_report, m_data, m_faces),
      m_composer(*m_report, m_data, m_faces, m_width),
      m_totals(*m_report, m_faces, m_width),
      m_heads(m_composer.heads())
{
    addPage(true);
}

int Layout::count() const
{
    return static_cast<int>(m_pages.size()) - (m_complete ? 0 : 1);
}

void Layout::addPage(bool heads)
{
    m_pages.push_back({heads, {}});
    m_y = PageFrame::bodyTop() + (heads ? m_heads.height() : 0);
    m_hasRows = false;
}

int Layout::room() const
{
    return m_frame.bodyEnd(static_cast<int>(m_pages.size()) - 1) - m_y;
}

int Layout::wholeRoom() const
{
    return m_frame.bodyEnd(1) - PageFrame::bodyTop() - m_heads.height();
}

void Layout::leavePage()
{
    page().heads = false;
    addPage(true);
}

void Layout::put(Item item, int height)
{
    item.top = m_y;
    item.height = height;
    page().items.push_back(item);
    m_y += height;
}

int Layout::groupHeight() const
{
    return m_faces.group.lineHeight() + 2 * groupPadding;
}

void Layout::putGroups(int row, int first, int end, bool continued)
{
    for (int level = first; level < end; ++level)
        put({.kind = Kind::Group, .continued = continued, .number = row, .level = level},
            groupHeight());
}

int Layout::firstNewGroup(int row) const
{
    const int groups = static_cast<int>(m_report->groups.size());
    if (row == 0)
        return 0;
    const Row& before = m_data.rows[static_cast<std::size_t>(row) - 1];
    const Row& here = m_data.rows[static_cast<std::size_t>(row)];
    for (int level = 0; level < groups; ++level) {
        const QString& field = m_report->groups[static_cast<std::size_t>(level)].field;
        if (before[field] != here[field])
            return level;
    }
    return groups;
}

bool Layout::beginsPage(int firstNewGroup) const
{
    if (m_report->card)
        return true;
    return std::any_of(m_report->groups.begin() + firstNewGroup,
                       m_report->groups.end(),
                       [](const Group& group) { return group.newPage; });
}

void Layout::step()
{
    if (m_complete)
        return;
    const int row = m_nextRow;
    if (row == static_cast<int>(m_data.rows.size())) {
        putTotals();
        m_complete = true;
        return;
    }
    ++m_nextRow;
    const int level = firstNewGroup(row);
    const Row& content = m_data.rows[static_cast<std::size_t>(row)];
    m_totals.add(content, level);
    if (hasRows() && beginsPage(level))
        addPage(true);
    putRow(row, m_composer.compose(content), level);
}

/// A row stands whole under its headings where any page has the room for that.
void Layout::putRow(int row, const Block& block, int firstNewGroup)
{
    const int groups = static_cast<int>(m_report->groups.size());
    // Groups that go on are repeated on a fresh page; new ones are headed wherever they begin.
    const int headed = hasRows() ? firstNewGroup : 0;
    const int needed = (groups - headed) * groupHeight() + block.height();
    if (needed > room()) {
        if (hasRows())
            addPage(true);
        else if (needed <= wholeRoom())
            leavePage();
    }
    if (!hasRows())
        putGroups(row, 0, firstNewGroup, true);
    putGroups(row, firstNewGroup, groups, false);
    if (block.height() <= room())
        put({.kind = Kind::Row, .number = row, .end = block.lineCount()}, block.height());
    else
        putPieces(row, block);
    m_hasRows = true;
}

void Layout::putPieces(int row, const Block& block)
{
    int first = 0;
    while (true) {
        const int end = block.fitting(first, room());
        put({.kind = Kind::Row, .number = row, .first = first, .end = end},
            block.height(first, end));
        if (end == block.lineCount())
            return;
        addPage(true);
        putGroups(row, 0, static_cast<int>(m_report->groups.size()), true);
        put({.kind = Kind::Name, .continued = true, .number = row},
            m_faces.bold.lineHeight() + groupPadding);
        first = end;
    }
}

void Layout::putTotals()
{
    if (m_data.rows.empty()) {
        put({.kind = Kind::Nothing}, m_faces.group.lineHeight() + 2 * totalsGap);
        return;
    }
    const int lines = m_totals.lineCount();
    const auto headsHeight = [&](bool continued) { return m_totals.heads(continued).height(); };
    int needed = totalsGap + headsHeight(false);
    for (int i = 0; i < std::min(lines, fewestTotals); ++i)
        needed += m_totals.line(i).height();
    if (m_report->card || needed > room())
        addPage(false);
    else
        m_y += totalsGap;
    put({.kind = Kind::TotalsHead}, headsHeight(false));
    for (int i = 0; i < lines; ++i) {
        const int height = m_totals.line(i).height();
        // The sum of all does not stand alone.
        const bool last = i + 2 == lines;
        if ((last ? 2 * height : height) > room()) {
            addPage(false);
            put({.kind = Kind::TotalsHead, .continued = true}, headsHeight(true));
        }
        put({.kind = Kind::Total, .number = i}, height);
    }
}

} // namespace ostrand::viewing::reports
