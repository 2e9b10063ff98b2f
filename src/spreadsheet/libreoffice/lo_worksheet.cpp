// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lo_worksheet.h"

#include "spreadsheet/libreoffice/cell_blocks.h"
#include "spreadsheet/libreoffice/lo_control.h"
#include "spreadsheet/libreoffice/lo_range.h"
#include "spreadsheet/libreoffice/lo_shape.h"
#include "spreadsheet/libreoffice/lo_sheet_design.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/util/XProtectable.hpp>

namespace css = com::sun::star;
using css::uno::Reference;

namespace ostrand::spreadsheet::libreoffice {

LoWorksheet::LoWorksheet(std::shared_ptr<LoWorkbook> workbook,
                         const Reference<css::sheet::XSpreadsheet>& sheet)
    : m_workbook(std::move(workbook)),
      m_sheet(keeper().keep(sheet)),
      m_name(Name())
{
}

LoWorksheet::~LoWorksheet()
{
    m_workbook->removeSubscriber(this);
}

QString LoWorksheet::Name() const
{
    return guarded([&] { return qtText(keeper().as<css::container::XNamed>(m_sheet)->getName()); });
}

std::unique_ptr<Range> LoWorksheet::Range(const QString& reference)
{
    return guarded(
        [&] { return std::make_unique<LoRange>(m_workbook, m_sheet, m_name, reference); });
}

CellValues LoWorksheet::Values(const QString& block)
{
    return guarded([&] { return valuesOf(m_sheet, block, keeper()); });
}

void LoWorksheet::write(const std::vector<CellWrite>& cells)
{
    if (cells.empty())
        return;
    m_workbook->beginWriting();
    guarded([&] { writeCells(*m_workbook, m_sheet, cells); });
    m_workbook->noteChange(m_name);
}

std::unique_ptr<Control> LoWorksheet::OLEObjects(const QString& name)
{
    return guarded([&] { return findControl(*this, name); });
}

void LoWorksheet::Activate()
{
    guarded([&] {
        keeper()
            .as<css::sheet::XSpreadsheetView>(m_workbook->controller())
            ->setActiveSheet(m_sheet);
    });
}

void LoWorksheet::Protect()
{
    guarded([&] { keeper().as<css::util::XProtectable>(m_sheet)->protect(rtl::OUString()); });
}

void LoWorksheet::Unprotect()
{
    guarded([&] {
        try {
            keeper().as<css::util::XProtectable>(m_sheet)->unprotect(rtl::OUString());
        } catch (const css::lang::IllegalArgumentException&) {
            throw Error(errors::applicationError,
                        QCoreApplication::translate("spreadsheet",
                                                    "The sheet %1 is protected by a password.")
                            .arg(m_name));
        }
    });
}

std::vector<std::unique_ptr<Shape>> LoWorksheet::Shapes()
{
    return guarded([&] { return shapesOf(*this); });
}

std::unique_ptr<Shape> LoWorksheet::InsertPicture(const QString& file)
{
    return guarded([&] { return insertPicture(*this, file); });
}

SheetDesign& LoWorksheet::design()
{
    if (!m_design)
        m_design = std::make_unique<LoSheetDesign>(*this);
    return *m_design;
}

void LoWorksheet::subscribe(std::function<void()> Change)
{
    m_workbook->removeSubscriber(this);
    m_change = std::move(Change);
    if (m_change)
        m_workbook->addSubscriber(this);
}

void LoWorksheet::raiseChange() const
{
    if (m_change)
        m_change();
}

} // namespace ostrand::spreadsheet::libreoffice
