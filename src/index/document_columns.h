// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/recordset.h"

#include <QObject>
#include <QString>

#include <array>

namespace ostrand::toolkit {
class DataControl;
class DataDropDown;
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::index {

/// The five document cells of the index grid: filled from the cross references as rows come into
/// display, and turned back into cross references as rows are written.
class DocumentColumns final : public QObject
{
    Q_OBJECT

public:
    static constexpr int kinds = 5;

    DocumentColumns(toolkit::DataGrid& grid, toolkit::DataControl& dbIndex, QObject* parent);

    /// Attaches each document list to its column; no list has rows before `refresh`.
    void attachDropDowns();
    /// Sets the database of the five lists, in their order in the window, and refreshes them so.
    void refresh(const QString& databaseName);
    /// Refreshes the list of one kind, by the kind's name.
    void refreshKind(const QString& docType);

    /// Fills the five cells of a row that comes into display.
    void loadRow(store::RowMark row);
    /// Backspace in a document cell puts the sentinel of cleared cells there.
    void keyPress(int keyAscii);
    /// Rebuilds the cross references of all five kinds from the row being written.
    void UpdateDocCrossRefs();

private:
    void fillCells(store::RowMark row);
    void rebuildKind(const QString& tag, int kind);

    toolkit::DataGrid& m_grid;
    toolkit::DataControl& m_dbIndex;
    std::array<toolkit::DataControl*, kinds> m_controls{};
    std::array<toolkit::DataDropDown*, kinds> m_dropDowns{};
};

} // namespace ostrand::index
