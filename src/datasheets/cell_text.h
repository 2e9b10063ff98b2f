// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/cell_value.h"
#include "store/value.h"

namespace ostrand::datasheets {

/// A cell's value as the text that it is compared by: an empty cell is "", numbers show 15 digits,
/// dates and times are "yyyy-MM-dd HH:mm:ss" (without the time at midnight), truth values "True"
/// and "False". An error value and a block of cells raise 13.
QString textOf(const spreadsheet::CellValue& value);

/// A cell's value as a field takes it. Once stored, its text is that of the cell, so that the next
/// comparison finds no difference. An empty cell is Null; raises 13 as `textOf` does.
store::Value storedValue(const spreadsheet::CellValue& value);

} // namespace ostrand::datasheets
