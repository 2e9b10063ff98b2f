// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "store/value.h"

#include <QString>

#include <memory>

namespace ostrand::store {

class Connection;
class Recordset;

/// What `Database::Execute` does with rows that a key, a rule or a relationship refuses.
enum class RefusedRows {
    Raise, ///< the refusal is raised as its error and the statement changes nothing
    Drop   ///< refused rows are left out without a word; every other failure is still raised
};

/// An open database file. Several objects on one file share one connection of the process.
/// Copies are not made; recordsets keep the connection alive on their own.
class Database
{
public:
    Database(std::shared_ptr<Connection> connection, QString name, bool readOnly);
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;
    ~Database();

    /// Opens a recordset on a select statement, a table or a stored query, standing on its first
    /// row. Raises what the statement is refused for (3078, 3061, 3141 ...). Rows of one table,
    /// or of an updatable stored query, can be edited; without an order of its own the recordset
    /// comes in the order of the primary key.
    std::unique_ptr<Recordset> OpenRecordset(const QString& sqlOrName) const;
    /// Runs one insert, update or delete.
    void Execute(const QString& sql, RefusedRows refused = RefusedRows::Raise) const;
    /// Releases the file; later use raises 3420. Also done by the destructor.
    void Close();

    /// The path that the file was opened with.
    QString Name() const;
    /// The connect string of an ODBC source; "" for a file.
    QString Connect() const;

    /// While one stands, reads of this database share one read transaction, which makes many
    /// small reads several times faster. Keep it short: other programs cannot write meanwhile.
    class ReadScope
    {
    public:
        explicit ReadScope(std::shared_ptr<Connection> connection);
        ~ReadScope();
        ReadScope(const ReadScope&) = delete;
        ReadScope& operator=(const ReadScope&) = delete;

    private:
        std::shared_ptr<Connection> m_connection;
    };
    ReadScope readScope() const;

private:
    const std::shared_ptr<Connection>& connection() const;

    std::shared_ptr<Connection> m_connection;
    QString m_name;
    bool m_readOnly;
};

/// Opens databases.
class DBEngine
{
public:
    enum class Access { ReadWrite, ReadOnly };

    /// Opens a database file, shared, for reading and writing. Raises 3024 (no such file), 3044
    /// (no such folder), 3051 (cannot be written, unless opened read-only), 3343 (no database, or
    /// one made by a newer version of this program), 3260 (locked by another program).
    static Database OpenDatabase(const QString& path, Access access = Access::ReadWrite);
};

/// Copies a database file that may be in use to `to`, over any file that is there, in one step:
/// a program that holds the old file goes on with the old content, and a failure leaves the
/// target as it was. Raises `Error` (3024 no source, 3026 disk full, 3044, 3051 ...).
void copyDatabase(const QString& from, const QString& to);

} // namespace ostrand::store
