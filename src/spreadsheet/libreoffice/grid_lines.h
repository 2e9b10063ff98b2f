// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/libreoffice/lo_worksheet.h"

namespace ostrand::spreadsheet::libreoffice {

/// Whether the window shows lines between the cells of a sheet.
bool showsGridLines(LoWorksheet& sheet);
void showGridLines(LoWorksheet& sheet, bool shown);

} // namespace ostrand::spreadsheet::libreoffice
