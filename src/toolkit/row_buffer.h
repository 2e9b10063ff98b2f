// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/recordset.h"
#include "store/value.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace ostrand::toolkit {

/// The row under edit: which one it is, and the cells that were changed in it.
class RowBuffer
{
public:
    enum class Kind { None, Edit, Add };

    /// `byGrid` tells an edit that typing started from one that code began on the recordset.
    void begin(Kind kind, store::RowMark mark, bool byGrid);
    void clear() { *this = {}; }

    bool isActive() const { return m_kind != Kind::None; }
    Kind kind() const { return m_kind; }
    /// The row; only of meaning for `Edit`.
    store::RowMark mark() const { return m_mark; }
    bool startedByGrid() const { return m_byGrid; }

    /// The changed value of a column, or nullptr.
    const store::Value* cell(int column) const;
    void set(int column, const store::Value& value) { m_cells[column] = value; }
    void drop(int column) { m_cells.erase(column); }
    const std::map<int, store::Value>& cells() const { return m_cells; }

private:
    Kind m_kind = Kind::None;
    store::RowMark m_mark;
    bool m_byGrid = false;
    std::map<int, store::Value> m_cells;
};

/// The cells of unbound columns, for the rows that are in display.
class UnboundCells
{
public:
    /// True for a row whose cells are loaded.
    bool has(store::RowMark mark) const;
    /// True also for a row whose loading failed, or whose cells are to be loaded anew.
    bool isKnown(store::RowMark mark) const { return m_rows.contains(mark.key); }
    void begin(store::RowMark mark) { m_rows[mark.key] = {.loaded = true, .cells = {}}; }
    /// The cells show what they did until they are loaded anew.
    void expire(store::RowMark mark);
    /// The cells could not be loaded.
    void unload(store::RowMark mark);
    /// Does nothing for a row that was not begun.
    void set(store::RowMark mark, int column, const store::Value& value);
    store::Value value(store::RowMark mark, int column) const;
    void forget(store::RowMark mark) { m_rows.erase(mark.key); }
    void keepOnly(const std::set<qint64>& keys);
    void clear() { m_rows.clear(); }

private:
    struct Row
    {
        bool loaded = false;
        std::map<int, store::Value> cells;
    };

    std::map<qint64, Row> m_rows;
};

} // namespace ostrand::toolkit
