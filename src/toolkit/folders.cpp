// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/folders.h"

#include "toolkit/file_system.h"
#include "toolkit/paths.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::toolkit {
namespace {

fs::path systemPath(const QString& path)
{
    return QFileInfo(filePath(path)).filesystemFilePath();
}

/// What a disk that was pulled out, or a server that is gone, answers.
bool isDeviceGone(const std::error_code& reason)
{
    using std::errc;
    constexpr std::array gone{errc::no_such_device,
                              errc::no_such_device_or_address,
                              errc::io_error,
                              errc::not_connected,
                              errc::host_unreachable,
                              errc::network_unreachable,
                              errc::network_down,
                              errc::timed_out,
                              errc::connection_refused};
    return std::any_of(gone.begin(), gone.end(), [&](errc code) { return reason == code; });
}

[[noreturn]] void raise(const std::error_code& reason)
{
    using std::errc;
    if (isDeviceGone(reason))
        throw Error(fileErrors::deviceUnavailable, u"Device unavailable"_s);
    if (reason == errc::no_such_file_or_directory || reason == errc::not_a_directory
        || reason == errc::filename_too_long || reason == errc::invalid_argument)
        throw Error(fileErrors::pathNotFound, u"Path not found"_s);
    if (reason == errc::no_space_on_device)
        throw Error(fileErrors::diskFull, u"Disk full"_s);
    if (reason == errc::file_exists)
        throw Error(fileErrors::fileExists, u"File already exists"_s);
    throw Error(fileErrors::permissionDenied, u"Permission denied"_s);
}

void check(const std::error_code& reason)
{
    if (reason)
        raise(reason);
}

} // namespace

bool folderExists(const QString& path)
{
    return QFileInfo(filePath(path)).isDir();
}

QStringList subfolders(const QString& path)
{
    // Qt's own listing tells nothing of what went wrong.
    std::error_code failed;
    const fs::directory_iterator probe(systemPath(path), failed);
    check(failed);
    return QDir(filePath(path))
        .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
}

void createFolder(const QString& path)
{
    std::error_code failed;
    const fs::path folder = systemPath(path);
    if (fs::exists(fs::symlink_status(folder, failed)))
        raise(std::make_error_code(std::errc::file_exists));
    fs::create_directory(folder, failed);
    check(failed);
}

void deleteFolder(const QString& path)
{
    if (!folderExists(path))
        raise(std::make_error_code(std::errc::no_such_file_or_directory));
    std::error_code failed;
    fs::remove_all(systemPath(path), failed);
    check(failed);
}

} // namespace ostrand::toolkit
