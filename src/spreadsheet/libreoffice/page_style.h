// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/libreoffice/lo_worksheet.h"
#include "spreadsheet/sheet_design.h"

namespace ostrand::spreadsheet::libreoffice {

/// How a sheet prints. Each sheet that is set has a page style of its own, as the application keeps
/// the paper there.
void applyPage(LoWorksheet& sheet, const PageSetup& page);
PageSetup pageOf(LoWorksheet& sheet);

} // namespace ostrand::spreadsheet::libreoffice
