// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

namespace ostrand::tests {

/// While one stands, every write of SQLite to a file finds the disk full.
class FullDisk
{
public:
    FullDisk() { replace(reinterpret_cast<sqlite3_syscall_ptr>(&refuse)); }
    ~FullDisk() { replace(nullptr); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    static ssize_t refuse(int /*file*/, const void* /*data*/, size_t /*size*/, off_t /*offset*/)
    {
        errno = ENOSPC;
        return -1;
    }

    static void replace(sqlite3_syscall_ptr call)
    {
        sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
        for (const char* name : {"pwrite", "pwrite64"})
            vfs->xSetSystemCall(vfs, name, call);
    }
};

} // namespace ostrand::tests
