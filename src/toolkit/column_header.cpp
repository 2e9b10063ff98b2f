// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/column_header.h"

#include <QStyleOptionHeader>

#include <algorithm>

namespace ostrand::toolkit {

ColumnHeader::ColumnHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(true);
    setSectionsMovable(true);
    setHighlightSections(false);
    setSectionResizeMode(QHeaderView::Interactive);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setTextElideMode(Qt::ElideRight);
    setMinimumSectionSize(fontMetrics().height() * 2);
}

void ColumnHeader::setSortMark(int column)
{
    m_sortMark = column;
    viewport()->update();
}

QSize ColumnHeader::sizeHint() const
{
    const QSize size = QHeaderView::sizeHint();
    return {size.width(), std::max(size.height(), fontMetrics().height() + 10)};
}

void ColumnHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int column) const
{
    QHeaderView::initStyleOptionForIndex(option, column);
    // "Up" is how the arrow points.
    if (column == m_sortMark)
        option->sortIndicator = QStyleOptionHeader::SortUp;
}

} // namespace ostrand::toolkit
