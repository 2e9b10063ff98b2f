// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/libreoffice/lo_worksheet.h"

namespace ostrand::spreadsheet::libreoffice {

/// The form control of that name on a sheet. Raises 9 where there is none.
std::unique_ptr<Control> findControl(LoWorksheet& sheet, const QString& name);

} // namespace ostrand::spreadsheet::libreoffice
