// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "store/value.h"

#include <QString>

#include <memory>

namespace ostrand::store {

class Backend;
class Recordset;

/// What `Database::Execute` does with rows that a key, a rule or a relationship refuses.
enum class RefusedRows {
    Raise, ///< the refusal is raised as its error and the statement changes nothing
    Drop   ///< refused rows are left out without a word; every other failure is still raised
};

/// An open database: a file, or a server behind an ODBC data source. Several objects on one file
/// share one connection of the process; each object on a data source has its own. Copies are not
/// made; recordsets keep the connection alive on their own.
class Database
{
public:
    explicit Database(std::shared_ptr<Backend> backend);
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;
    ~Database();

    /// Opens a recordset on a select statement, a table or a stored query, standing on its first
    /// row. Raises what the statement is refused for (3078, 3061, 3141 ...). Rows of one table,
    /// or of an updatable stored query, can be edited; without an order of its own the recordset
    /// comes in the order of the primary key. On a data source the rows are read at once and
    /// cannot be edited.
    std::unique_ptr<Recordset> OpenRecordset(const QString& sqlOrName) const;
    /// The rows of a select that names its fields, read at once and not to be changed: several
    /// times faster where all rows are read. Raises as `OpenRecordset` does.
    std::unique_ptr<Recordset> OpenSnapshot(const QString& select) const;
    /// Runs one insert, update or delete.
    void Execute(const QString& sql, RefusedRows refused = RefusedRows::Raise) const;
    /// Runs a statement of the server's own language: its names are quoted as the server wants
    /// them, and nothing else is translated. On a file it is `Execute`.
    void ExecutePassThrough(const QString& sql) const;
    /// Releases the file; later use raises 3420. Also done by the destructor.
    void Close();

    /// The path that the file was opened with; the name of a data source's database as the server
    /// tells it, or else the data source's own.
    QString Name() const;
    /// The connect string of a data source as the driver completed it, with "ODBC;" in front; ""
    /// for a file.
    QString Connect() const;

    /// While one stands, reads of this database share one read transaction, which makes many
    /// small reads several times faster. Keep it short: other programs cannot write meanwhile.
    class ReadScope
    {
    public:
        explicit ReadScope(std::shared_ptr<Backend> backend);
        ~ReadScope();
        ReadScope(const ReadScope&) = delete;
        ReadScope& operator=(const ReadScope&) = delete;

    private:
        std::shared_ptr<Backend> m_backend;
    };
    ReadScope readScope() const;

    /// While one stands, changes of this database reach the file in one piece, which makes many
    /// small ones much faster: all when it ends, whatever happened in between, or none when the
    /// file fails. Other programs cannot write meanwhile, and no `ReadScope` may stand when it
    /// begins. On a data source each change stays on its own.
    class WriteScope
    {
    public:
        /// Raises 3260 where another program is writing.
        explicit WriteScope(std::shared_ptr<Backend> backend);
        ~WriteScope();
        WriteScope(const WriteScope&) = delete;
        WriteScope& operator=(const WriteScope&) = delete;

        /// Ends the scope. Raises what the file fails with; nothing was written then.
        void Commit();

    private:
        std::shared_ptr<Backend> m_backend;
    };
    WriteScope writeScope() const;

private:
    const std::shared_ptr<Backend>& backend() const;

    std::shared_ptr<Backend> m_backend;
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
    /// Connects to an ODBC data source. `name` is the data source's where the connect string
    /// ("ODBC;KEY=value;...") names none; option 1 asks for no login window, and none is ever
    /// shown. Raises 3151 (no connection), 3059 (the login was cancelled), 3146 (any other failure
    /// of the driver).
    static Database
    OpenDatabase(const QString& name, int options, bool readOnly, const QString& connect);
};

/// Copies a database file that may be in use to `to`, over any file that is there, in one step:
/// a program that holds the old file goes on with the old content, and a failure leaves the
/// target as it was. Raises `Error` (3024 no source, 3026 disk full, 3044, 3051 ...).
void copyDatabase(const QString& from, const QString& to);

} // namespace ostrand::store
