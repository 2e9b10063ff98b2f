// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"

#include <QString>

#include <vector>

namespace ostrand::pid {

/// The sheet of a datasheet workbook that ties fields of the P&ID database to cells.
inline const QString mapSheetName = QStringLiteral("P&ID Database Map");

/// One row of it.
struct MapEntry
{
    QString table;     ///< of the P&ID database
    QString field;     ///< of that table
    QString worksheet; ///< of the cell
    QString column;    ///< the cell's letters
    QString row;       ///< the cell's number

    QString cell() const { return column + row; }
};

using MapRows = std::vector<MapEntry>;

/// Reads the rows behind the heading, up to the first one that names no table. Raises 13 for a
/// cell whose value has no text.
MapRows readMapRows(spreadsheet::Worksheet& sheet);

} // namespace ostrand::pid
