// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace ostrand::maker {

/// An open SQLite file with the collation and the functions of project files.
class SqliteFile
{
public:
    /// Opens or makes the file. Every failure of this class raises `std::runtime_error`.
    explicit SqliteFile(const std::filesystem::path& path);

    /// Runs a script of statements that give no rows. `origin` names it in failures.
    void run(const std::string& script, std::string_view origin);

    /// Rows that the last statement changed.
    int changedRows() const { return sqlite3_changes(m_handle.get()); }

    sqlite3* handle() const { return m_handle.get(); }

private:
    struct Close
    {
        void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    };

    std::unique_ptr<sqlite3, Close> m_handle;
};

/// A prepared statement; parameters and columns count from 0.
class SqliteStatement
{
public:
    SqliteStatement(const SqliteFile& file, const std::string& sql);

    /// The text must outlive the statement's next run.
    void bind(int parameter, std::string_view text);
    void bindNumber(int parameter, sqlite3_int64 number);
    void bindReal(int parameter, double number);
    void bindNull(int parameter);
    /// Binds Null for an empty text.
    void bindTextOrNull(int parameter, std::string_view text);

    /// Runs a statement that gives no rows and makes it ready for the next run.
    void run();
    /// True while there is a row.
    bool step();
    std::string text(int column) const;

private:
    [[noreturn]] void fail() const;

    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    std::unique_ptr<sqlite3_stmt, Finalize> m_handle;
};

} // namespace ostrand::maker
