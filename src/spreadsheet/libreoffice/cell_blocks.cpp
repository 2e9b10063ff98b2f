// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/cell_blocks.h"

#include "spreadsheet/cell_reference.h"
#include "spreadsheet/libreoffice/lo_workbook.h"
#include "spreadsheet/libreoffice/number_formats.h"
#include "spreadsheet/libreoffice/object_keeper.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/beans/XPropertyState.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangeFormula.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

using Sheet = Reference<css::sheet::XSpreadsheet>;

const rtl::OUString numberFormat = "NumberFormat";

[[noreturn]] void raiseNoCell(const QString& reference)
{
    throw Error(
        errors::applicationError,
        QCoreApplication::translate("spreadsheet", "There is no cell \"%1\".").arg(reference));
}

/// The leading apostrophe makes any text a text.
rtl::OUString textFormula(const QString& text)
{
    return text.isEmpty() ? rtl::OUString() : unoText(u'\'' + text);
}

CellValue cellValue(const Any& content)
{
    rtl::OUString text;
    if (content >>= text)
        return text.isEmpty() ? CellValue() : CellValue(qtText(text));
    double number = 0;
    if (content >>= number)
        return number;
    return CellError{};
}

class CellWriter
{
public:
    CellWriter(LoWorkbook& workbook, const Sheet& sheet)
        : m_workbook(workbook),
          m_sheet(sheet)
    {
    }

    /// Writes the texts from `first` on that stand below one another, in one call where the sheet
    /// allows it; gives the number of cells written.
    std::size_t writeRun(const std::vector<CellWrite>& cells, std::size_t first)
    {
        std::size_t end = first + 1;
        while (end < cells.size() && followsBelow(cells[end - 1], cells[end]))
            ++end;
        if (end - first < 2 || !writeTogether(cells, first, end)) {
            for (std::size_t i = first; i < end; ++i)
                writeOne(cells[i]);
        }
        return end - first;
    }

private:
    static bool isText(const CellValue& value)
    {
        return std::holds_alternative<std::monostate>(value)
               || std::holds_alternative<QString>(value);
    }
    static QString textOf(const CellValue& value)
    {
        const auto* text = std::get_if<QString>(&value);
        return text ? *text : QString();
    }
    static bool followsBelow(const CellWrite& upper, const CellWrite& lower)
    {
        const auto from = cellPlace(upper.cell);
        const auto to = cellPlace(lower.cell);
        return from && to && from->column == to->column && from->row + 1 == to->row
               && isText(upper.value) && isText(lower.value);
    }

    /// False where the cells are not of one format, or the sheet's protection keeps blocks from
    /// being written.
    bool writeTogether(const std::vector<CellWrite>& cells, std::size_t first, std::size_t end)
    {
        const CellPlace top = *cellPlace(cells[first].cell);
        const auto count = static_cast<sal_Int32>(end - first);
        try {
            const auto block = keeper().keep(m_sheet->getCellRangeByPosition(
                top.column, top.row, top.column, top.row + count - 1));
            const Reference<css::beans::XPropertySet> properties(block, UNO_QUERY_THROW);
            // Of cells with several formats, the value is that of one of them.
            if (Reference<css::beans::XPropertyState>(block, UNO_QUERY_THROW)
                    ->getPropertyState(numberFormat)
                == css::beans::PropertyState_AMBIGUOUS_VALUE)
                return false;
            const Any before = properties->getPropertyValue(numberFormat);
            Sequence<Sequence<rtl::OUString>> formulas(count);
            auto* row = formulas.getArray();
            for (std::size_t i = first; i < end; ++i) {
                const rtl::OUString formula = textFormula(textOf(cells[i].value));
                *row++ = Sequence<rtl::OUString>(&formula, 1);
            }
            Reference<css::sheet::XCellRangeFormula>(block, UNO_QUERY_THROW)
                ->setFormulaArray(formulas);
            properties->setPropertyValue(numberFormat, before);
            return true;
        } catch (const css::lang::DisposedException&) {
            throw;
        } catch (const css::uno::Exception&) {
            return false;
        }
    }

