// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/data_grid.h"

#include <QAbstractTableModel>
#include <QPointer>

#include <optional>
#include <vector>

namespace ostrand::toolkit {

class GridReading;
class UnboundCells;

/// The rows of a data control as a table: the records whose keys are known, and behind them the
/// new-record row. Holds no values of its own.
class DataGridModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    DataGridModel(const RowBuffer& buffer,
                  const UnboundCells& unbound,
                  GridReading& reading,
                  QObject* parent);

    void addColumn(const GridColumn& column);
    const GridColumn& column(int number) const { return m_columns[static_cast<size_t>(number)]; }
    bool isUnbound(int number) const { return column(number).field.isEmpty(); }
    bool hasUnboundColumns() const;
    /// The field's place in the recordset, -1 where it has no such field.
    int fieldIndex(int number) const { return m_fields[static_cast<size_t>(number)]; }
    void setCaption(int number, const QString& caption);

    void setDataControl(DataControl* control);
    void setAllowAddNew(bool allow);

    // ---- what happens in the recordset
    /// Begins anew with the rows of the recordset; one that is closed has none.
    void reload();
    void takeNewRecords();
    /// A new record; `ahead` pushes the new-record row down, otherwise the new-record row itself
    /// turns into the record and a fresh one follows.
    void insertRecord(int position, bool ahead);
    void removeRecord(int position);
    void showRowAgain(int row);

    // ---- rows
    int recordCount() const { return m_records; }
    bool isRecord(int row) const { return row >= 0 && row < m_records; }
    /// The new-record row, or -1.
    int newRow() const { return m_hasNewRow ? m_records : -1; }
    /// The row of the row buffer, or -1.
    int rowUnderEdit() const;
    /// The same for one row, which takes no search; painting asks it for every cell.
    bool isUnderEdit(int row) const;
    std::optional<store::RowMark> markOf(int row) const;
    /// True when another program deleted the record.
    bool isGone(int row) const;

    store::Value value(int row, int column) const;
    /// The whole text of a cell, as it is edited and copied. Raises what keeps it from being read.
    QString text(const QModelIndex& cell) const;
    /// The value in the row under edit, also where no row of the grid shows it.
    store::Value editedValue(int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    store::Recordset* recordset() const;
    bool wantsNewRow() const;
    store::Value storedValue(int row, int column) const;
    QString cellText(const QModelIndex& index) const;
    QString typedText(const QModelIndex& index) const;
    void readShape();

    const RowBuffer& m_buffer;
    const UnboundCells& m_unbound;
    GridReading& m_reading;
    QPointer<DataControl> m_control;
    std::vector<GridColumn> m_columns;
    std::vector<int> m_fields;
    int m_records = 0;
    bool m_allowAddNew = true;
    bool m_hasNewRow = false;
};

} // namespace ostrand::toolkit
