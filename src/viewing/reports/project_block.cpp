// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/project_block.h"

#include "viewing/reports/measures.h"
#include "viewing/reports/sheet.h"

#include <algorithm>
#include <numeric>

namespace ostrand::viewing::reports {
namespace {

constexpr int captionWidth = fromMillimetres(24);
constexpr int captionGap = fromMillimetres(1.5);

bool isCut(const TextBlock& block)
{
    return block.text().endsWith(u'\u2026');
}

} // namespace

ProjectBlock::ProjectBlock(const std::vector<Entry>& entries, const Typefaces& faces, QSize size)
    : m_faces(faces),
      m_size(size)
{
    if (compose(entries, faces.bold, 2))
        return;
    for (const Typeface& small : faces.smaller) {
        if (compose(entries, small, 2))
            return;
    }
    if (height() > size.height())
        compose(entries, faces.smaller.back(), 1);
}

TextBlock ProjectBlock::fitted(const QString& value, const Typeface& small, int mostLines) const
{
    const int width = m_size.width() - captionWidth;
    const TextBlock usual(value, m_faces.bold, width);
    return usual.lineCount() <= 1 ? usual : TextBlock::cut(value, small, width, mostLines);
}

bool ProjectBlock::compose(const std::vector<Entry>& entries, const Typeface& small, int mostLines)
{
    m_lines.clear();
    bool whole = true;
    for (const Entry& entry : entries) {
        m_lines.push_back({TextBlock::cut(entry.caption, m_faces.body, captionWidth - captionGap),
                           fitted(entry.value, small, mostLines)});
        whole = whole && (!isCut(m_lines.back().value) || entry.value.endsWith(u'\u2026'));
    }
    return whole && height() <= m_size.height();
}

int ProjectBlock::height() const
{
    return std::accumulate(m_lines.begin(), m_lines.end(), 0, [](int sum, const Line& line) {
        return sum + line.height();
    });
}

void ProjectBlock::show(Sheet& sheet, QPoint at) const
{
    const int count = static_cast<int>(m_lines.size());
    const int gap = std::max(0, m_size.height() - height()) / std::max(count, 1);
    int y = at.y() + gap / 2;
    for (const Line& line : m_lines) {
        sheet.text(line.caption, {at.x(), y});
        const int lower = std::max(0, line.caption.height() - line.value.height()) / 2;
        sheet.text(line.value, {at.x() + captionWidth, y + lower});
        y += line.height() + gap;
    }
}

} // namespace ostrand::viewing::reports
