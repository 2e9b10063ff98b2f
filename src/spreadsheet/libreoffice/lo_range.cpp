// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lo_range.h"

#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/number_formats.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XViewPane.hpp>
#include <com/sun/star/table/CellContentType.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

QString textOf(const Reference<css::table::XCell>& cell)
{
    return qtText(Reference<css::text::XTextRange>(cell, UNO_QUERY_THROW)->getString());
}

} // namespace

LoRange::LoRange(std::shared_ptr<LoWorkbook> workbook,
                 const Reference<css::sheet::XSpreadsheet>& sheet,
                 QString sheetName,
                 const QString& reference)
    : m_workbook(std::move(workbook)),
      m_sheetName(std::move(sheetName)),
      m_cells(cellsOf(sheet, reference, *m_workbook->office().keeper()))
{
}

CellValue LoRange::Value() const
{
    if (!m_cells.cell.is())
        return ManyCells{};
    return guarded([&]() -> CellValue {
        switch (m_cells.cell->getType()) {
        case css::table::CellContentType_EMPTY:
            return std::monostate{};
        case css::table::CellContentType_TEXT:
            return textOf(m_cells.cell);
        case css::table::CellContentType_VALUE:
            return numberValue();
        default:
            return formulaValue();
        }
    });
}

CellValue LoRange::numberValue() const
{
    const Reference<css::beans::XPropertySet> properties(m_cells.cell, UNO_QUERY_THROW);
    const double number = m_cells.cell->getValue();
    NumberFormats& formats = m_workbook->numberFormats();
    switch (formats.meaningOf(property<sal_Int32>(properties, "NumberFormat"))) {
    case NumberFormats::Meaning::Date:
        return formats.moment(number);
    case NumberFormats::Meaning::Flag:
        return number != 0;
    default:
        return number;
    }
}

CellValue LoRange::formulaValue() const
{
    if (m_cells.cell->getError() != 0)
        return CellError{textOf(m_cells.cell)};
    const Reference<css::beans::XPropertySet> properties(m_cells.cell, UNO_QUERY_THROW);
    if (property<sal_Int32>(properties, "FormulaResultType2") == css::sheet::FormulaResult::VALUE)
        return numberValue();
    return textOf(m_cells.cell);
}

void LoRange::setValue(const QString& text)
{
    if (!m_cells.cell.is()) {
        throw Error(errors::typeMismatch,
                    QCoreApplication::translate("spreadsheet", "Type mismatch"));
    }
    m_workbook->beginWriting();
    guarded([&] { writeText(m_cells.cell, text); });
    m_workbook->noteChange(m_sheetName);
}

void LoRange::Select()
{
    guarded([&] {
        const Any target = m_cells.cell.is() ? Any(m_cells.cell) : Any(m_cells.block);
        ObjectKeeper& keeper = *m_workbook->office().keeper();
        const auto controller = m_workbook->controller();
        const auto selection = keeper.as<css::view::XSelectionSupplier>(controller);
        if (m_workbook->takesInput()) {
            selection->select(target);
            return;
        }
        // A window for looking only has no size yet, and would scroll to every cell.
        const auto view = keeper.as<css::sheet::XViewPane>(controller);
        const css::table::CellRangeAddress visible = view->getVisibleRange();
        selection->select(target);
        view->setFirstVisibleRow(visible.StartRow);
        view->setFirstVisibleColumn(visible.StartColumn);
    });
}

void LoRange::Activate()
{
    Select();
}

std::optional<Extent> LoRange::MergeArea() const
{
    return guarded([&]() -> std::optional<Extent> {
        const Reference<css::sheet::XSheetCellRange> first =
            m_cells.cell.is()
                ? Reference<css::sheet::XSheetCellRange>(m_cells.cell, UNO_QUERY_THROW)
                : Reference<css::sheet::XSheetCellRange>(
                    m_cells.block->getCellRangeByPosition(0, 0, 0, 0), UNO_QUERY_THROW);
        const Reference<css::sheet::XSheetCellCursor> area =
            first->getSpreadsheet()->createCursorByRange(first);
        area->collapseToMergedArea();
        const css::table::CellRangeAddress place =
            Reference<css::sheet::XCellRangeAddressable>(area, UNO_QUERY_THROW)->getRangeAddress();
        if (place.StartColumn == place.EndColumn && place.StartRow == place.EndRow)
            return std::nullopt;
        const auto size = property<css::awt::Size>(
            Reference<css::beans::XPropertySet>(area, UNO_QUERY_THROW), "Size");
        return Extent{toPoints(size.Width), toPoints(size.Height)};
    });
}

} // namespace ostrand::spreadsheet::libreoffice
