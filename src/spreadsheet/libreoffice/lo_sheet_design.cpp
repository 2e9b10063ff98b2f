// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Gives a sheet its look. Reading it back stands in lo_sheet_look.cpp.
#include "spreadsheet/libreoffice/lo_sheet_design.h"

#include "spreadsheet/libreoffice/cell_properties.h"
#include "spreadsheet/libreoffice/grid_lines.h"
#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/page_style.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <algorithm>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/XMergeable.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

using Row = css::uno::Sequence<Any>;

Row sequence(const std::vector<CellEntry>& entries)
{
    Row row(static_cast<sal_Int32>(entries.size()));
    std::transform(entries.begin(), entries.end(), row.getArray(), [](const CellEntry& entry) {
        const QString* text = std::get_if<QString>(&entry);
        return text ? Any(unoText(*text)) : Any(std::get<double>(entry));
    });
    return row;
}

css::uno::Sequence<Row> table(const std::vector<std::vector<CellEntry>>& rows)
{
    css::uno::Sequence<Row> made(static_cast<sal_Int32>(rows.size()));
    Row* place = made.getArray();
    for (const std::vector<CellEntry>& row : rows) {
        if (row.empty() || row.size() != rows.front().size()) {
            throw Error(errors::invalidCall,
                        QCoreApplication::translate("spreadsheet",
                                                    "The rows of a block are of one length."));
        }
        *place++ = sequence(row);
    }
    return made;
}

} // namespace

Reference<css::table::XCellRange> LoSheetDesign::block(const QString& reference) const
{
    return m_sheet.sheet()->getCellRangeByName(unoText(reference));
}

Reference<css::table::XCellRange> LoSheetDesign::rows(int first, int last) const
{
    return m_sheet.sheet()->getCellRangeByPosition(0, first - 1, 0, last - 1);
}

void LoSheetDesign::setName(const QString& name)
{
    const bool taken = guarded([&] {
        const Reference<css::container::XNamed> named(m_sheet.sheet(), UNO_QUERY_THROW);
        named->setName(unoText(name));
        return qtText(named->getName()) == name;
    });
    if (!taken) {
        throw Error(
            errors::applicationError,
            QCoreApplication::translate("spreadsheet", "A sheet can't be named \"%1\".").arg(name));
    }
    m_sheet.refreshName();
}

void LoSheetDesign::setText(const QString& cell, const QString& text)
{
    m_sheet.Range(cell)->setValue(text);
}

void LoSheetDesign::setEntries(const QString& first,
                               const std::vector<std::vector<CellEntry>>& rows)
{
    if (rows.empty())
        return;
    guarded([&] {
        const css::table::CellRangeAddress corner =
            Reference<css::sheet::XCellRangeAddressable>(block(first), UNO_QUERY_THROW)
                ->getRangeAddress();
        const auto target = m_sheet.sheet()->getCellRangeByPosition(
            corner.StartColumn,
            corner.StartRow,
            corner.StartColumn + static_cast<sal_Int32>(rows.front().size()) - 1,
            corner.StartRow + static_cast<sal_Int32>(rows.size()) - 1);
        Reference<css::sheet::XCellRangeData>(target, UNO_QUERY_THROW)->setDataArray(table(rows));
    });
    m_sheet.workbook().noteChange(m_sheet.cachedName());
}

void LoSheetDesign::setFormula(const QString& cell, const QString& formula)
{
    guarded([&] { block(cell)->getCellByPosition(0, 0)->setFormula(unoText(formula)); });
    m_sheet.workbook().noteChange(m_sheet.cachedName());
}

void LoSheetDesign::setStyle(const QString& reference, const CellStyle& style)
{
    guarded([&] { applyStyle(block(reference), style); });
}

void LoSheetDesign::merge(const QString& reference)
{
    guarded(
        [&] { Reference<css::util::XMergeable>(block(reference), UNO_QUERY_THROW)->merge(true); });
}

void LoSheetDesign::setColumnWidth(const QString& column, double characters)
{
    const double pixels = characters * pixelsPerDigit + pixelsBeside;
    guarded([&] {
        const Reference<css::table::XColumnRowRange> cell(block(column + u'1'), UNO_QUERY_THROW);
        Reference<css::beans::XPropertySet>(cell->getColumns(), UNO_QUERY_THROW)
            ->setPropertyValue("Width", Any(fromInches(pixels / pixelsPerInch)));
    });
}

void LoSheetDesign::setRowHeight(int first, int last, double points)
{
    guarded([&] {
        const Reference<css::table::XColumnRowRange> block(rows(first, last), UNO_QUERY_THROW);
        Reference<css::beans::XPropertySet>(block->getRows(), UNO_QUERY_THROW)
            ->setPropertyValue("Height", Any(fromPoints(points)));
    });
}

void LoSheetDesign::setPage(const PageSetup& page)
{
    guarded([&] { applyPage(m_sheet, page); });
}

void LoSheetDesign::setGridLines(bool shown)
{
    guarded([&] { showGridLines(m_sheet, shown); });
}

} // namespace ostrand::spreadsheet::libreoffice
