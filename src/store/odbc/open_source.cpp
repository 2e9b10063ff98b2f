// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/open_source.h"

#include "store/odbc/session.h"
#include "store/odbc/waiting.h"
#include "store/recordset.h"
#include "store/snapshot_source.h"

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {
namespace {

/// Ahead of this the driver has a chance to give up by itself, with words of its own.
constexpr std::chrono::seconds grace{5};

class ResultSource final : public SnapshotSource
{
public:
    explicit ResultSource(ResultSet result)
        : SnapshotSource(std::move(result.names)),
          m_meanings(std::move(result.meanings)),
          m_rows(std::move(result.rows))
    {
    }

    Meaning fieldMeaning(int index) override { return m_meanings[static_cast<std::size_t>(index)]; }

private:
    std::vector<Row> readRows() override { return std::move(m_rows); }

    std::vector<Meaning> m_meanings;
    std::vector<Row> m_rows;
};

/// The verb of a statement of the server's own language; nothing for another kind.
std::optional<sql::Verb> verbOf(const QString& statement)
{
    struct Entry
    {
        QStringView word;
        sql::Verb verb;
    };
    static constexpr std::array entries{Entry{u"SELECT", sql::Verb::Select},
                                        Entry{u"INSERT", sql::Verb::Insert},
                                        Entry{u"UPDATE", sql::Verb::Update},
                                        Entry{u"DELETE", sql::Verb::Delete}};
    const QStringView start = QStringView(statement).trimmed();
    for (const Entry& entry : entries) {
        const bool ends =
            start.size() <= entry.word.size() || !start[entry.word.size()].isLetterOrNumber();
        if (ends && start.startsWith(entry.word, Qt::CaseInsensitive))
            return entry.verb;
    }
    return std::nullopt;
}

class SourceBackend final : public Backend
{
public:
    SourceBackend(std::shared_ptr<Session> session, Patience patience, bool readOnly)
        : m_session(std::move(session)),
          m_name(m_session->databaseName()),
          m_connect(u"ODBC;"_s + m_session->connectText()),
          m_patience(patience),
          m_readOnly(readOnly)
    {
    }

    std::unique_ptr<Recordset> openRecordset(const QString& sqlOrName) override;
    void execute(const QString& sql, RefusedRows refused) override;
    void executePassThrough(const QString& sql) override;
    QString name() const override { return m_name; }
    QString connect() const override { return m_connect; }
    void beginRead() override {}
    void endRead() noexcept override {}

private:
    /// Gives the session a call and waits for its result. A server that stands still is given up
    /// for good: its connection is in the middle of something.
    template <typename Call>
    auto ask(Call call)
    {
        if (!m_session)
            throw stillStanding();
        auto result = resultWithin(m_patience.statement + grace,
                                   [session = m_session, call] { return call(*session); });
        if (!result) {
            m_session.reset();
            throw stillStanding();
        }
        return *std::move(result);
    }

    static Error stillStanding()
    {
        return {errors::odbcCallFailed, u"ODBC--call failed. The server does not answer."_s};
    }

    QString selectText(const QString& sqlOrName);
    void requireWritable() const;

    std::shared_ptr<Session> m_session;
    QString m_name;
    QString m_connect;
    Patience m_patience;
    bool m_readOnly;
};

/// A slip is found here and not by the server, so that it has the same number for every server.
sql::Verb checkedVerb(const QString& statement)
{
    return sql::translate(sql::tokenise(statement)).verb;
}

QString SourceBackend::selectText(const QString& sqlOrName)
{
    if (isSelect(sqlOrName)) {
        checkedVerb(sqlOrName);
        return sqlOrName;
    }
    const QString name = sqlOrName.trimmed();
    const auto table = ask([name](Session& session) { return session.table(name); });
    if (table)
        return u"select * from ["_s + *table + u"]"_s;
    if (sql::tokenise(sqlOrName).tokens.size() == 2) {
        throw Error(errors::tableNotFound,
                    u"The table or query '%1' was not found. Make sure that it exists and that its "
                    u"name is spelled correctly."_s.arg(name));
    }
    checkedVerb(sqlOrName);
    throw Error(errors::notSupported, u"The statement gives no records."_s);
}

std::unique_ptr<Recordset> SourceBackend::openRecordset(const QString& sqlOrName)
{
    const QString text = selectText(sqlOrName);
    ResultSet result = ask([text](Session& session) {
        return session.select(serverText(text, session.dialect(), session));
    });
    return std::make_unique<Recordset>(std::make_unique<ResultSource>(std::move(result)));
}

void SourceBackend::requireWritable() const
{
    if (m_readOnly)
        throw Error(errors::notUpdatable, u"The database was opened for reading only."_s);
}

void SourceBackend::execute(const QString& sql, RefusedRows /*refused*/)
{
    const sql::Verb verb = checkedVerb(sql);
    if (verb == sql::Verb::Select)
        throw Error(errors::cannotExecuteSelect, u"A select statement cannot be executed."_s);
    requireWritable();
    ask([sql, verb](Session& session) {
        session.run(serverText(sql, session.dialect(), session), verb);
        return true;
    });
}

void SourceBackend::executePassThrough(const QString& sql)
{
    const auto verb = verbOf(sql);
    if (verb == sql::Verb::Select)
        throw Error(errors::cannotExecuteSelect, u"A select statement cannot be executed."_s);
    requireWritable();
    ask([sql, verb](Session& session) {
        session.run(passThroughText(sql, session.dialect(), session), verb);
        return true;
    });
}

} // namespace

Patience& patience()
{
    static Patience patience;
    return patience;
}

std::shared_ptr<Backend>
openSource(const QString& name, int /*options*/, bool readOnly, const QString& connect)
{
    const Patience times = patience();
    const ConnectString asked(connect);
    auto session = resultWithin(times.login + grace, [asked, name, times] {
        return std::make_shared<Session>(asked, name, times);
    });
    if (!session) {
        throw Error(
            errors::odbcConnectionFailed,
            u"ODBC--connection to '%1' failed. The server does not answer."_s.arg(name.trimmed()));
    }
    return std::make_shared<SourceBackend>(*std::move(session), times, readOnly);
}

} // namespace ostrand::store::odbc
