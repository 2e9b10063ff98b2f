// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// A database that is a file.
#include "store/backend.h"
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

class FileBackend final : public Backend
{
public:
    FileBackend(std::shared_ptr<Connection> connection, QString path, bool readOnly)
        : m_connection(std::move(connection)),
          m_path(std::move(path)),
          m_readOnly(readOnly)
    {
    }

    std::unique_ptr<Recordset> openRecordset(const QString& sqlOrName) override;
    std::unique_ptr<Recordset> openSnapshot(const QString& select) override;
    void execute(const QString& sql, RefusedRows refused) override;
    void executePassThrough(const QString& sql) override { execute(sql, RefusedRows::Raise); }
    QString name() const override { return m_path; }
    QString connect() const override { return {}; }
    void beginRead() override { m_connection->beginRead(); }
    void endRead() noexcept override { m_connection->endRead(); }
    void beginWrite() override { m_connection->beginWrite(); }
    void commitWrite() override { m_connection->commitWrite(); }

private:
    std::shared_ptr<Plan> planOf(const sql::TokenList& select) const;

    std::shared_ptr<Connection> m_connection;
    QString m_path;
    bool m_readOnly;
};

std::shared_ptr<Plan> FileBackend::planOf(const sql::TokenList& select) const
{
    auto plan = m_connection->plan(select);
    if (plan->statement.verb != sql::Verb::Select)
        throw Error(errors::notSupported, u"The statement gives no records."_s);
    return plan;
}

std::unique_ptr<Recordset> FileBackend::openSnapshot(const QString& select)
{
    const sql::TokenList tokens = sql::tokenise(select);
    auto plan = planOf(tokens);
    if (!plan->prepared) {
        plan->prepared = std::make_unique<PreparedStatement>(
            *m_connection, plan->statement.sql, plan->statement.verb);
    }
    return std::make_unique<Recordset>(
        makeFixedSource(m_connection, std::move(plan), tokens.literals));
}

std::unique_ptr<Recordset> FileBackend::openRecordset(const QString& sqlOrName)
{
    const sql::TokenList tokens = rowsStatement(*m_connection, sqlOrName);
    auto plan = planOf(tokens);
    if (plan->keyed) {
        return std::make_unique<Recordset>(
            makeKeyedSource(m_connection, plan->keyed, tokens.literals, m_readOnly));
    }
    return std::make_unique<Recordset>(
        makeFixedSource(m_connection, std::move(plan), tokens.literals));
}

void FileBackend::execute(const QString& sql, RefusedRows refused)
{
    Connection& file = *m_connection;
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

} // namespace

bool isSelect(const QString& text)
{
    static const QString word = u"select"_s;
    const QStringView start = QStringView(text).trimmed();
    return start.size() > word.size() && !start[word.size()].isLetterOrNumber()
           && start.startsWith(word, Qt::CaseInsensitive);
}

std::shared_ptr<Backend> openFileBackend(const QString& path, bool readOnly)
{
    return std::make_shared<FileBackend>(openConnection(path, readOnly), path, readOnly);
}

} // namespace ostrand::store
