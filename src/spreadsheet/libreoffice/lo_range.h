// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/libreoffice/lo_workbook.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/table/XCellRange.hpp>

namespace ostrand::spreadsheet::libreoffice {

/// A block of cells, or a single one. Valid as long as its workbook is open.
class LoRange final : public Range
{
public:
    /// Raises 1004 when the reference names no cells of the sheet.
    LoRange(std::shared_ptr<LoWorkbook> workbook,
            const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& sheet,
            QString sheetName,
            const QString& reference);

    CellValue Value() const override;
    void setValue(const QString& text) override;
    void Select() override;
    void Activate() override;

private:
    CellValue numberValue() const;
    CellValue formulaValue() const;
    void writeText(const QString& text);

    std::shared_ptr<LoWorkbook> m_workbook;
    QString m_sheetName;
    com::sun::star::uno::Reference<com::sun::star::table::XCell> m_cell;       ///< of a single one
    com::sun::star::uno::Reference<com::sun::star::table::XCellRange> m_block; ///< of a block
};

} // namespace ostrand::spreadsheet::libreoffice
