// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/file_system.h"

#include "toolkit/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;
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

[[noreturn]] void raise(const std::error_code& reason)
{
    // The library tells a disk that fills up in the middle of a file by an I/O error.
    if (reason == std::errc::no_space_on_device || reason == std::errc::file_too_large
        || reason == std::errc::io_error)
        throw Error(fileErrors::diskFull, u"Disk full"_s);
    throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
}

/// To another file system: the old file goes only when the new one is whole.
void moveByCopy(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    fs::copy_file(from, to, failed);
    if (failed == std::errc::file_exists)
        raise(failed);
    if (!failed)
        fs::remove(from, failed);
    if (!failed)
        return;
    std::error_code ignored;
    fs::remove(to, ignored);
    raise(failed);
}

void moveByPath(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    fs::rename(from, to, failed);
    if (failed == std::errc::cross_device_link)
        moveByCopy(from, to);
    else if (failed)
        raise(failed);
}

void openForSaving(QSaveFile& file)
{
    if (file.open(QIODevice::WriteOnly))
        return;
    if (!QFileInfo(file.fileName()).dir().exists())
        throw Error(fileErrors::pathNotFound, u"Path not found"_s);
    throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
}

/// Committing alone does not mind when the last bytes are refused.
void commit(QSaveFile& file)
{
    if (!file.flush() || !file.commit())
        throw Error(fileErrors::diskFull, u"Disk full"_s);
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
    moveByPath(QFileInfo(filePath(from)).filesystemFilePath(), target.filesystemFilePath());
}

void copyFile(const QString& from, const QString& to)
{
    requireFile(from);
    QFile source(filePath(from));
    if (!source.open(QIODevice::ReadOnly))
        throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
    QSaveFile target(filePath(to));
    openForSaving(target);
    constexpr qint64 piece = 1 << 20;
    while (!source.atEnd()) {
        const QByteArray read = source.read(piece);
        if (read.isEmpty())
            throw Error(fileErrors::deviceError, u"Device I/O error"_s);
        if (target.write(read) != read.size())
            throw Error(fileErrors::diskFull, u"Disk full"_s);
    }
    // What this user may do is no right of the file.
    constexpr QFile::Permissions own = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    target.setPermissions(source.permissions() & ~own);
    commit(target);
}

void writeText(const QString& path, const QString& text)
{
    QSaveFile file(filePath(path));
    openForSaving(file);
    file.write(text.toUtf8());
    commit(file);
}

void deleteFile(const QString& path)
{
    requireFile(path);
    const QString file = filePath(path);
    if (isReadOnly(file) || !QFile::remove(file))
        throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
}

} // namespace ostrand::toolkit
