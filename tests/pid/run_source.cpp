// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/run_source.h"

#include "maker/sqlite_file.h"
#include "pid/connection.h"
#include "store/recordset.h"
#include "support/odbc_source.h"
#include "support/postgres_server.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

QString literal(const QString& text)
{
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

class FileSource final : public RunSource
{
public:
    FileSource() { reset(); }

    QString path() const override { return m_folder->filePath(u"plant pid.mdb"_s); }
    QString table() const override { return u"Components-Instruments"_s; }
    bool ignoresCase() const override { return true; }

    void run(const QString& sql) override
    {
        maker::SqliteFile file(path().toStdString());
        file.run(sql.toStdString(), "test");
    }

    void reset() override
    {
        m_folder = std::make_unique<QTemporaryDir>();
        if (!QFile::copy(QStringLiteral(OSTRAND_BIN_DIR "/Samples/HGC_PID.mdb"), path()))
            qFatal("the sample's P&ID database is missing");
        QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
        run(u"DROP TABLE \"Components-Instruments\"; CREATE TABLE \"Components-Instruments\" ("
            u"FUNCTION_ TEXT COLLATE JET, TAG_ TEXT COLLATE JET, SERVICE_ TEXT COLLATE JET,"
            u"MODEL_ TEXT COLLATE JET, REMARKS_ TEXT COLLATE JET, COUNT_ REAL,"
            u"MADE_ TEXT COLLATE JET, SAFE_ INT);"
            u"INSERT INTO \"~columns\" VALUES ('Components-Instruments', 'COUNT_', 'Double', NULL),"
            u"('Components-Instruments', 'MADE_', 'Date', NULL),"
            u"('Components-Instruments', 'SAFE_', 'Boolean', NULL)"_s);
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

class ServerSource final : public RunSource
{
public:
    explicit ServerSource(QLatin1StringView kind)
        : m_source(makeOdbcSource(kind))
    {
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly))
            qFatal("the configuration cannot be written");
        file.write("[Process Database]\r\nDatabaseType=SQL Server\r\nSchema=postgres\r\n");
        reset();
    }

    QString path() const override { return m_folder.filePath(u"Project.cfg"_s); }
    QString table() const override { return u"PID_Components_Instruments"_s; }
    bool ignoresCase() const override { return false; }
    void run(const QString& sql) override { m_source->run(sql); }

    void reset() override
    {
        if (std::exchange(m_isStopped, false))
            dynamic_cast<PostgresServer&>(*m_source).start();
        run(u"DROP TABLE IF EXISTS \"PID_Components_Instruments\";"
            u"CREATE TABLE \"PID_Components_Instruments\" ("
            u"\"FUNCTION_\" varchar(50), \"TAG_\" varchar(50), \"SERVICE_\" varchar(255),"
            u"\"MODEL_\" varchar(255), \"REMARKS_\" varchar(255), \"COUNT_\" double precision,"
            u"\"MADE_\" date, \"SAFE_\" boolean)"_s);
    }
    void stop() override
    {
        if (auto* server = dynamic_cast<PostgresServer*>(m_source.get())) {
            server->stop();
            m_isStopped = true;
        }
    }

private:
    bool m_isStopped = false;
    std::unique_ptr<OdbcSource> m_source;
    QTemporaryDir m_folder;
};

} // namespace

void RunSource::add(const QString& function,
                    const QString& tag,
                    const QMap<QString, QString>& texts)
{
    QString columns = u"\"FUNCTION_\", \"TAG_\""_s;
    QString values = literal(function) + u", "_s + literal(tag);
    for (auto each = texts.begin(); each != texts.end(); ++each) {
        columns += u", \""_s + each.key() + u'"';
        values += u", "_s + literal(*each);
    }
    run(u"INSERT INTO \""_s + table() + u"\" ("_s + columns + u") VALUES ("_s + values + u')');
}

QString RunSource::stored(const QString& function, const QString& tag, const QString& column) const
{
    const auto rows = pid::openPidDatabase(path()).OpenRecordset(
        u"select "_s + column + u" from ["_s + table() + u"] where FUNCTION_='"_s + function
        + u"' and TAG_='"_s + tag + u"'"_s);
    if (rows->Eof())
        return u"(none)"_s;
    const store::Value value = rows->Field(0);
    return value.isNull() ? u"(null)"_s : value.text();
}

std::unique_ptr<RunSource> makeRunSource(QLatin1StringView kind)
{
    if (kind == "file"_L1)
        return std::make_unique<FileSource>();
    return std::make_unique<ServerSource>(kind);
}

} // namespace ostrand::tests
