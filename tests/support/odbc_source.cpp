// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "support/odbc_source.h"

#include "support/postgres_server.h"

#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

constexpr const char* sourcesVariable = "ODBCINI";

QString literal(const std::optional<QString>& text)
{
    return text ? u'\'' + QString(*text).replace(u'\'', "''"_L1) + u'\'' : u"NULL"_s;
}

QString rowText(const InstrumentRow& row)
{
    const QString count = row.count ? QString::number(*row.count) : u"NULL"_s;
    return u'(' + literal(row.function) + u", "_s + literal(row.tag) + u", "_s + count + u", "_s
           + literal(row.service) + u')';
}

} // namespace

OdbcSource::OdbcSource()
    : m_sourcesBefore(qgetenv(sourcesVariable))
{
    qputenv(sourcesVariable, QFile::encodeName(path(u"odbc.ini"_s)));
}

OdbcSource::~OdbcSource()
{
    if (m_sourcesBefore.isEmpty())
        qunsetenv(sourcesVariable);
    else
        qputenv(sourcesVariable, m_sourcesBefore);
}

void OdbcSource::writeSource(const QStringList& lines)
{
    QFile file(path(u"odbc.ini"_s));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.write("[P&ID_SQL_SERVER]\n" + lines.join(u'\n').toUtf8() + "\n");
}

void OdbcSource::makeInstrumentTable(const std::vector<InstrumentRow>& rows,
                                     const QStringList& furtherColumns)
{
    const QString table = u"\"PID_Components_Instruments\""_s;
    QString sql = u"DROP TABLE IF EXISTS "_s + table + u"; CREATE TABLE "_s + table
                  + u" (\"FUNCTION_\" varchar(50), \"TAG_\" varchar(50), \"ID_COUNT_\" integer,"
                    u" \"SERVICE_\" varchar(255)"_s;
    for (const QString& column : furtherColumns)
        sql += u", \""_s + column + u"\" text"_s;
    sql += u");"_s;
    for (const InstrumentRow& row : rows) {
        sql += u"INSERT INTO "_s + table
               + u" (\"FUNCTION_\", \"TAG_\", \"ID_COUNT_\", \"SERVICE_\") VALUES "_s + rowText(row)
               + u';';
    }
    run(sql);
}

QString OdbcSource::connectString(const QString& schema)
{
    return u"ODBC;DATABASE="_s + schema + u";DSN=P&ID_SQL_SERVER"_s;
}

SqliteOdbcSource::SqliteOdbcSource()
{
    writeSource({u"Driver=SQLite3"_s, u"Database="_s + file(), u"SyncPragma=OFF"_s});
    run(u"PRAGMA user_version = 1"_s); // the file is there
}

void SqliteOdbcSource::run(const QString& sql)
{
    sqlite3* raw = nullptr;
    sqlite3_open(file().toUtf8().constData(), &raw);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> connection(raw, &sqlite3_close);
    const QString statements = u"PRAGMA synchronous = OFF; "_s + sql;
    if (sqlite3_exec(raw, statements.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", qPrintable(sql), sqlite3_errmsg(raw));
}

std::unique_ptr<OdbcSource> makeOdbcSource(QLatin1StringView kind)
{
    if (kind == "sqlite"_L1)
        return std::make_unique<SqliteOdbcSource>();
    if (kind == "postgres"_L1) {
        auto server = std::make_unique<PostgresServer>();
        server->start();
        return server;
    }
    qFatal("there is no source of the kind %s", kind.data());
}

} // namespace ostrand::tests
