// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/odbc_source.h"

#include <QProcess>

namespace ostrand::tests {

/// A PostgreSQL server of the test's own on the loopback address, with its data in a scratch
/// folder; the data source leads to its database "plant". It ends with the test, however that ends.
class PostgresServer final : public OdbcSource
{
public:
    /// Makes the database folder; the server does not run yet.
    PostgresServer();
    ~PostgresServer() override;

    void start();
    /// Ends the server at once; connections break. It can be started again on the same port.
    void stop();
    /// Stands still, connections open, until `resume`, `stop` or the end.
    void freeze();
    void resume();

    void run(const QString& sql) override;
    int port() const { return m_port; }

private:
    void asServerUser(QProcess& process) const;
    void signalAll(int signal) const;

    int m_port;
    QString m_programs; ///< folder
    QTemporaryDir m_data;
    QProcess m_server;
};

} // namespace ostrand::tests
