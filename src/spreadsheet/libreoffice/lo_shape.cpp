// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lo_shape.h"

#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

Reference<css::drawing::XDrawPage> drawPageOf(LoWorksheet& sheet)
{
    return Reference<css::drawing::XDrawPageSupplier>(sheet.sheet(), UNO_QUERY_THROW)
        ->getDrawPage();
}

class LoShape final : public Shape
{
public:
    LoShape(LoWorksheet& sheet, const Reference<css::drawing::XShape>& shape)
        : m_workbook(sheet.workbook().shared_from_this()),
          m_page(drawPageOf(sheet)),
          m_shape(shape)
    {
    }

    QString Name() const override
    {
        return guarded([&] { return qtText(named()->getName()); });
    }
    void setName(const QString& name) override
    {
        guarded([&] { named()->setName(unoText(name)); });
    }
    void Delete() override
    {
        guarded([&] { m_page->remove(m_shape); });
    }

    double Left() const override
    {
        return guarded([&] { return toPoints(m_shape->getPosition().X); });
    }
    double Top() const override
    {
        return guarded([&] { return toPoints(m_shape->getPosition().Y); });
    }
    double Width() const override
    {
        return guarded([&] { return toPoints(m_shape->getSize().Width); });
    }
    double Height() const override
    {
        return guarded([&] { return toPoints(m_shape->getSize().Height); });
    }
    void setLeft(double points) override
    {
        guarded([&] { m_shape->setPosition({fromPoints(points), m_shape->getPosition().Y}); });
    }
    void setTop(double points) override
    {
        guarded([&] { m_shape->setPosition({m_shape->getPosition().X, fromPoints(points)}); });
    }
    void setSize(double width, double height) override
    {
        guarded([&] { m_shape->setSize({fromPoints(width), fromPoints(height)}); });
    }

private:
    Reference<css::container::XNamed> named() const { return {m_shape, UNO_QUERY_THROW}; }

    std::shared_ptr<LoWorkbook> m_workbook;
    Reference<css::drawing::XDrawPage> m_page;
    Reference<css::drawing::XShape> m_shape;
};

/// The size that the picture says it has, or else that of its pixels on a screen.
css::awt::Size sizeOf(const Reference<css::graphic::XGraphic>& picture)
{
    const Reference<css::beans::XPropertySet> properties(picture, UNO_QUERY_THROW);
    const auto size = property<css::awt::Size>(properties, "Size100thMM");
    if (size.Width > 0 && size.Height > 0)
        return size;
    const auto pixels = property<css::awt::Size>(properties, "SizePixel");
    return {fromInches(pixels.Width / pixelsPerInch), fromInches(pixels.Height / pixelsPerInch)};
}

/// The selected block when it lies on the sheet; else the sheet's first cell.
Reference<css::table::XCellRange> selectedBlock(LoWorksheet& sheet)
{
    const Reference<css::sheet::XSheetCellRange> selected(
        sheet.workbook().controller()->getModel()->getCurrentSelection(), UNO_QUERY);
    if (selected.is()) {
        const Reference<css::container::XNamed> owner(selected->getSpreadsheet(), UNO_QUERY_THROW);
        if (qtText(owner->getName()) == sheet.Name())
            return {selected, UNO_QUERY_THROW};
    }
    return sheet.sheet()->getCellRangeByPosition(0, 0, 0, 0);
}

} // namespace

std::vector<std::unique_ptr<Shape>> shapesOf(LoWorksheet& sheet)
{
    std::vector<std::unique_ptr<Shape>> shapes;
    const Reference<css::drawing::XDrawPage> page = drawPageOf(sheet);
    const sal_Int32 count = page->getCount();
    shapes.reserve(static_cast<std::size_t>(count));
    for (sal_Int32 i = 0; i < count; ++i) {
        shapes.push_back(std::make_unique<LoShape>(
            sheet, Reference<css::drawing::XShape>(page->getByIndex(i), UNO_QUERY_THROW)));
    }
    return shapes;
}

std::unique_ptr<Shape> insertPicture(LoWorksheet& sheet, const QString& file)
{
    Office& office = sheet.workbook().office();
    const Reference<css::graphic::XGraphic> picture =
        office.pictures().read(office.context(), file);
    if (!picture.is()) {
        throw Error(
            errors::applicationError,
            QCoreApplication::translate("spreadsheet", "The picture %1 can't be read.").arg(file));
    }
    const Reference<css::table::XCellRange> block = selectedBlock(sheet);
    const Reference<css::lang::XMultiServiceFactory> factory(sheet.workbook().document(),
                                                             UNO_QUERY_THROW);
    const Reference<css::drawing::XShape> shape(
        factory->createInstance("com.sun.star.drawing.GraphicObjectShape"), UNO_QUERY_THROW);
    drawPageOf(sheet)->add(shape);
    const Reference<css::beans::XPropertySet> properties(shape, UNO_QUERY_THROW);
    properties->setPropertyValue("Graphic", Any(picture));
    properties->setPropertyValue("Anchor", Any(block->getCellByPosition(0, 0)));
    shape->setSize(sizeOf(picture));
    shape->setPosition(property<css::awt::Point>(
        Reference<css::beans::XPropertySet>(block, UNO_QUERY_THROW), "Position"));
    return std::make_unique<LoShape>(sheet, shape);
}

} // namespace ostrand::spreadsheet::libreoffice
