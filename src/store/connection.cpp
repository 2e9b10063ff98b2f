// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/connection.h"

#include "store/collation.h"
#include "store/functions.h"
#include "store/keyed_plan.h"

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

constexpr int busyTimeoutMs = 2000;
constexpr qsizetype cachedPlans = 400;
constexpr qint64 projectApplicationId = 0x4F535452; // "OSTR"
constexpr qint64 newestVersion = 1;

sqlite3* openHandle(const std::filesystem::path& path, bool readOnly)
{
    const int flags = (readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE)
                      | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
    sqlite3* handle = nullptr;
    const auto utf8 = path.u8string();
    const auto bytes =
        QByteArray(reinterpret_cast<const char*>(utf8.data()), static_cast<qsizetype>(utf8.size()));
    const int code = sqlite3_open_v2(bytes.constData(), &handle, flags, nullptr);
    if (code == SQLITE_OK)
        return handle;
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)> closer(handle, &sqlite3_close_v2);
    raiseSqliteError(handle, code);
}

} // namespace

Connection::Connection(const std::filesystem::path& path,
                       const FileIdentity& identity,
                       bool readOnly)
    : m_path(std::filesystem::absolute(path)),
      m_identity(identity),
      m_handle(openHandle(path, readOnly)),
      m_readOnly(readOnly)
{
    configure();
    checkVersion();
}

void Connection::configure()
{
    sqlite3* db = m_handle.get();
    sqlite3_busy_timeout(db, busyTimeoutMs);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    registerCollation(db);
    registerFunctions(db);
    sqlite3_set_authorizer(db, &Connection::authorize, this);
    sqlite3_update_hook(db, &Connection::updated, this);
    run("PRAGMA foreign_keys = ON");
    run("PRAGMA synchronous = FULL");
    run("PRAGMA cell_size_check = ON");
}

void Connection::checkVersion()
{
    PreparedStatement idStatement(*this, "PRAGMA application_id");
    idStatement.step();
    const bool isProject = idStatement.integerColumn(0) == projectApplicationId;
    idStatement.reset();
    if (!isProject)
        return;
    PreparedStatement versionStatement(*this, "PRAGMA user_version");
    versionStatement.step();
    const qint64 version = versionStatement.integerColumn(0);
    versionStatement.reset();
    if (version > newestVersion) {
        throw Error(errors::unrecognizedFormat,
                    u"The file was made by a newer version of this program (file format %1; this "
                    u"version reads up to %2)."_s.arg(version)
                        .arg(newestVersion));
    }
    // A project is one file that people copy: no write-ahead log beside it.
    if (!m_readOnly)
        run("PRAGMA journal_mode = DELETE");
}

void Connection::run(const char* sql)
{
    PreparedStatement statement(*this, sql);
    const PreparedStatement::Reset reset(statement);
    while (statement.step()) {
    }
}

std::shared_ptr<Plan> Connection::plan(const sql::TokenList& tokens)
{
    if (const auto found = m_plans.constFind(tokens.skeleton); found != m_plans.cend())
        return *found;
    auto plan = std::make_shared<Plan>();
    plan->statement = sql::translate(tokens, nameResolver());
    if (plan->statement.keyed)
        plan->keyed = makeKeyedPlan(*this, *plan->statement.keyed, tokens.literals.size());
    if (!plan->keyed) {
        plan->prepared =
            std::make_unique<PreparedStatement>(*this, plan->statement.sql, plan->statement.verb);
    }
    if (m_plans.size() >= cachedPlans)
        m_plans.clear();
    m_plans.insert(tokens.skeleton, plan);
    return plan;
}

std::optional<QString> Connection::findSource(const QString& name)
{
    PreparedStatement statement(*this,
                                "SELECT name FROM sqlite_schema WHERE type IN ('table','view') "
                                "AND name = ?1 COLLATE JET");
    const PreparedStatement::Reset reset(statement);
    statement.bind(1, name);
    if (!statement.step())
        return std::nullopt;
    return statement.column(0).text();
}

bool Connection::isView(const QString& source)
{
    PreparedStatement statement(
        *this, "SELECT 1 FROM sqlite_schema WHERE type = 'view' AND name = ?1 COLLATE JET");
    const PreparedStatement::Reset reset(statement);
    statement.bind(1, source);
    return statement.step();
}

QString Connection::resolveName(const QString& name)
{
    PreparedStatement statement(
        *this,
        "SELECT name FROM sqlite_schema WHERE name = ?1 COLLATE JET UNION ALL "
        "SELECT c.name FROM sqlite_schema s, pragma_table_info(s.name) c "
        "WHERE s.type IN ('table','view') AND c.name = ?1 COLLATE JET LIMIT 1");
    const PreparedStatement::Reset reset(statement);
    statement.bind(1, name);
    return statement.step() ? statement.column(0).text() : name;
}

void Connection::requireInPlace() const
{
    if (identityOf(m_path) != m_identity) {
        throw Error(errors::fileNotFound,
                    u"The database file has been moved, deleted or replaced."_s);
    }
}

std::optional<qint64> Connection::lastInserted(const QByteArray& table) const
{
    if (m_insertedTable.compare(table, Qt::CaseInsensitive) != 0)
        return std::nullopt;
    return m_insertedRow;
}

void Connection::beginRead()
{
    if (m_readDepth++ > 0)
        return;
    try {
        m_inRead = sqlite3_get_autocommit(m_handle.get()) != 0;
        if (m_inRead)
            run("BEGIN");
        noticeForeignChanges();
    } catch (...) {
        // A lock of another program must not leave a transaction open behind it.
        endRead();
        throw;
    }
}

void Connection::noticeForeignChanges()
{
    if (!m_dataVersionQuery)
        m_dataVersionQuery = std::make_unique<PreparedStatement>(*this, "PRAGMA data_version");
    const PreparedStatement::Reset reset(*m_dataVersionQuery);
    m_dataVersionQuery->step();
    const qint64 version = m_dataVersionQuery->integerColumn(0);
    if (version == m_dataVersion)
        return;
    m_dataVersion = version;
    ++m_foreignChanges;
}

void Connection::endRead() noexcept
{
    if (--m_readDepth > 0 || !m_inRead)
        return;
    m_inRead = false;
    const OwnScope own(*this);
    if (sqlite3_exec(m_handle.get(), "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
        sqlite3_exec(m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Connection::beginWrite()
{
    if (m_writeDepth == 0)
        run("BEGIN IMMEDIATE");
    ++m_writeDepth;
}

void Connection::commitWrite()
{
    if (--m_writeDepth > 0)
        return;
    if (sqlite3_get_autocommit(m_handle.get()) != 0) {
        throw Error(errors::diskError,
                    u"The changes were undone when the file could not be written."_s);
    }
    try {
        run("COMMIT");
    } catch (...) {
        const OwnScope own(*this);
        sqlite3_exec(m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

/// Users' statements read and change rows; nothing else passes, whatever the text says.
int Connection::authorize(void* self,
                          int action,
                          const char* /*a*/,
                          const char* /*b*/,
                          const char* /*c*/,
                          const char* /*d*/)
{
    if (static_cast<Connection*>(self)->m_ownStatements > 0)
        return SQLITE_OK;
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
        return SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

void Connection::updated(
    void* self, int action, const char* /*database*/, const char* table, sqlite3_int64 row)
{
    if (action != SQLITE_INSERT)
        return;
    auto* connection = static_cast<Connection*>(self);
    connection->m_insertedTable = table;
    connection->m_insertedRow = row;
}

} // namespace ostrand::store
