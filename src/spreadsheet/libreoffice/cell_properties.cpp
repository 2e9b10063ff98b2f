// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/cell_properties.h"

#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <algorithm>
#include <com/sun/star/awt/FontSlant.hpp>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/beans/XMultiPropertySet.hpp>
#include <com/sun/star/table/BorderLineStyle.hpp>
#include <com/sun/star/table/CellHoriJustify.hpp>
#include <com/sun/star/table/CellVertJustify2.hpp>
#include <com/sun/star/table/TableBorder2.hpp>
#include <com/sun/star/util/CellProtection.hpp>
#include <string_view>
#include <vector>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

constexpr int hundredthsOfDegree = 100;

css::table::CellHoriJustify justified(HorizontalAlign align)
{
    switch (align) {
    case HorizontalAlign::Left:
        return css::table::CellHoriJustify_LEFT;
    case HorizontalAlign::Centre:
        return css::table::CellHoriJustify_CENTER;
    default:
        return css::table::CellHoriJustify_RIGHT;
    }
}

std::optional<HorizontalAlign> alignOf(css::table::CellHoriJustify justify)
{
    switch (justify) {
    case css::table::CellHoriJustify_LEFT:
        return HorizontalAlign::Left;
    case css::table::CellHoriJustify_CENTER:
        return HorizontalAlign::Centre;
    case css::table::CellHoriJustify_RIGHT:
        return HorizontalAlign::Right;
    default:
        return {};
    }
}

sal_Int32 justified(VerticalAlign align)
{
    switch (align) {
    case VerticalAlign::Top:
        return css::table::CellVertJustify2::TOP;
    case VerticalAlign::Centre:
        return css::table::CellVertJustify2::CENTER;
    default:
        return css::table::CellVertJustify2::BOTTOM;
    }
}

std::optional<VerticalAlign> alignOf(sal_Int32 justify)
{
    switch (justify) {
    case css::table::CellVertJustify2::TOP:
        return VerticalAlign::Top;
    case css::table::CellVertJustify2::CENTER:
        return VerticalAlign::Centre;
    case css::table::CellVertJustify2::BOTTOM:
        return VerticalAlign::Bottom;
    default:
        return {};
    }
}

css::table::BorderLine2 line(double points, int colour)
{
    css::table::BorderLine2 made;
    made.Color = colour;
    made.LineStyle = css::table::BorderLineStyle::SOLID;
    made.LineWidth = static_cast<sal_uInt32>(fromPoints(points));
    made.OuterLineWidth = static_cast<sal_Int16>(made.LineWidth);
    return made;
}

css::table::TableBorder2 frame(const Borders& borders)
{
    css::table::TableBorder2 made;
    if (borders.outer) {
        made.TopLine = made.BottomLine = made.LeftLine = made.RightLine =
            line(*borders.outer, borders.colour);
    }
    if (borders.inner)
        made.HorizontalLine = made.VerticalLine = line(*borders.inner, borders.colour);
    made.IsTopLineValid = made.IsBottomLineValid = made.IsLeftLineValid = made.IsRightLineValid =
        borders.outer.has_value();
    made.IsHorizontalLineValid = made.IsVerticalLineValid = borders.inner.has_value();
    return made;
}

double nearest(double points, int parts)
{
    return std::round(points * parts) / parts;
}

/// Properties of a cell, read at once.
class Reading
{
public:
    Reading(const Reference<css::uno::XInterface>& cell, std::vector<const char*> names)
        : m_names(std::move(names))
    {
        css::uno::Sequence<rtl::OUString> wanted(static_cast<sal_Int32>(m_names.size()));
        std::transform(m_names.begin(), m_names.end(), wanted.getArray(), [](const char* name) {
            return rtl::OUString::createFromAscii(name);
        });
        m_values = Reference<css::beans::XMultiPropertySet>(cell, UNO_QUERY_THROW)
                       ->getPropertyValues(wanted);
    }

    /// The type's empty value where the property has another.
    template <typename T>
    T get(std::string_view name) const
    {
        T value{};
        const auto place = std::find(m_names.begin(), m_names.end(), name);
        m_values[static_cast<sal_Int32>(place - m_names.begin())] >>= value;
        return value;
    }

private:
    std::vector<const char*> m_names;
    css::uno::Sequence<Any> m_values;
};

