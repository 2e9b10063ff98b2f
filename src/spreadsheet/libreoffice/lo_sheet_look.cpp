// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Reads the look of a sheet back.
#include "spreadsheet/libreoffice/cell_properties.h"
#include "spreadsheet/libreoffice/grid_lines.h"
#include "spreadsheet/libreoffice/lo_sheet_design.h"
#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/page_style.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <com/sun/star/util/XProtectable.hpp>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// "$DATASHEET.$D$11:$F$11" becomes "D11:F11".
QString plainName(const Reference<css::uno::XInterface>& cells)
{
    const QString name = qtText(property<rtl::OUString>(
        Reference<css::beans::XPropertySet>(cells, UNO_QUERY_THROW), "AbsoluteName"));
    return name.mid(name.lastIndexOf(u'.') + 1).remove(u'$');
}

} // namespace

CellStyle LoSheetDesign::style(const QString& cell) const
{
    return guarded([&] { return styleOf(block(cell)); });
}

QString LoSheetDesign::numberFormat(const QString& cell) const
{
    return guarded([&] {
        const Reference<css::util::XNumberFormatsSupplier> supplier(m_sheet.workbook().document(),
                                                                    UNO_QUERY_THROW);
        const auto key = property<sal_Int32>({block(cell), UNO_QUERY_THROW}, "NumberFormat");
        return qtText(
            property<rtl::OUString>(supplier->getNumberFormats()->getByKey(key), "FormatString"));
    });
}

QString LoSheetDesign::mergedBlock(const QString& cell) const
{
    return guarded([&] {
        const Reference<css::sheet::XSheetCellCursor> cursor =
            m_sheet.sheet()->createCursorByRange({block(cell), UNO_QUERY_THROW});
        cursor->collapseToMergedArea();
        return plainName(cursor);
    });
}

double LoSheetDesign::columnWidth(const QString& column) const
{
    return guarded([&] {
        const Reference<css::table::XColumnRowRange> cell(block(column + u'1'), UNO_QUERY_THROW);
        const auto width = property<sal_Int32>(
            Reference<css::beans::XPropertySet>(cell->getColumns(), UNO_QUERY_THROW), "Width");
        return (width / hundredthsPerInch * pixelsPerInch - pixelsBeside) / pixelsPerDigit;
    });
}

double LoSheetDesign::rowHeight(int row) const
{
    return guarded([&] {
        const Reference<css::table::XColumnRowRange> block(rows(row, row), UNO_QUERY_THROW);
        return toPoints(property<sal_Int32>(
            Reference<css::beans::XPropertySet>(block->getRows(), UNO_QUERY_THROW), "Height"));
    });
}

PageSetup LoSheetDesign::page() const
{
    return guarded([&] { return pageOf(m_sheet); });
}

bool LoSheetDesign::hasGridLines() const
{
    return guarded([&] { return showsGridLines(m_sheet); });
}

bool LoSheetDesign::isProtected() const
{
    return guarded([&] {
        return Reference<css::util::XProtectable>(m_sheet.sheet(), UNO_QUERY_THROW)->isProtected();
    });
}

QString LoSheetDesign::currentCell() const
{
    return guarded([&] { return plainName(m_sheet.workbook().selection()); });
}

} // namespace ostrand::spreadsheet::libreoffice
