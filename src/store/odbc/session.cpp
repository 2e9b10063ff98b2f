// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/session.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {
namespace {

Handle<SQL_HANDLE_ENV> makeEnvironment()
{
    auto environment = makeHandle<SQL_HANDLE_ENV>(SQL_NULL_HANDLE);
    SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, driverNumber(SQL_OV_ODBC3), 0);
    return environment;
}

/// What messages call a data source.
QString shownName(const ConnectString& connect, const QString& name)
{
    const QStringList candidates{
        connect.value(u"DSN"), name.trimmed(), connect.value(u"SERVER"), connect.value(u"DRIVER")};
    for (const QString& candidate : candidates) {
        if (!candidate.isEmpty())
            return candidate;
    }
    return {};
}

Error connectionError(const QString& name, const QString& words)
{
    return {errors::odbcConnectionFailed,
            u"ODBC--connection to '%1' failed. %2"_s.arg(name, words).trimmed()};
}

/// What drivers are asked to connect with. A source that was set up names its own database, and
/// the meaning of DATABASE is each driver's own: one makes a new file of that name.
ConnectString forDriver(ConnectString asked, const QString& sourceName)
{
    if (asked.value(u"DSN").isEmpty()) {
        asked.remove(u"DSN");
        const bool namesSource =
            !asked.value(u"DRIVER").isEmpty() || !asked.value(u"FILEDSN").isEmpty();
        if (!namesSource)
            asked.set(u"DSN"_s, sourceName.trimmed());
    }
    if (!asked.value(u"DSN").isEmpty())
        asked.remove(u"DATABASE");
    return asked;
}

} // namespace

Session::Session(const ConnectString& asked, const QString& sourceName, Patience patience)
    : m_secrets(asked.secrets()),
      m_patience(patience),
      m_environment(makeEnvironment()),
      m_connection(makeHandle<SQL_HANDLE_DBC>(m_environment.get()))
{
    const QString shown = shownName(asked, sourceName);
    connect(forDriver(asked, sourceName), shown, patience);
    learnAboutServer(shown);
    if (!asked.value(u"DSN").isEmpty() && m_dialect.patterns == PatternForm::LikeClasses)
        useDatabase(asked.value(u"DATABASE"), shown);
}

Session::~Session() = default;

void Session::connect(const ConnectString& asked, const QString& shown, Patience patience)
{
    constexpr SQLSMALLINT longest = 8192;
    SQLHDBC connection = m_connection.get();
    // A driver that cannot keep to a time is watched by the caller all the same.
    SQLSetConnectAttr(connection,
                      SQL_ATTR_LOGIN_TIMEOUT,
                      driverNumber(static_cast<quintptr>(patience.login.count())),
                      0);
    const QString text = asked.text();
    std::array<SQLWCHAR, longest> completed{};
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLDriverConnectW(connection,
                                             nullptr,
                                             driverText(text),
                                             SQL_NTS,
                                             completed.data(),
                                             longest,
                                             &length,
                                             SQL_DRIVER_NOPROMPT);
    if (code == SQL_NO_DATA)
        throw Error(errors::loginCancelled, u"The login was cancelled by the user."_s);
    if (!SQL_SUCCEEDED(code)) {
        const QString words = diagnose(SQL_HANDLE_DBC, connection).words;
        throw connectionError(shown, withoutSecrets(words, m_secrets));
    }
    m_connected.reset(connection);
    m_connectText = QString::fromUtf16(reinterpret_cast<const char16_t*>(completed.data()));
    if (m_connectText.isEmpty())
        m_connectText = text;
}

void Session::useDatabase(const QString& database, const QString& shown)
{
    if (database.isEmpty())
        return;
    const SQLRETURN code = SQLSetConnectAttrW(
        m_connection.get(), SQL_ATTR_CURRENT_CATALOG, driverText(database), SQL_NTS);
    if (!SQL_SUCCEEDED(code)) {
        const QString words = diagnose(SQL_HANDLE_DBC, m_connection.get()).words;
        throw connectionError(shown, withoutSecrets(words, m_secrets));
    }
    ConnectString completed(m_connectText);
    completed.set(u"DATABASE"_s, database);
    m_connectText = completed.text();
    m_databaseName = database;
}

