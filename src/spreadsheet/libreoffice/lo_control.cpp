// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/lo_control.h"

#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/drawing/XControlShape.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

class LoControl final : public Control
{
public:
    LoControl(LoWorksheet& sheet, const Reference<css::beans::XPropertySet>& model)
        : m_workbook(sheet.workbook().shared_from_this()),
          m_sheetName(sheet.cachedName()),
          m_model(model)
    {
    }

    CellValue Value() const override
    {
        return guarded([&]() -> CellValue {
            if (has("State"))
                return property<sal_Int16>(m_model, "State") == 1;
            return qtText(property<rtl::OUString>(m_model, "Text"));
        });
    }
    void setValue(const QString& text) override { set("Text", Any(unoText(text))); }
    void setValue(bool checked) override
    {
        set("State", Any(static_cast<sal_Int16>(checked ? 1 : 0)));
    }

private:
    bool has(const char* name) const
    {
        return m_model->getPropertySetInfo()->hasPropertyByName(
            rtl::OUString::createFromAscii(name));
    }
    void set(const char* name, const Any& value)
    {
        guarded([&] { m_model->setPropertyValue(rtl::OUString::createFromAscii(name), value); });
        m_workbook->noteChange(m_sheetName);
    }

    std::shared_ptr<LoWorkbook> m_workbook;
    QString m_sheetName;
    Reference<css::beans::XPropertySet> m_model;
};

} // namespace

std::unique_ptr<Control> findControl(LoWorksheet& sheet, const QString& name)
{
    const Reference<css::container::XIndexAccess> shapes(
        Reference<css::drawing::XDrawPageSupplier>(sheet.sheet(), UNO_QUERY_THROW)->getDrawPage(),
        UNO_QUERY_THROW);
    for (sal_Int32 i = 0; i < shapes->getCount(); ++i) {
        const Reference<css::drawing::XControlShape> shape(shapes->getByIndex(i), UNO_QUERY);
        if (!shape.is())
            continue;
        const Reference<css::beans::XPropertySet> model(shape->getControl(), UNO_QUERY_THROW);
        if (qtText(property<rtl::OUString>(model, "Name")).compare(name, Qt::CaseInsensitive) == 0)
            return std::make_unique<LoControl>(sheet, model);
    }
    throw Error(
        errors::subscriptOutOfRange,
        QCoreApplication::translate("spreadsheet", "There is no control \"%1\".").arg(name));
}

} // namespace ostrand::spreadsheet::libreoffice
