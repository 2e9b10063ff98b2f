// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <sqlite3.h>

namespace ostrand::tests {

/// A lock that another program holds on a file; `kind` begins its transaction.
class ForeignLock
{
public:
    ForeignLock(const QString& path, const char* kind)
    {
        if (sqlite3_open(path.toUtf8().constData(), &m_file) != SQLITE_OK
            || sqlite3_exec(m_file, kind, nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("no lock");
    }
    ~ForeignLock() { sqlite3_close(m_file); }
    ForeignLock(const ForeignLock&) = delete;
    ForeignLock& operator=(const ForeignLock&) = delete;

private:
    sqlite3* m_file = nullptr;
};

} // namespace ostrand::tests