    void writeOne(const CellWrite& write)
    {
        const auto cell = cellAt(write.cell);
        if (isText(write.value)) {
            writeText(cell, textOf(write.value));
        } else if (const auto* number = std::get_if<double>(&write.value)) {
            cell->setValue(*number);
        } else if (const auto* moment = std::get_if<QDateTime>(&write.value)) {
            cell->setValue(formats().daysOf(*moment));
            giveMeaning(cell, NumberFormats::Meaning::Date, moment->time() != QTime(0, 0));
        } else if (const auto* flag = std::get_if<bool>(&write.value)) {
            cell->setValue(*flag ? 1 : 0);
            giveMeaning(cell, NumberFormats::Meaning::Flag, false);
        }
    }

    Reference<css::table::XCell> cellAt(const QString& reference)
    {
        const Cells cells = cellsOf(m_sheet, reference, keeper());
        if (!cells.cell.is())
            throw Error(errors::typeMismatch,
                        QCoreApplication::translate("spreadsheet", "Type mismatch"));
        return cells.cell;
    }

    /// A cell that shows such values already keeps its own format for them.
    void
    giveMeaning(const Reference<css::table::XCell>& cell, NumberFormats::Meaning meaning, bool time)
    {
        const Reference<css::beans::XPropertySet> properties(cell, UNO_QUERY_THROW);
        sal_Int32 format = 0;
        properties->getPropertyValue(numberFormat) >>= format;
        if (formats().meaningOf(format) != meaning) {
            properties->setPropertyValue(numberFormat,
                                         Any(formats().standardFormat(meaning, time)));
        }
    }

    ObjectKeeper& keeper() { return *m_workbook.office().keeper(); }
    NumberFormats& formats() { return m_workbook.numberFormats(); }

    LoWorkbook& m_workbook;
    const Sheet& m_sheet;
};

} // namespace

Cells cellsOf(const Sheet& sheet, const QString& reference, ObjectKeeper& keeper)
{
    try {
        if (const std::optional<CellPlace> place = cellPlace(reference))
            return {keeper.keep(sheet->getCellByPosition(place->column, place->row)), {}};
        Cells cells;
        cells.block = keeper.keep(sheet->getCellRangeByName(unoText(reference)));
        const css::table::CellRangeAddress address =
            Reference<css::sheet::XCellRangeAddressable>(cells.block, UNO_QUERY_THROW)
                ->getRangeAddress();
        if (address.StartColumn == address.EndColumn && address.StartRow == address.EndRow)
            cells.cell = keeper.keep(cells.block->getCellByPosition(0, 0));
        return cells;
    } catch (const css::lang::DisposedException&) {
        throw;
    } catch (const css::uno::Exception&) {
        raiseNoCell(reference);
    }
}

/// With a text that reads like a number, the apostrophe also turns the cell's format to that of
/// texts, which would keep the user's own numbers from being numbers.
void writeText(const Reference<css::table::XCell>& cell, const QString& text)
{
    if (text.isEmpty()) {
        cell->setFormula({});
        return;
    }
    const Reference<css::beans::XPropertySet> properties(cell, UNO_QUERY_THROW);
    const Any before = properties->getPropertyValue(numberFormat);
    cell->setFormula(textFormula(text));
    if (properties->getPropertyValue(numberFormat) != before)
        properties->setPropertyValue(numberFormat, before);
}

CellValues valuesOf(const Sheet& sheet, const QString& block, ObjectKeeper& keeper)
{
    const Reference<css::sheet::XCellRangeData> range(cellsOf(sheet, block, keeper).block,
                                                      UNO_QUERY_THROW);
    CellValues values;
    for (const Sequence<Any>& row : range->getDataArray()) {
        std::vector<CellValue>& line = values.emplace_back();
        line.reserve(static_cast<std::size_t>(row.getLength()));
        for (const Any& content : row)
            line.push_back(cellValue(content));
    }
    return values;
}

void writeCells(LoWorkbook& workbook, const Sheet& sheet, const std::vector<CellWrite>& cells)
{
    CellWriter writer(workbook, sheet);
    for (std::size_t i = 0; i < cells.size();)
        i += writer.writeRun(cells, i);
}

} // namespace ostrand::spreadsheet::libreoffice
