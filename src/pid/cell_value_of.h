// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/cell_value.h"

namespace ostrand::store {
class Recordset;
} // namespace ostrand::store

namespace ostrand::pid {

/// A field of the current row as a cell takes it: numbers, dates and truth values keep their type.
spreadsheet::CellValue cellValueOf(const store::Recordset& row, int field);

} // namespace ostrand::pid
