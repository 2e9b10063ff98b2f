// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <com/sun/star/graphic/XGraphic.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>

namespace ostrand::spreadsheet::libreoffice {

/// Has the application read picture files. The last one is kept: many workbooks get the same.
class PictureReader
{
public:
    /// Nothing when the file is no picture that the application knows.
    com::sun::star::uno::Reference<com::sun::star::graphic::XGraphic>
    read(const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& context,
         const QString& file);
    void clear() { m_picture.clear(); }

private:
    QString m_file;
    QDateTime m_changed;
    qint64 m_size = 0;
    com::sun::star::uno::Reference<com::sun::star::graphic::XGraphic> m_picture;
};

} // namespace ostrand::spreadsheet::libreoffice
