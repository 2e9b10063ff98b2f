// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/file_signature.h"

#include "spreadsheet/error.h"
#include "spreadsheet/libreoffice/compound_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace ostrand::spreadsheet::libreoffice {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("spreadsheet", text);
}

bool isWorkbook(QIODevice& file)
{
    if (isCompoundFile(file))
        return isCompleteCompoundFile(file) && holdsWorkbook(file);
    file.seek(0);
    return file.peek(4) == QByteArray("PK\x03\x04", 4); // the archive of newer formats
}

} // namespace

void checkWorkbookFile(const QString& path)
{
    if (!QFileInfo(path).isFile())
        throw Error(errors::applicationError, tr("The file %1 was not found.").arg(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(errors::permissionDenied, tr("The file %1 can't be read.").arg(path));
    if (!isWorkbook(file))
        throw Error(errors::invalidFileFormat, tr("The file %1 is no workbook.").arg(path));
}

} // namespace ostrand::spreadsheet::libreoffice
