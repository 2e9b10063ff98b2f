// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/page_style.h"

#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XPrintAreas.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

constexpr sal_Int32 shortSide = 21000; // of A4
constexpr sal_Int32 longSide = 29700;

Reference<css::beans::XPropertySet> propertiesOf(LoWorksheet& sheet)
{
    return {sheet.sheet(), UNO_QUERY_THROW};
}

Reference<css::container::XNameContainer> pageStyles(LoWorksheet& sheet)
{
    const Reference<css::style::XStyleFamiliesSupplier> supplier(sheet.workbook().document(),
                                                                 UNO_QUERY_THROW);
    return {supplier->getStyleFamilies()->getByName("PageStyles"), UNO_QUERY_THROW};
}

/// The sheet's own page style.
rtl::OUString ownStyleName(LoWorksheet& sheet)
{
    return "Page of " + unoText(sheet.Name());
}

/// Makes it on first use.
Reference<css::beans::XPropertySet> ownStyle(LoWorksheet& sheet)
{
    const rtl::OUString name = ownStyleName(sheet);
    const Reference<css::container::XNameContainer> styles = pageStyles(sheet);
    if (!styles->hasByName(name)) {
        const Reference<css::lang::XMultiServiceFactory> factory(sheet.workbook().document(),
                                                                 UNO_QUERY_THROW);
        styles->insertByName(name, Any(factory->createInstance("com.sun.star.style.PageStyle")));
    }
    return {styles->getByName(name), UNO_QUERY_THROW};
}

css::table::CellRangeAddress addressOf(LoWorksheet& sheet, const QString& reference)
{
    return Reference<css::sheet::XCellRangeAddressable>(
               sheet.sheet()->getCellRangeByName(unoText(reference)), UNO_QUERY_THROW)
        ->getRangeAddress();
}

QString printAreaOf(LoWorksheet& sheet)
{
    const css::uno::Sequence<css::table::CellRangeAddress> areas =
        Reference<css::sheet::XPrintAreas>(sheet.sheet(), UNO_QUERY_THROW)->getPrintAreas();
    if (!areas.hasElements())
        return {};
    const css::table::CellRangeAddress& area = areas[0];
    const Reference<css::beans::XPropertySet> block(
        sheet.sheet()->getCellRangeByPosition(
            area.StartColumn, area.StartRow, area.EndColumn, area.EndRow),
        UNO_QUERY_THROW);
    const QString name = qtText(property<rtl::OUString>(block, "AbsoluteName"));
    return name.mid(name.lastIndexOf(u'.') + 1).remove(u'$');
}

} // namespace

void applyPage(LoWorksheet& sheet, const PageSetup& page)
{
    const Reference<css::beans::XPropertySet> style = ownStyle(sheet);
    const auto set = [&](const char* name, const Any& value) {
        style->setPropertyValue(rtl::OUString::createFromAscii(name), value);
    };
    set("IsLandscape", Any(page.landscape));
    set("Width", Any(page.landscape ? longSide : shortSide));
    set("Height", Any(page.landscape ? shortSide : longSide));
    for (const char* side : {"LeftMargin", "RightMargin", "TopMargin", "BottomMargin"})
        set(side, Any(fromInches(page.margin)));
    for (const char* strip : {"HeaderIsOn", "FooterIsOn"})
        set(strip, Any(false));
    set("CenterHorizontally", Any(page.centred));
    set("ScaleToPagesX", Any(static_cast<sal_Int16>(page.pagesWide)));
    set("ScaleToPagesY", Any(static_cast<sal_Int16>(page.pagesHigh)));
    // Last, as every change of a style in use has the sheet divided into pages anew.
    propertiesOf(sheet)->setPropertyValue("PageStyle", Any(ownStyleName(sheet)));
    if (page.printArea.isEmpty())
        return;
    const css::table::CellRangeAddress area = addressOf(sheet, page.printArea);
    Reference<css::sheet::XPrintAreas>(sheet.sheet(), UNO_QUERY_THROW)
        ->setPrintAreas(css::uno::Sequence<css::table::CellRangeAddress>(&area, 1));
}

PageSetup pageOf(LoWorksheet& sheet)
{
    constexpr double hundredths = 100;
    const Reference<css::beans::XPropertySet> style(
        pageStyles(sheet)->getByName(property<rtl::OUString>(propertiesOf(sheet), "PageStyle")),
        UNO_QUERY_THROW);
    PageSetup page;
    page.landscape = property<bool>(style, "IsLandscape");
    page.margin =
        std::round(property<sal_Int32>(style, "LeftMargin") / hundredthsPerInch * hundredths)
        / hundredths;
    page.printArea = printAreaOf(sheet);
    page.pagesWide = property<sal_Int16>(style, "ScaleToPagesX");
    page.pagesHigh = property<sal_Int16>(style, "ScaleToPagesY");
    page.centred = property<bool>(style, "CenterHorizontally");
    return page;
}

} // namespace ostrand::spreadsheet::libreoffice
