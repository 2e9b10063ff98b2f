// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/update_main_db.h"

#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "store/quoting.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"
#include "toolkit/prompts.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::pid {
MainDbUpdate::~MainDbUpdate()
{
    endPiece();
}

void MainDbUpdate::updateMainDB(const MapEntry& entry,
                                const QString& value,
                                const QString& lookup,
                                const QString& datasheetType)
{
    try {
        pass(entry, value, lookup, datasheetType);
    } catch (...) {
        failed(datasheets::currentFailure());
    }
}

void MainDbUpdate::pass(const MapEntry& entry,
                        const QString& value,
                        const QString& lookup,
                        const QString& datasheetType)
{
    if (!m_database)
        m_database =
            std::make_unique<store::Database>(store::DBEngine::OpenDatabase(app::g_strIndexFile));
    const auto map = m_database->OpenRecordset(u"SELECT FIELD,TABLENAME FROM MAP WHERE OBJECT = '"_s
                                               + entry.column + entry.row + u"' AND WORKSHEET= '"_s
                                               + entry.worksheet + u"' AND DATASHEETTYPE = '"_s
                                               + datasheetType + u"';"_s);
    if (map->Eof())
        return;
    const QString field = map->Field(u"FIELD"_s).text();
    const QString table = map->Field(u"TABLENAME"_s).text();
    if (table == u"index"_s)
        intoIndex(table, field, value, lookup);
    else if (table == u"document"_s)
        intoDocuments(field, value, lookup);
}

/// The tag itself is never rewritten.
void MainDbUpdate::intoIndex(const QString& table,
                             const QString& field,
                             const QString& value,
                             const QString& lookup)
{
    if (value.isEmpty() || field == u"Tag"_s)
        return;
    m_database->ExecutePassThrough(u"UPDATE ["_s + table + u"] SET ["_s + field + u"] = '"_s
                                   + store::quoted(value) + u"' WHERE PlantItemNo = '"_s + lookup
                                   + u"';"_s);
    m_indexChanged = true;
}

/// A document that is registered already gets no cross reference.
void MainDbUpdate::intoDocuments(const QString& docType,
                                 const QString& value,
                                 const QString& lookup)
{
    const auto known =
        m_database->OpenRecordset(u"select * from document where doctype='"_s + docType
                                  + u"' and docno = '"_s + store::quoted(value) + u"'"_s);
    if (!known->Eof())
        return;
    m_database->ExecutePassThrough(u"insert into document (docNo, docType) values ( '"_s + value
                                   + u"', '"_s + docType + u"' );"_s);
    m_changedKinds.insert(docType);
    m_database->ExecutePassThrough(
        u"insert into itemDocXRef (PlantItemNo, docNo, Context) values ('"_s + lookup + u"','"_s
        + value + u"','"_s + docType + u"' );"_s);
}

/// Without a piece each value is written by itself, as where another program holds the file for a
/// moment.
void MainDbUpdate::beginPiece()
{
    try {
        m_database =
            std::make_unique<store::Database>(store::DBEngine::OpenDatabase(app::g_strIndexFile));
        m_piece.reset(new store::Database::WriteScope(m_database->writeScope()));
    } catch (const store::Error&) {
        m_piece.reset();
    }
}

void MainDbUpdate::endPiece()
{
    const auto database = std::exchange(m_database, nullptr);
    const auto piece = std::exchange(m_piece, nullptr);
    if (!piece)
        return;
    try {
        piece->Commit();
    } catch (const store::Error& error) {
        failed(error);
    }
}

void MainDbUpdate::refresh()
{
    try {
        for (const QString& kind : std::exchange(m_changedKinds, {}))
            app::mainWindow().refreshDocuments(kind);
        if (std::exchange(m_indexChanged, false))
            app::mainWindow().dbIndex().Refresh();
    } catch (...) {
        failed(datasheets::currentFailure());
    }
}

/// The user may look at the index behind the message.
void MainDbUpdate::failed(const store::Error& error)
{
    endPiece();
    refresh();
    toolkit::showFailure(toolkit::procedureFailure(error, u"updateMainDB"_s, u"frmIndex"_s));
}

} // namespace ostrand::pid
