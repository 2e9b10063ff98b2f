// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/cell_value.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/table/XCellRange.hpp>

namespace ostrand::spreadsheet::libreoffice {

class LoWorkbook;
class ObjectKeeper;

/// What a reference names: a single cell, or a block of several.
struct Cells
{
    com::sun::star::uno::Reference<com::sun::star::table::XCell> cell;       ///< of a single one
    com::sun::star::uno::Reference<com::sun::star::table::XCellRange> block; ///< else
};

/// The cells of a reference. Raises 1004 when it names none of the sheet.
Cells cellsOf(const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& sheet,
              const QString& reference,
              ObjectKeeper& keeper);

/// Makes a text the cell's content, letter for letter, and leaves its number format; "" empties it.
void writeText(const com::sun::star::uno::Reference<com::sun::star::table::XCell>& cell,
               const QString& text);

/// What `Worksheet::Values` and `Worksheet::write` tell.
CellValues
valuesOf(const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& sheet,
         const QString& block,
         ObjectKeeper& keeper);
void writeCells(LoWorkbook& workbook,
                const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& sheet,
                const std::vector<CellWrite>& cells);

} // namespace ostrand::spreadsheet::libreoffice
