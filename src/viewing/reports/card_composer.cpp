// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
// The form of one page for one row.
#include "viewing/reports/measures.h"
#include "viewing/reports/row_composer.h"

#include <utility>

namespace ostrand::viewing::reports {
namespace {

constexpr int itemsAbreast = 2;
constexpr int captionWidth = fromMillimetres(44);
constexpr int itemPadding = fromMillimetres(0.55);
constexpr int formPadding = fromMillimetres(2.0); ///< leaves room for a hand
constexpr int formGap = fromMillimetres(4);
constexpr int headPadding = fromMillimetres(1);

} // namespace

Block RowComposer::card(const Row& row) const
{
    Block block;
    addItems(block, row);
    Band gap = band(itemPadding, 0);
    block.add(std::move(gap));
    addUnder(block, row, 0);
    addForm(block);
    return block;
}

void RowComposer::addItems(Block& block, const Row& row) const
{
    const std::vector<Card::Item>& items = m_report.card->items;
    const int part = m_width / itemsAbreast;
    for (std::size_t i = 0; i < items.size(); i += itemsAbreast) {
        Band line = band(itemPadding, itemPadding);
        for (std::size_t k = i; k < std::min(items.size(), i + itemsAbreast); ++k) {
            const int x = static_cast<int>(k - i) * part;
            line.add(caption(items[k].caption, x, captionWidth));
            line.add({TextBlock(items[k].text ? items[k].text(row) : QString(),
                                m_faces.body,
                                part - captionWidth - 2 * headPadding),
                      x + captionWidth + headPadding});
        }
        line.boxes = {0, captionWidth, part, part + captionWidth, itemsAbreast * part};
        block.add(std::move(line));
    }
}

void RowComposer::addForm(Block& block) const
{
    const Card& card = *m_report.card;
    if (card.tableColumns.isEmpty())
        return;
    Band title = band(formGap, headPadding);
    title.add(caption(card.tableCaption, 0, m_width));
    block.add(std::move(title));

    std::vector<int> edges;
    const int columns = static_cast<int>(card.tableColumns.size());
    for (int i = 0; i <= columns; ++i)
        edges.push_back(m_width * i / columns);
    Band heads = band(headPadding, headPadding);
    for (int i = 0; i < columns; ++i) {
        const std::size_t place = static_cast<std::size_t>(i);
        heads.add(caption(card.tableColumns[i], edges[place], edges[place + 1] - edges[place]));
    }
    heads.shaded = true;
    heads.boxes = edges;
    block.add(std::move(heads));
    for (const QString& first : card.tableRows) {
        Band line = band(formPadding, formPadding);
        line.add(caption(first, 0, edges[1]));
        line.boxes = edges;
        block.add(std::move(line));
    }
}

} // namespace ostrand::viewing::reports
