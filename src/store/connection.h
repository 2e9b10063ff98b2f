// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/file_identity.h"
#include "store/sql/translate.h"
#include "store/value.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace ostrand::store {

class Connection;

/// A prepared statement of SQLite. It is stepped to its end and reset at once by whoever uses it:
/// a cursor left open would keep other connections from writing.
class PreparedStatement
{
public:
    /// Raises what SQLite refuses the text for, as an error of the statement's verb.
    PreparedStatement(Connection& connection, const QByteArray& sql, sql::Verb verb);
    /// A statement of our own, free of the restrictions on users' statements.
    PreparedStatement(Connection& connection, const QByteArray& sql);

    void bind(int parameter, const Value& value);
    void bindAll(const QStringList& texts);
    /// True while there is a row.
    bool step();
    void reset() noexcept;
    Value column(int index) const;
    qint64 integerColumn(int index) const { return sqlite3_column_int64(m_handle.get(), index); }
    int columnCount() const { return sqlite3_column_count(m_handle.get()); }
    sqlite3_stmt* handle() const { return m_handle.get(); }

    /// Resets a statement at the end of a scope, however it is left.
    class Reset
    {
    public:
        explicit Reset(PreparedStatement& statement)
            : m_statement(statement)
        {
        }
        ~Reset() { m_statement.reset(); }
        Reset(const Reset&) = delete;
        Reset& operator=(const Reset&) = delete;

    private:
        PreparedStatement& m_statement;
    };

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    void prepare(const QByteArray& sql);

    Connection* m_connection;
    sql::Verb m_verb = sql::Verb::Select;
    bool m_own = false;
    std::unique_ptr<sqlite3_stmt, Finalize> m_handle;
};

struct KeyedPlan;

/// What is kept of a statement text whose values are left out, so that the next statement of the
/// same form is neither translated nor prepared again.
struct Plan
{
    sql::Statement statement;
    std::unique_ptr<PreparedStatement> prepared;
    std::unique_ptr<PreparedStatement> preparedDropping;
    std::shared_ptr<KeyedPlan> keyed; ///< selects whose rows are kept by key
};

/// One open SQLite file, shared by all databases of the process that name the same file.
class Connection : public std::enable_shared_from_this<Connection>
{
public:
    /// Opens and configures the file; the checks of `OpenDatabase` have passed.
    Connection(const std::filesystem::path& path, const FileIdentity& identity, bool readOnly);
    ~Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    sqlite3* handle() const { return m_handle.get(); }
    const std::filesystem::path& path() const { return m_path; }
    bool isReadOnly() const { return m_readOnly; }

    /// The plan of a statement, from the cache or made new.
    std::shared_ptr<Plan> plan(const sql::TokenList& tokens);
    /// Finds the spelling of names in this file's schema, for translation.
    sql::NameResolver nameResolver()
    {
        return [this](const QString& name) { return resolveName(name); };
    }
    /// Runs a statement of our own that gives no rows.
    void run(const char* sql);

    /// While one stands, statements may do more than users' statements may.
    class OwnScope
    {
    public:
        explicit OwnScope(Connection& connection)
            : m_depth(connection.m_ownStatements)
        {
            ++m_depth;
        }
        ~OwnScope() { --m_depth; }
        OwnScope(const OwnScope&) = delete;
        OwnScope& operator=(const OwnScope&) = delete;

    private:
        int& m_depth;
    };

    /// The spelling that a table or stored query has in the schema; nothing when there is none.
    std::optional<QString> findSource(const QString& name);
    bool isView(const QString& source);

    /// Raises 3024 when the file is no longer where it was opened: what were written now would go
    /// into a file that nobody finds again. To be called ahead of each change.
    void requireInPlace() const;

    /// Moves with every row changed through this connection, and with changes of other programs
    /// once they were noticed.
    qint64 changeStamp() const
    {
        return sqlite3_total_changes64(m_handle.get()) + m_foreignChanges;
    }
    /// Looks whether another program changed the file since the last look.
    void noticeForeignChanges();
    /// The row last inserted into a table, triggers of stored queries included.
    std::optional<qint64> lastInserted(const QByteArray& table) const;
    void forgetInserted() { m_insertedTable.clear(); }

    void beginRead();
    void endRead() noexcept;
    void beginWrite();
    /// Raises what the file refuses the changes for; they are all undone then.
    void commitWrite();

private:
    struct Close
    {
        void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
    };

    void configure();
    void checkVersion();
    QString resolveName(const QString& name);
    static int
    authorize(void* self, int action, const char* a, const char* b, const char* c, const char* d);
    static void
    updated(void* self, int action, const char* database, const char* table, sqlite3_int64 row);

    std::filesystem::path m_path;
    FileIdentity m_identity;
    std::unique_ptr<sqlite3, Close> m_handle;
    bool m_readOnly = false;
    int m_ownStatements = 0;
    int m_readDepth = 0;
    int m_writeDepth = 0;
    qint64 m_dataVersion = 0;
    qint64 m_foreignChanges = 0;
    bool m_inRead = false;
    QByteArray m_insertedTable;
    qint64 m_insertedRow = 0;
    // Statements must be finalized before the connection closes.
    std::unique_ptr<PreparedStatement> m_dataVersionQuery;
    QHash<QString, std::shared_ptr<Plan>> m_plans;
};

/// The connection of a file: the one that the process has, or a new one. Raises as
/// `DBEngine::OpenDatabase` tells.
std::shared_ptr<Connection> openConnection(const QString& path, bool readOnly);

/// Raises SQLite's failure as our error; `verb` decides what a syntax error is called.
[[noreturn]] void
raiseSqliteError(sqlite3* connection, int code, std::optional<sql::Verb> verb = std::nullopt);

std::filesystem::path toPath(const QString& path);

} // namespace ostrand::store
