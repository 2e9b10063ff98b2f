// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/error.h"

#include <QDateTime>
#include <QString>

#include <variant>
#include <vector>

namespace ostrand::spreadsheet {

/// An error value in a cell, such as "#N/A".
struct CellError
{
    QString text;
    bool operator==(const CellError&) const = default;
};

/// What a range of several cells has in place of a value.
struct ManyCells
{
    bool operator==(const ManyCells&) const = default;
};

/// The value of a cell with the type that it has there. An empty cell is std::monostate.
using CellValue =
    std::variant<std::monostate, QString, double, bool, QDateTime, CellError, ManyCells>;

/// The values of a block of cells, row by row.
using CellValues = std::vector<std::vector<CellValue>>;

/// A value for one cell.
struct CellWrite
{
    QString cell; ///< such as "D11"
    CellValue value;
};

} // namespace ostrand::spreadsheet
