// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/database.h"

#include "store/connection.h"
#include "store/recordset.h"
#include "store/row_source.h"

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

QString selectAll(const QString& source)
{
    return u"select * from ["_s + source + u"]"_s;
}

bool isSelect(const QString& text)
{
    static const QString word = u"select"_s;
    const QStringView start = QStringView(text).trimmed();
    return start.size() > word.size() && !start[word.size()].isLetterOrNumber()
           && start.startsWith(word, Qt::CaseInsensitive);
}

/// The tokens of a select; a bare name of a table or stored query stands for all its rows.
sql::TokenList rowsStatement(Connection& connection, const QString& sqlOrName)
{
    if (isSelect(sqlOrName))
        return sql::tokenise(sqlOrName);
    if (const auto source = connection.findSource(sqlOrName.trimmed()))
        return sql::tokenise(selectAll(*source));
    sql::TokenList tokens = sql::tokenise(sqlOrName);
    if (tokens.tokens.size() == 2) {
        throw Error(errors::tableNotFound,
                    u"The table or query '%1' was not found. Make sure that it exists and that its "
                    u"name is spelled correctly."_s.arg(sqlOrName));
    }
    return tokens;
}

} // namespace

Database::Database(std::shared_ptr<Connection> connection, QString name, bool readOnly)
    : m_connection(std::move(connection)),
      m_name(std::move(name)),
      m_readOnly(readOnly)
{
}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;
Database::~Database() = default;

const std::shared_ptr<Connection>& Database::connection() const
{
    if (!m_connection)
        throw Error(errors::objectClosed, u"The database is closed."_s);
    return m_connection;
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& sqlOrName) const
{
    Connection& file = *connection();
    const sql::TokenList tokens = rowsStatement(file, sqlOrName);
    auto plan = file.plan(tokens);
    if (plan->statement.verb != sql::Verb::Select)
        throw Error(errors::notSupported, u"The statement gives no records."_s);
    if (plan->keyed) {
        return std::make_unique<Recordset>(
            makeKeyedSource(m_connection, plan->keyed, tokens.literals, m_readOnly));
    }
    return std::make_unique<Recordset>(
        makeFixedSource(m_connection, std::move(plan), tokens.literals));
}

void Database::Execute(const QString& sql, RefusedRows refused) const
{
    Connection& file = *connection();
    const sql::TokenList tokens = sql::tokenise(sql);
    const auto plan = file.plan(tokens);
    if (plan->statement.verb == sql::Verb::Select)
        throw Error(errors::cannotExecuteSelect, u"A select statement cannot be executed."_s);
    if (m_readOnly)
        throw Error(errors::notUpdatable, u"The database was opened for reading only."_s);
    PreparedStatement* statement = plan->prepared.get();
    const bool dropping = refused == RefusedRows::Drop && !plan->statement.sqlDropping.isEmpty();
    if (dropping) {
        if (!plan->preparedDropping) {
            plan->preparedDropping = std::make_unique<PreparedStatement>(
                file, plan->statement.sqlDropping, plan->statement.verb);
        }
        statement = plan->preparedDropping.get();
    }
    file.requireInPlace();
    const PreparedStatement::Reset reset(*statement);
    statement->bindAll(tokens.literals);
    try {
        while (statement->step()) {
        }
    } catch (const Error& error) {
        // A relationship refuses the whole statement, also where refused rows are to be dropped.
        if (!dropping || error.number() != errors::parentMissing)
            throw;
    }
}

void Database::Close()
{
    m_connection.reset();
}

QString Database::Name() const
{
    connection();
    return m_name;
}

QString Database::Connect() const
{
    connection();
    return {};
}

Database::ReadScope Database::readScope() const
{
    return ReadScope(connection());
}

Database::ReadScope::ReadScope(std::shared_ptr<Connection> connection)
    : m_connection(std::move(connection))
{
    m_connection->beginRead();
}

Database::ReadScope::~ReadScope()
{
    m_connection->endRead();
}

Database DBEngine::OpenDatabase(const QString& path, Access access)
{
    const bool readOnly = access == Access::ReadOnly;
    return {openConnection(path, readOnly), path, readOnly};
}

} // namespace ostrand::store