Borders bordersOf(const Reading& cell)
{
    constexpr int twentieths = 20;
    std::optional<css::table::BorderLine2> first;
    for (const char* side : {"TopBorder2", "BottomBorder2", "LeftBorder2", "RightBorder2"}) {
        const auto line = cell.get<css::table::BorderLine2>(side);
        if (first && (line.LineWidth != first->LineWidth || line.Color != first->Color))
            return {};
        first = line;
    }
    return {.outer = nearest(toPoints(first->LineWidth), twentieths), .colour = first->Color};
}

/// Collects properties, to be set at once.
class Properties
{
public:
    void add(const char* name, const Any& value)
    {
        m_names.push_back(rtl::OUString::createFromAscii(name));
        m_values.push_back(value);
    }
    template <typename T>
    void add(const char* name, const std::optional<T>& value)
    {
        if (value)
            add(name, Any(*value));
    }
    void set(const Reference<css::uno::XInterface>& object) const
    {
        if (m_names.empty())
            return;
        const auto count = static_cast<sal_Int32>(m_names.size());
        Reference<css::beans::XMultiPropertySet>(object, UNO_QUERY_THROW)
            ->setPropertyValues(css::uno::Sequence<rtl::OUString>(m_names.data(), count),
                                css::uno::Sequence<Any>(m_values.data(), count));
    }

private:
    std::vector<rtl::OUString> m_names;
    std::vector<Any> m_values;
};

void addFont(Properties& properties, const CellStyle& style)
{
    if (style.fontName)
        properties.add("CharFontName", Any(unoText(*style.fontName)));
    if (style.fontSize)
        properties.add("CharHeight", Any(static_cast<float>(*style.fontSize)));
    if (style.bold) {
        properties.add(
            "CharWeight",
            Any(*style.bold ? css::awt::FontWeight::BOLD : css::awt::FontWeight::NORMAL));
    }
    if (style.italic) {
        properties.add("CharPosture",
                       Any(*style.italic ? css::awt::FontSlant_ITALIC : css::awt::FontSlant_NONE));
    }
}

} // namespace

void applyStyle(const Reference<css::uno::XInterface>& cells, const CellStyle& style)
{
    Properties properties;
    addFont(properties, style);
    properties.add("CharColor", style.colour);
    properties.add("CellBackColor", style.background);
    if (style.horizontal)
        properties.add("HoriJustify", Any(justified(*style.horizontal)));
    if (style.vertical)
        properties.add("VertJustify", Any(justified(*style.vertical)));
    properties.add("IsTextWrapped", style.wrap);
    properties.add("ShrinkToFit", style.shrinkToFit);
    if (style.rotation)
        properties.add("RotateAngle", Any(sal_Int32{*style.rotation * hundredthsOfDegree}));
    if (style.locked) {
        properties.add("CellProtection",
                       Any(css::util::CellProtection(*style.locked, false, false, false)));
    }
    if (style.borders)
        properties.add("TableBorder2", Any(frame(*style.borders)));
    properties.set(cells);
}

CellStyle styleOf(const Reference<css::uno::XInterface>& cell)
{
    const Reading read(cell,
                       {"CharFontName",
                        "CharHeight",
                        "CharWeight",
                        "CharPosture",
                        "CharColor",
                        "CellBackColor",
                        "HoriJustify",
                        "VertJustify",
                        "IsTextWrapped",
                        "ShrinkToFit",
                        "RotateAngle",
                        "CellProtection",
                        "TopBorder2",
                        "BottomBorder2",
                        "LeftBorder2",
                        "RightBorder2"});
    CellStyle style;
    style.fontName = qtText(read.get<rtl::OUString>("CharFontName"));
    style.fontSize = read.get<float>("CharHeight");
    style.bold = read.get<float>("CharWeight") >= css::awt::FontWeight::BOLD;
    style.italic = read.get<css::awt::FontSlant>("CharPosture") != css::awt::FontSlant_NONE;
    style.colour = read.get<sal_Int32>("CharColor");
    style.background = read.get<sal_Int32>("CellBackColor");
    style.horizontal = alignOf(read.get<css::table::CellHoriJustify>("HoriJustify"));
    style.vertical = alignOf(read.get<sal_Int32>("VertJustify"));
    style.wrap = read.get<bool>("IsTextWrapped");
    style.shrinkToFit = read.get<bool>("ShrinkToFit");
    style.rotation = read.get<sal_Int32>("RotateAngle") / hundredthsOfDegree;
    style.locked = read.get<css::util::CellProtection>("CellProtection").IsLocked;
    style.borders = bordersOf(read);
    return style;
}

} // namespace ostrand::spreadsheet::libreoffice
