// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/odbc/connect_string.h"
#include "store/odbc/diagnosis.h"
#include "store/odbc/handles.h"
#include "store/odbc/result_set.h"
#include "store/odbc/server_text.h"

#include <QHash>

#include <chrono>

namespace ostrand::store::odbc {

/// How long the program waits for a server, in whole seconds.
struct Patience
{
    std::chrono::seconds login{20};
    std::chrono::seconds statement{60};
};

/// One connection to a data source. Its calls wait for the server; one thread at a time may make
/// them.
class Session final : public NameBook
{
public:
    /// Connects. Raises 3151, 3059 or 3146.
    Session(const ConnectString& asked, const QString& sourceName, Patience patience);
    ~Session() override;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Both raise as `callError` tells.
    ResultSet select(const QString& statement);
    void run(const QString& statement, std::optional<sql::Verb> verb);

    const ServerDialect& dialect() const { return m_dialect; }
    /// The connect string as the driver completed it.
    const QString& connectText() const { return m_connectText; }
    const QString& databaseName() const { return m_databaseName; }

    std::optional<QString> table(const QString& name) override;
    QStringList columns(const QString& table) override;

private:
    struct Disconnect
    {
        void operator()(SQLHDBC connection) const { SQLDisconnect(connection); }
    };

    void connect(const ConnectString& asked, const QString& shownName, Patience patience);
    void useDatabase(const QString& database, const QString& shownName);
    void learnAboutServer(const QString& sourceName);
    QString information(SQLUSMALLINT which) const;
    Handle<SQL_HANDLE_STMT> execute(const QString& statement, std::optional<sql::Verb> verb);
    Error failure(const Diagnosis& diagnosis, std::optional<sql::Verb> verb) const;
    QStringList readTables();

    QStringList m_secrets;
    Patience m_patience;
    Handle<SQL_HANDLE_ENV> m_environment;
    Handle<SQL_HANDLE_DBC> m_connection;
    std::unique_ptr<void, Disconnect> m_connected; ///< the connection, while it is connected
    QString m_connectText;
    QString m_databaseName;
    ServerDialect m_dialect;
    QStringList m_tables;
    QHash<QString, QStringList> m_columns;
};

} // namespace ostrand::store::odbc
