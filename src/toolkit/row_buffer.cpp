// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/row_buffer.h"

namespace ostrand::toolkit {

void RowBuffer::begin(Kind kind, store::RowMark mark, bool byGrid)
{
    m_kind = kind;
    m_mark = mark;
    m_byGrid = byGrid;
    m_cells.clear();
}

const store::Value* RowBuffer::cell(int column) const
{
    const auto found = m_cells.find(column);
    return found == m_cells.end() ? nullptr : &found->second;
}

bool UnboundCells::has(store::RowMark mark) const
{
    const auto row = m_rows.find(mark.key);
    return row != m_rows.end() && row->second.loaded;
}

void UnboundCells::expire(store::RowMark mark)
{
    if (const auto row = m_rows.find(mark.key); row != m_rows.end())
        row->second.loaded = false;
}

void UnboundCells::unload(store::RowMark mark)
{
    if (const auto row = m_rows.find(mark.key); row != m_rows.end())
        row->second = {};
}

void UnboundCells::set(store::RowMark mark, int column, const store::Value& value)
{
    if (const auto row = m_rows.find(mark.key); row != m_rows.end())
        row->second.cells[column] = value;
}

store::Value UnboundCells::value(store::RowMark mark, int column) const
{
    const auto row = m_rows.find(mark.key);
    if (row == m_rows.end())
        return {};
    const auto cell = row->second.cells.find(column);
    return cell == row->second.cells.end() ? store::Value() : cell->second;
}

void UnboundCells::keepOnly(const std::set<qint64>& keys)
{
    std::erase_if(m_rows, [&](const auto& row) { return !keys.contains(row.first); });
}

} // namespace ostrand::toolkit
