// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/value.h"

#include <QString>

#include <map>
#include <memory>

namespace ostrand::index {

/// Values under keys that are texts.
class RowCollection
{
public:
    /// Raises 457 for a key that is there already.
    void Add(const store::Value& item, const QString& key);
    /// Raises 5 for a key that is not there.
    const store::Value& Item(const QString& key) const;

private:
    std::map<QString, store::Value> m_items;
};

/// One copied row of the grid: the value of each column under the column's number as text.
class CRows
{
public:
    CRows();

    /// The row's values themselves, no copy. A row whose values were moved elsewhere has none: that
    /// is told, and gives nullptr.
    RowCollection* GetRowCollection() const;

private:
    std::unique_ptr<RowCollection> m_row;
};

} // namespace ostrand::index
