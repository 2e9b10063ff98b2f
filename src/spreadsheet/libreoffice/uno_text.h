// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <rtl/ustring.hxx>

/// Texts between Qt and UNO. Both are UTF-16, so nothing is lost either way.
namespace ostrand::spreadsheet::libreoffice {

inline rtl::OUString unoText(const QString& text)
{
    return {reinterpret_cast<const sal_Unicode*>(text.utf16()),
            static_cast<sal_Int32>(text.size())};
}

inline QString qtText(const rtl::OUString& text)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.getStr()), text.getLength());
}

/// The file URL of a path, and back.
rtl::OUString fileUrl(const QString& path);
QString filePathOf(const rtl::OUString& url);

} // namespace ostrand::spreadsheet::libreoffice
