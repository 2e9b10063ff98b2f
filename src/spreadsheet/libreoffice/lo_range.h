// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/libreoffice/cell_blocks.h"
#include "spreadsheet/libreoffice/lo_workbook.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>

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
    std::optional<Extent> MergeArea() const override;

private:
    CellValue numberValue() const;
    CellValue formulaValue() const;

    std::shared_ptr<LoWorkbook> m_workbook;
    QString m_sheetName;
    Cells m_cells;
};

} // namespace ostrand::spreadsheet::libreoffice
