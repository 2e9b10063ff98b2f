// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "index/CRows.h"
#include "store/recordset.h"
#include "store/value.h"

#include <QObject>

#include <optional>
#include <vector>

namespace ostrand::toolkit {
class DataControl;
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::index {

/// The rows that the user copied in the index grid, and what can be done with rows that are
/// selected there. The rows stay as long as the main window, and have nothing to do with the
/// system's clipboard.
class RowClipboard final : public QObject
{
    Q_OBJECT

public:
    RowClipboard(toolkit::DataGrid& grid, toolkit::DataControl& dbIndex, QObject* parent);

    /// Copies the selected rows. A failure leaves those copied up to then.
    void CopyRows();
    /// Adds a tag for each copied row, with a copy of its datasheet file beside the old one, over
    /// what is there. The first failure ends it: the tags before it stay, and the row in hand
    /// remains under edit.
    void PasteRows();
    /// Deletes the selected rows by the grid's own way.
    void DeleteRows();

    /// Rows were copied, even if it was none.
    bool hasRows() const { return m_copiedRows.has_value(); }

private:
    bool settleRow();
    void copyRow(store::RowMark mark);
    void pasteRow(const CRows& row);
    void pasteDatasheet(const store::Value& folder, const store::Value& name);
    std::vector<store::Value> pendingValues();

    toolkit::DataGrid& m_grid;
    toolkit::DataControl& m_dbIndex;
    std::optional<std::vector<CRows>> m_copiedRows;
    std::optional<std::vector<store::Value>> m_failedRow; ///< of the last paste
};

} // namespace ostrand::index
