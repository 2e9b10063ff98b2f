// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <vector>

namespace ostrand::tests {

/// One row of the table `PID_Components_Instruments`; nothing stands for Null.
struct InstrumentRow
{
    std::optional<QString> function; ///< FUNCTION_
    std::optional<QString> tag;      ///< TAG_
    std::optional<int> count;        ///< ID_COUNT_
    std::optional<QString> service;  ///< SERVICE_
};

/// The ODBC data source "P&ID_SQL_SERVER" of this process, as long as it stands. The driver manager
/// keeps for a while which driver a data source has, so a process uses sources of one kind only.
class OdbcSource
{
public:
    virtual ~OdbcSource();
    OdbcSource(const OdbcSource&) = delete;
    OdbcSource& operator=(const OdbcSource&) = delete;

    /// Runs statements of the server's own language, apart from any data source.
    virtual void run(const QString& sql) = 0;
    /// Makes `PID_Components_Instruments` anew, with further text columns where they are named.
    void makeInstrumentTable(const std::vector<InstrumentRow>& rows,
                             const QStringList& furtherColumns = {});

    /// The connect string that the program uses for the schema.
    static QString connectString(const QString& schema = QStringLiteral("PLANT"));

protected:
    OdbcSource();
    /// Writes the data source into a file of this process's own. Lines "Key=value".
    void writeSource(const QStringList& lines);
    QString path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    QByteArray m_sourcesBefore;
};

/// A database file of SQLite, reached through its ODBC driver.
class SqliteOdbcSource final : public OdbcSource
{
public:
    SqliteOdbcSource();

    void run(const QString& sql) override;
    /// The file, named "plant.db".
    QString file() const { return path(QStringLiteral("plant.db")); }
};

/// The kind "sqlite" or "postgres", which is started.
std::unique_ptr<OdbcSource> makeOdbcSource(QLatin1StringView kind);

} // namespace ostrand::tests
