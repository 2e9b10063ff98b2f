// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/sheet_design.h"

namespace ostrand::spreadsheet::libreoffice {

/// Gives cells what is set in the style, in one call.
void applyStyle(const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& cells,
                const CellStyle& style);

/// The style of a cell; see SheetLook.
CellStyle styleOf(const com::sun::star::uno::Reference<com::sun::star::uno::XInterface>& cell);

} // namespace ostrand::spreadsheet::libreoffice
