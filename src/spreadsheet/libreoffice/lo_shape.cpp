// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lo_shape.h"

#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/object_keeper.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

Reference<css::drawing::XDrawPage> drawPageOf(LoWorksheet& sheet)
{
    ObjectKeeper& keeper = sheet.keeper();
    return keeper.keep(keeper.as<css::drawing::XDrawPageSupplier>(sheet.sheet())->getDrawPage());
}

class LoShape final : public Shape
{
public:
    LoShape(LoWorksheet& sheet,
            const Reference<css::drawing::XDrawPage>& page,
            const Reference<css::drawing::XShape>& shape)
        : m_workbook(sheet.workbook().shared_from_this()),
          m_page(page),
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
    Extent Size() const override
    {
        return guarded([&] {
            const css::awt::Size size = m_shape->getSize();
            return Extent{toPoints(size.Width), toPoints(size.Height)};
        });
    }
    void setPosition(double left, double top) override
    {
        guarded([&] { m_shape->setPosition({fromPoints(left), fromPoints(top)}); });
    }
    void setSize(const Extent& size) override
    {
        guarded([&] { m_shape->setSize({fromPoints(size.width), fromPoints(size.height)}); });
    }

private:
    Reference<css::container::XNamed> named() const
    {
        return m_workbook->office().keeper()->as<css::container::XNamed>(m_shape);
    }

    std::shared_ptr<LoWorkbook> m_workbook;
    Reference<css::drawing::XDrawPage> m_page;
    Reference<css::drawing::XShape> m_shape;
};

/// The first selected cell when it lies on the sheet; else the sheet's first.
Reference<css::table::XCell> selectedCell(LoWorksheet& sheet)
{
    const Reference<css::sheet::XCellRangeAddressable> selected = sheet.keeper().keep(
        Reference<css::sheet::XCellRangeAddressable>(sheet.workbook().selection(), UNO_QUERY));
    css::table::CellRangeAddress place;
    if (selected.is())
        place = selected->getRangeAddress();
    const auto own =
        sheet.keeper().as<css::sheet::XCellRangeAddressable>(sheet.sheet())->getRangeAddress();
    if (place.Sheet != own.Sheet)
        place = own;
    return sheet.keeper().keep(sheet.sheet()->getCellByPosition(place.StartColumn, place.StartRow));
}

} // namespace

std::vector<std::unique_ptr<Shape>> shapesOf(LoWorksheet& sheet)
{
    std::vector<std::unique_ptr<Shape>> shapes;
    const Reference<css::drawing::XDrawPage> page = drawPageOf(sheet);
    const sal_Int32 count = page->getCount();
    shapes.reserve(static_cast<std::size_t>(count));
    for (sal_Int32 i = 0; i < count; ++i) {
        const Reference<css::drawing::XShape> shape(page->getByIndex(i), UNO_QUERY_THROW);
        shapes.push_back(std::make_unique<LoShape>(sheet, page, sheet.keeper().keep(shape)));
    }
    return shapes;
}

std::unique_ptr<Shape> insertPicture(LoWorksheet& sheet, const QString& file)
{
    Office& office = sheet.workbook().office();
    const std::optional<PictureReader::Picture> picture =
        office.pictures().read(office.context(), file);
    if (!picture) {
        throw Error(
            errors::applicationError,
            QCoreApplication::translate("spreadsheet", "The picture %1 can't be read.").arg(file));
    }
    ObjectKeeper& keeper = sheet.keeper();
    const Reference<css::table::XCell> cell = selectedCell(sheet);
    const auto factory = keeper.as<css::lang::XMultiServiceFactory>(sheet.workbook().document());
    const auto shape = keeper.as<css::drawing::XShape>(
        factory->createInstance("com.sun.star.drawing.GraphicObjectShape"));
    const Reference<css::drawing::XDrawPage> page = drawPageOf(sheet);
    page->add(shape);
    const auto properties = keeper.as<css::beans::XPropertySet>(shape);
    properties->setPropertyValue("Graphic", Any(picture->graphic));
    properties->setPropertyValue("Anchor", Any(cell));
    shape->setSize(picture->size);
    shape->setPosition(
        property<css::awt::Point>(keeper.as<css::beans::XPropertySet>(cell), "Position"));
    return std::make_unique<LoShape>(sheet, page, shape);
}

} // namespace ostrand::spreadsheet::libreoffice
