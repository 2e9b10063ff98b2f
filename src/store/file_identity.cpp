// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The one place of the store that asks the operating system itself; POSIX here.
#include "store/file_identity.h"

#include <sys/stat.h>

namespace ostrand::store {

std::optional<FileIdentity> identityOf(const std::filesystem::path& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

} // namespace ostrand::store
