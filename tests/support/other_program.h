// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <sqlite3.h>

namespace ostrand::tests {

/// Another program that works on the project file, as long as it stands.
class OtherProgram
{
public:
    explicit OtherProgram(const QString& path)
    {
        if (sqlite3_open(path.toUtf8().constData(), &m_file) != SQLITE_OK)
            qFatal("cannot open");
    }
    ~OtherProgram() { sqlite3_close(m_file); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void run(const char* sql)
    {
        if (sqlite3_exec(m_file, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("%s: %s", sql, sqlite3_errmsg(m_file));
    }

private:
    sqlite3* m_file = nullptr;
};

} // namespace ostrand::tests
