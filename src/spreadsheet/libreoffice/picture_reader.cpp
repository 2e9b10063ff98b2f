// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/picture_reader.h"

#include "spreadsheet/libreoffice/measures.h"
#include "spreadsheet/libreoffice/properties.h"
#include "spreadsheet/libreoffice/uno_text.h"

#include <QFileInfo>

#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/lang/DisposedException.hpp>

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;

namespace ostrand::spreadsheet::libreoffice {
namespace {

Reference<css::graphic::XGraphic> query(const Reference<css::uno::XComponentContext>& context,
                                        const QString& file)
{
    try {
        return css::graphic::GraphicProvider::create(context)->queryGraphic(
            arguments({{"URL", Any(fileUrl(file))}}));
    } catch (const css::lang::DisposedException&) {
        throw;
    } catch (const css::uno::Exception&) {
        return {};
    }
}

css::awt::Size sizeOf(const Reference<css::graphic::XGraphic>& graphic)
{
    const Reference<css::beans::XPropertySet> properties(graphic, css::uno::UNO_QUERY_THROW);
    const auto size = property<css::awt::Size>(properties, "Size100thMM");
    if (size.Width > 0 && size.Height > 0)
        return size;
    const auto pixels = property<css::awt::Size>(properties, "SizePixel");
    return {fromInches(pixels.Width / pixelsPerInch), fromInches(pixels.Height / pixelsPerInch)};
}

} // namespace

std::optional<PictureReader::Picture>
PictureReader::read(const Reference<css::uno::XComponentContext>& context, const QString& file)
{
    const QFileInfo info(file);
    if (!info.isFile())
        return {};
    if (m_picture && file == m_file && info.lastModified() == m_changed && info.size() == m_size)
        return m_picture;
    m_picture.reset();
    if (const Reference<css::graphic::XGraphic> graphic = query(context, file); graphic.is())
        m_picture = Picture{graphic, sizeOf(graphic)};
    m_file = file;
    m_changed = info.lastModified();
    m_size = info.size();
    return m_picture;
}

} // namespace ostrand::spreadsheet::libreoffice
