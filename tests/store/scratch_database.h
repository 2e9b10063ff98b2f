// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/collation.h"
#include "store/database.h"
#include "store/functions.h"
#include "store/recordset.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sqlite3.h>

namespace ostrand::tests {

/// A small database file with a keyed table, a table without a key, and a stored query over both.
class ScratchDatabase
{
public:
    QString path(const QString& name = QStringLiteral("data.mdb")) const
    {
        return m_folder.filePath(name);
    }

    /// Runs statements on the file through SQLite itself, as another program would.
    void run(const char* sql, const QString& name = QStringLiteral("data.mdb")) const
    {
        sqlite3* raw = nullptr;
        sqlite3_open(path(name).toUtf8().constData(), &raw);
        store::registerCollation(raw);
        store::registerFunctions(raw);
        char* message = nullptr;
        if (sqlite3_exec(raw, sql, nullptr, nullptr, &message) != SQLITE_OK)
            qFatal("%s: %s", sql, message);
        sqlite3_close(raw);
    }

    /// Instruments PT-1 to PT-<count>, each with its number as a service.
    void fill(int count) const
    {
        run("CREATE TABLE item (tag TEXT COLLATE JET NOT NULL PRIMARY KEY"
            " CHECK (length(tag) > 0) CHECK (length(tag) <= 20),"
            " service TEXT COLLATE JET CHECK (length(service) <= 255), size INTEGER) STRICT;"
            "CREATE TABLE tie (tag TEXT COLLATE JET, doc TEXT COLLATE JET REFERENCES paper"
            " ON UPDATE CASCADE ON DELETE CASCADE) STRICT;"
            "CREATE TABLE paper (doc TEXT COLLATE JET NOT NULL PRIMARY KEY,"
            " title TEXT COLLATE JET) STRICT;"
            "CREATE VIEW qryItem AS SELECT tag AS Tag, service AS Service, size AS Size,"
            " rowid AS \"~key\" FROM item;"
            "CREATE TRIGGER qi INSTEAD OF INSERT ON qryItem BEGIN"
            " INSERT INTO item VALUES (NEW.Tag, NEW.Service, NEW.Size); END;"
            "CREATE TRIGGER qu INSTEAD OF UPDATE ON qryItem BEGIN UPDATE item SET tag = NEW.Tag,"
            " service = NEW.Service, size = NEW.Size WHERE rowid = OLD.\"~key\"; END;"
            "CREATE TRIGGER qd INSTEAD OF DELETE ON qryItem BEGIN"
            " DELETE FROM item WHERE rowid = OLD.\"~key\"; END;");
        QByteArray rows = "BEGIN;";
        for (int i = count; i >= 1; --i) {
            const QByteArray number = QByteArray::number(i);
            rows += "INSERT INTO item VALUES ('PT-" + number.rightJustified(5, '0') + "', 'service "
                    + number + "', " + number + ");";
        }
        rows += "COMMIT;";
        run(rows.constData());
    }

    store::Database open() const { return store::DBEngine::OpenDatabase(path()); }

private:
    QTemporaryDir m_folder;
};

/// The number of the error that an action raises; 0 for none.
template <typename Action>
int errorOf(Action action)
{
    try {
        action();
    } catch (const store::Error& error) {
        return error.number();
    }
    return 0;
}

} // namespace ostrand::tests
