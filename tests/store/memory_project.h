// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/collation.h"
#include "store/functions.h"
#include "store/sql/translate.h"

#include <QString>
#include <QStringList>

#include <sqlite3.h>

#include <memory>

/// A small project in memory, with the tables and queries of a real one, for tests of statements.
namespace ostrand::tests {

struct CloseConnection
{
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
};
struct FinalizeStatement
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using ConnectionHandle = std::unique_ptr<sqlite3, CloseConnection>;
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

class MemoryProject
{
public:
    /// An empty database when `tables` is false.
    explicit MemoryProject(bool tables = true);

    sqlite3* connection() const { return m_connection.get(); }

    /// Runs statements of SQLite's own dialect.
    void execute(const char* sql) const;
    /// The rows of a statement of SQLite's own dialect.
    QStringList rowsOf(const QByteArray& sql, const QStringList& literals = {}) const;
    /// Translates a statement, runs it and returns its rows: values parted by "|", Null as "Null".
    QStringList run(const QString& statement) const;
    /// The column names of a select.
    QStringList columnsOf(const QString& statement) const;

    /// Prepares one statement and binds its literals; nullptr when SQLite refuses it.
    StatementHandle prepare(const QByteArray& sql, const QStringList& literals) const;

private:
    [[noreturn]] void fail(const QByteArray& sql) const;

    ConnectionHandle m_connection;
};

} // namespace ostrand::tests
