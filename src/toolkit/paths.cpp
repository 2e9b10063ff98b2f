// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/paths.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ostrand::toolkit {

QString joinPath(const QString& folder, const QString& name)
{
    return folder + QDir::separator() + name;
}

QString filePath(const QString& stored)
{
    return QString(stored).replace(u'\\', u'/');
}

QString fileTitle(const QString& path)
{
    return filePath(path).section(u'/', -1);
}

QString fileExtension(const QString& path)
{
    const QString title = fileTitle(path);
    const qsizetype point = title.lastIndexOf(u'.');
    return point < 0 ? QString() : title.mid(point + 1);
}

} // namespace ostrand::toolkit
