// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lo_range.h"

#include "spreadsheet/libreoffice/number_formats.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
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

struct Place
{
    sal_Int32 column;
    sal_Int32 row;
};

/// The place of a plain reference such as "D11", which most are; they need not be asked for.
std::optional<Place> plainPlace(const QString& reference)
{
    constexpr int letters = 26;
    constexpr int mostLetters = 3;
    constexpr int mostDigits = 7;
    Place place{0, 0};
    qsizetype i = 0;
    for (; i < reference.size() && i < mostLetters; ++i) {
        const char16_t letter = reference[i].toUpper().unicode();
        if (letter < u'A' || letter > u'Z')
            break;
        place.column = place.column * letters + (letter - u'A' + 1);
    }
    const qsizetype digits = reference.size() - i;
    if (i == 0 || digits == 0 || digits > mostDigits)
        return {};
    for (; i < reference.size(); ++i) {
        const char16_t digit = reference[i].unicode();
        if (digit < u'0' || digit > u'9')
            return {};
        place.row = place.row * 10 + (digit - u'0');
    }
    return Place{place.column - 1, place.row - 1};
}

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
      m_sheetName(std::move(sheetName))
{
    const auto keep = [&keeper = *m_workbook->office().keeper()](const auto& object) {
        return keeper.keep(object);
    };
    try {
        if (const std::optional<Place> place = plainPlace(reference)) {
            m_cell = keep(sheet->getCellByPosition(place->column, place->row));
            return;
        }
        m_block = keep(sheet->getCellRangeByName(unoText(reference)));
        const css::table::CellRangeAddress address =
            Reference<css::sheet::XCellRangeAddressable>(m_block, UNO_QUERY_THROW)
                ->getRangeAddress();
        if (address.StartColumn == address.EndColumn && address.StartRow == address.EndRow)
            m_cell = keep(m_block->getCellByPosition(0, 0));
    } catch (const css::lang::DisposedException&) {
        throw;
    } catch (const css::uno::Exception&) {
        throw Error(
            errors::applicationError,
            QCoreApplication::translate("spreadsheet", "There is no cell \"%1\".").arg(reference));
    }
}

CellValue LoRange::Value() const
{
    if (!m_cell.is())
        return ManyCells{};
    return guarded([&]() -> CellValue {
        switch (m_cell->getType()) {
        case css::table::CellContentType_EMPTY:
            return std::monostate{};
        case css::table::CellContentType_TEXT:
            return textOf(m_cell);
        case css::table::CellContentType_VALUE:
            return numberValue();
        default:
            return formulaValue();
        }
    });
}

CellValue LoRange::numberValue() const
{
    const Reference<css::beans::XPropertySet> properties(m_cell, UNO_QUERY_THROW);
    const double number = m_cell->getValue();
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
    if (m_cell->getError() != 0)
        return CellError{textOf(m_cell)};
    const Reference<css::beans::XPropertySet> properties(m_cell, UNO_QUERY_THROW);
    if (property<sal_Int32>(properties, "FormulaResultType2") == css::sheet::FormulaResult::VALUE)
        return numberValue();
    return textOf(m_cell);
}

void LoRange::setValue(const QString& text)
{
    if (!m_cell.is()) {
        throw Error(errors::typeMismatch,
                    QCoreApplication::translate("spreadsheet", "Type mismatch"));
    }
    m_workbook->beginWriting();
    guarded([&] { writeText(text); });
    m_workbook->noteChange(m_sheetName);
}

/// The leading apostrophe makes any text a text. With a text that reads like a number it also turns
/// the cell's format to that of texts, which would keep the user's own numbers from being numbers.
void LoRange::writeText(const QString& text)
{
    if (text.isEmpty()) {
        m_cell->setFormula({});
        return;
    }
    const rtl::OUString format = "NumberFormat";
    const Reference<css::beans::XPropertySet> properties(m_cell, UNO_QUERY_THROW);
    const Any before = properties->getPropertyValue(format);
    m_cell->setFormula(unoText(u'\'' + text));
    if (properties->getPropertyValue(format) != before)
        properties->setPropertyValue(format, before);
}

void LoRange::Select()
{
    guarded([&] {
        const Any target = m_cell.is() ? Any(m_cell) : Any(m_block);
        Reference<css::view::XSelectionSupplier>(m_workbook->controller(), UNO_QUERY_THROW)
            ->select(target);
    });
}

void LoRange::Activate()
{
    Select();
}

} // namespace ostrand::spreadsheet::libreoffice
