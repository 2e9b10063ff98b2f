// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/graphic/XGraphic.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <optional>

namespace ostrand::spreadsheet::libreoffice {

/// Has the application read picture files. The last one is kept: many workbooks get the same.
class PictureReader
{
public:
    struct Picture
    {
        com::sun::star::uno::Reference<com::sun::star::graphic::XGraphic> graphic;
        /// What it says it has, or else that of its pixels on a screen; 1/100 mm.
        com::sun::star::awt::Size size;
    };

    /// Nothing when the file is no picture that the application knows.
    std::optional<Picture>
    read(const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context,
         const QString& file);
    void clear() { m_picture.reset(); }

private:
    QString m_file;
    QDateTime m_changed;
    qint64 m_size = 0;
    std::optional<Picture> m_picture;
};

} // namespace ostrand::spreadsheet::libreoffice
