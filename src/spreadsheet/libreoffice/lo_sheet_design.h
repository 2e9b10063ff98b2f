// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/libreoffice/lo_worksheet.h"
#include "spreadsheet/sheet_design.h"
#include "spreadsheet/sheet_look.h"

#include <com/sun/star/table/XCellRange.hpp>

namespace ostrand::spreadsheet::libreoffice {

class LoSheetDesign final : public SheetDesign, public SheetLook
{
public:
    /// The worksheet owns the design.
    explicit LoSheetDesign(LoWorksheet& sheet)
        : m_sheet(sheet)
    {
    }

    void setName(const QString& name) override;
    void setText(const QString& cell, const QString& text) override;
    void setEntries(const QString& first, const std::vector<std::vector<CellEntry>>& rows) override;
    void setFormula(const QString& cell, const QString& formula) override;
    void setStyle(const QString& reference, const CellStyle& style) override;
    void merge(const QString& reference) override;
    void setColumnWidth(const QString& column, double characters) override;
    void setRowHeight(int first, int last, double points) override;
    void setPage(const PageSetup& page) override;
    void setGridLines(bool shown) override;

    CellStyle style(const QString& cell) const override;
    QString numberFormat(const QString& cell) const override;
    QString mergedBlock(const QString& cell) const override;
    double columnWidth(const QString& column) const override;
    double rowHeight(int row) const override;
    PageSetup page() const override;
    bool hasGridLines() const override;
    bool isProtected() const override;
    QString currentCell() const override;

private:
    com::sun::star::uno::Reference<com::sun::star::table::XCellRange>
    block(const QString& reference) const;
    com::sun::star::uno::Reference<com::sun::star::table::XCellRange> rows(int first,
                                                                           int last) const;

    LoWorksheet& m_sheet;
};

} // namespace ostrand::spreadsheet::libreoffice