QString Session::information(SQLUSMALLINT which) const
{
    std::array<SQLWCHAR, 1024> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN code =
        SQLGetInfoW(m_connection.get(), which, text.data(), sizeof text, &length);
    return SQL_SUCCEEDED(code) ? QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()))
                               : QString();
}

void Session::learnAboutServer(const QString& sourceName)
{
    const QString product = information(SQL_DBMS_NAME);
    const bool isSqlite = product.contains("SQLite"_L1, Qt::CaseInsensitive);
    const bool isSqlServer = product.contains("SQL Server"_L1, Qt::CaseInsensitive);
    m_dialect.keepsBrackets = isSqlite || isSqlServer;
    m_dialect.quote = information(SQL_IDENTIFIER_QUOTE_CHAR).trimmed();
    m_dialect.joiner = isSqlServer ? u"+"_s : u"||"_s;
    if (isSqlServer)
        m_dialect.patterns = PatternForm::LikeClasses;
    else if (isSqlite)
        m_dialect.patterns = PatternForm::Glob;
    else if (product.contains("PostgreSQL"_L1, Qt::CaseInsensitive))
        m_dialect.patterns = PatternForm::SimilarTo;

    m_databaseName = information(SQL_DATABASE_NAME);
    if (isSqlite) // its databases are files
        m_databaseName = QFileInfo(m_databaseName).completeBaseName();
    if (m_databaseName.isEmpty())
        m_databaseName = ConnectString(m_connectText).value(u"DATABASE");
    if (m_databaseName.isEmpty())
        m_databaseName = sourceName;
}

Error Session::failure(const Diagnosis& diagnosis, std::optional<sql::Verb> verb) const
{
    return callError({diagnosis.state, withoutSecrets(diagnosis.words, m_secrets)}, verb);
}

Handle<SQL_HANDLE_STMT> Session::execute(const QString& statement, std::optional<sql::Verb> verb)
{
    auto handle = makeHandle<SQL_HANDLE_STMT>(m_connection.get());
    SQLSetStmtAttr(handle.get(),
                   SQL_ATTR_QUERY_TIMEOUT,
                   driverNumber(static_cast<quintptr>(m_patience.statement.count())),
                   0);
    const SQLRETURN code = SQLExecDirectW(
        handle.get(), driverText(statement), static_cast<SQLINTEGER>(statement.size()));
    // A statement that found no row to change says so, which is no failure.
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
        throw failure(diagnose(SQL_HANDLE_STMT, handle.get()), verb);
    return handle;
}

ResultSet Session::select(const QString& statement)
{
    const auto handle = execute(statement, sql::Verb::Select);
    return readAll(handle.get());
}

void Session::run(const QString& statement, std::optional<sql::Verb> verb)
{
    execute(statement, verb);
}

QStringList Session::readTables()
{
    const QString types = u"TABLE,VIEW"_s;
    const auto handle = makeHandle<SQL_HANDLE_STMT>(m_connection.get());
    const SQLRETURN code =
        SQLTablesW(handle.get(), nullptr, 0, nullptr, 0, nullptr, 0, driverText(types), SQL_NTS);
    if (!SQL_SUCCEEDED(code))
        throw failure(diagnose(SQL_HANDLE_STMT, handle.get()), std::nullopt);
    constexpr std::size_t nameColumn = 2;
    QStringList tables;
    for (const Row& row : readAll(handle.get()).rows)
        tables << row.at(nameColumn).text();
    return tables;
}

std::optional<QString> Session::table(const QString& name)
{
    if (auto known = spellingIn(m_tables, name))
        return known;
    m_tables = readTables(); // it may have been made meanwhile
    return spellingIn(m_tables, name);
}

QStringList Session::columns(const QString& table)
{
    if (const auto known = m_columns.constFind(table); known != m_columns.constEnd())
        return *known;
    const QString& quote = m_dialect.quote;
    const QString name = quote + QString(table).replace(quote, quote + quote) + quote;
    const auto handle = execute(u"SELECT * FROM "_s + name + u" WHERE 1 = 0"_s, sql::Verb::Select);
    return *m_columns.insert(table, columnNames(handle.get()));
}

} // namespace ostrand::store::odbc
