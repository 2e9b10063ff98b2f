// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/file_system.h"

#include "toolkit/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::toolkit {
namespace {

void requireFile(const QString& path)
{
    const QFileInfo file(filePath(path));
    if (file.isFile() || file.isSymLink())
        return;
    if (!file.dir().exists())
        throw Error(fileErrors::pathNotFound, u"Path not found"_s);
    throw Error(fileErrors::fileNotFound, u"File not found"_s);
}

/// What the file itself says, also to a user whom no file refuses.
bool isReadOnly(const QString& path)
{
    return !(QFile::permissions(path) & QFile::WriteOwner);
}

} // namespace

bool fileExists(const QString& path)
{
    return QFileInfo(filePath(path)).isFile();
}

void moveFile(const QString& from, const QString& to)
{
    requireFile(from);
    const QFileInfo target(filePath(to));
    if (target.exists() || target.isSymLink())
        throw Error(fileErrors::fileExists, u"File already exists"_s);
    if (!target.dir().exists())
        throw Error(fileErrors::pathNotFound, u"Path not found"_s);
    QFile file(filePath(from));
    if (file.rename(target.filePath()))
        return;
    if (file.error() == QFileDevice::ResourceError)
        throw Error(fileErrors::diskFull, u"Disk full"_s);
    throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
}

void deleteFile(const QString& path)
{
    requireFile(path);
    const QString file = filePath(path);
    if (isReadOnly(file) || !QFile::remove(file))
        throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
}

} // namespace ostrand::toolkit
