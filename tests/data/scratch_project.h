// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <filesystem>
#include <memory>

namespace ostrand::tests {

/// A copy of a project file in a folder of its own, open through SQLite itself as the program
/// opens it: with the collation, the functions and foreign keys.
class ScratchProject
{
public:
    /// The copy of a file that the build made, such as "index.mdb".
    explicit ScratchProject(const char* name);
    explicit ScratchProject(const std::filesystem::path& file);

    /// SQLite's extended result of a script; SQLITE_OK when all of it ran.
    int run(const QByteArray& script);
    QString lastMessage() const;
    /// One text for each row, the columns joined by "|"; Null as "NULL".
    QStringList rows(const QByteArray& select);
    /// The only row of a select.
    QString row(const QByteArray& select);

    sqlite3* handle() const { return m_handle.get(); }

private:
    struct Close
    {
        void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    };

    QTemporaryDir m_folder;
    std::unique_ptr<sqlite3, Close> m_handle;
};

/// The folder of the data files.
std::filesystem::path dataFolder();

} // namespace ostrand::tests
