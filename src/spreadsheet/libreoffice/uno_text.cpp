// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/uno_text.h"

#include <QFileInfo>
#include <QUrl>

namespace ostrand::spreadsheet::libreoffice {

rtl::OUString fileUrl(const QString& path)
{
    const QUrl url = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    return unoText(url.toString(QUrl::FullyEncoded));
}

QString filePathOf(const rtl::OUString& url)
{
    return QUrl(qtText(url)).toLocalFile();
}

} // namespace ostrand::spreadsheet::libreoffice
