// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
// Shows a page that is laid out.
#include "viewing/reports/geometry.h"
#include "viewing/reports/layout.h"
#include "viewing/reports/sheet.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr int padding = fromMillimetres(0.9);
constexpr int levelIndent = fromMillimetres(5);

QString tr(const char* text)
{
    return QCoreApplication::translate("Reports", text);
}

} // namespace

void Layout::show(Sheet& sheet, int page) const
{
    const Page& shown = m_pages[static_cast<std::size_t>(page)];
    m_frame.showHeader(
        sheet, page, m_complete ? std::optional<int>(count()) : std::optional<int>());
    if (shown.heads)
        m_heads.show(sheet, {pageMargin, PageFrame::bodyTop()}, 0, m_heads.lineCount());
    for (const Item& item : shown.items)
        showItem(sheet, item);
    showEdges(sheet, shown);
    m_frame.showFooter(sheet, page);
}

void Layout::showItem(Sheet& sheet, const Item& item) const
{
    const QPoint at(pageMargin, item.top);
    switch (item.kind) {
    case Kind::Group:
    case Kind::Name:
        showGroup(sheet, item);
        break;
    case Kind::Row:
        showRow(sheet, item);
        break;
    case Kind::TotalsHead: {
        const Block heads = m_totals.heads(item.continued);
        heads.show(sheet, at, 0, heads.lineCount());
        break;
    }
    case Kind::Total:
        m_totals.line(item.number).show(sheet, at, 0, 1);
        break;
    case Kind::Nothing:
        sheet.text(TextBlock(tr("No tags to list."), m_faces.group, m_width, Align::Centre),
                   at + QPoint(0, item.height / 2));
        break;
    }
}

void Layout::showGroup(Sheet& sheet, const Item& item) const
{
    const Row& row = m_data.rows[static_cast<std::size_t>(item.number)];
    const bool isGroup = item.kind == Kind::Group;
    const Typeface& face = isGroup ? m_faces.group : m_faces.bold;
    const int x = padding + item.level * levelIndent;
    const QString label =
        isGroup ? groupLabel(m_report->groups[static_cast<std::size_t>(item.level)], row)
                : m_composer.name(row);
    const TextBlock mark(item.continued ? tr("(continued)") : QString(), face, m_width);
    const TextBlock text =
        TextBlock::cut(label, face, m_width - x - 3 * padding - mark.usedWidth()).narrowed();
    const int top = item.top + (item.height - face.lineHeight()) / 2;
    if (isGroup)
        sheet.fill({pageMargin, item.top, m_width, item.height}, Shade::Light);
    sheet.text(text, {pageMargin + x, top});
    sheet.text(mark, {pageMargin + x + text.usedWidth() + padding, top});
}

void Layout::showRow(Sheet& sheet, const Item& item) const
{
    const Block block = m_composer.compose(m_data.rows[static_cast<std::size_t>(item.number)]);
    block.show(sheet, {pageMargin, item.top}, item.first, item.end);
    const int bottom = item.top + item.height;
    if (!m_report->card)
        sheet.rule({pageMargin, bottom, pageMargin + m_width, bottom}, Rule::Hair);
}

/// The rules between the columns go through all rows that stand together.
void Layout::showEdges(Sheet& sheet, const Page& page) const
{
    if (m_composer.edges().empty())
        return;
    const auto isRow = [](const Item& item) { return item.kind == Kind::Row; };
    auto first = page.items.begin();
    while ((first = std::find_if(first, page.items.end(), isRow)) != page.items.end()) {
        const auto end = std::find_if_not(first, page.items.end(), isRow);
        const int bottom = (end - 1)->top + (end - 1)->height;
        for (const int x : m_composer.edges())
            sheet.rule({pageMargin + x, first->top, pageMargin + x, bottom}, Rule::Hair);
        first = end;
    }
}

} // namespace ostrand::viewing::reports
