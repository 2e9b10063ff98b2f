// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/filling.h"

#include "app/main_window.h"
#include "app/state.h"
#include "spreadsheet/cell_reference.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"

#include <utility>

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;

namespace ostrand::datasheets {

Filling::Filling(std::shared_ptr<spreadsheet::Workbook> workbook, QString type)
    : m_sheets(std::move(workbook)),
      m_type(std::move(type))
{
}

void Filling::projectInfo()
{
    pass([this](const store::Database& database) {
        const auto attributes = database.OpenRecordset(u"select * from qryProjectInfo;"_s);
        for (; !attributes->Eof(); attributes->MoveNext()) {
            fillRows(database,
                     attributes->Field(u"attributeName"_s).text(),
                     u"IndexTitleInfo"_s,
                     u"CXcelHndlr:PopulateXlProjInfo()"_s,
                     [&](const MapRow&) { return attributes->Field(u"attributeValue"_s); });
        }
    });
}

void Filling::index()
{
    pass([this](const store::Database& database) {
        for (int i = 0; i < indexRecords().FieldCount(); ++i) {
            fillRows(database,
                     indexRecords().FieldName(i),
                     u"index"_s,
                     u"CXcelHndlr:PopulateXlIndex()"_s,
                     [](const MapRow& row) { return indexRecords().Field(row.field); });
        }
    });
}

void Filling::documents(const QString& tag)
{
    pass([this, &tag](const store::Database& database) {
        const auto ties =
            database.OpenRecordset(u"select * from qryDocXref where [Tag] = '"_s + tag + u"'"_s);
        for (; !ties->Eof(); ties->MoveNext()) {
            fillRows(database,
                     ties->Field(u"docType"_s).text(),
                     u"Document"_s,
                     u"CXcelHndlr:PopulateXlDocument()"_s,
                     [&](const MapRow&) { return ties->Field(u"docNo"_s); });
        }
    });
}

void Filling::pass(const std::function<void(const store::Database&)>& steps)
{
    try {
        steps(store::DBEngine::OpenDatabase(mainWindow().dbIndex().DatabaseName()));
    } catch (...) {
        flush();
        throw;
    }
    flush();
}

void Filling::fillRows(const store::Database& database,
                       const QString& field,
                       const QString& table,
                       const QString& source,
                       const ValueOf& value)
{
    const auto map = database.OpenRecordset(
        u"select qryMap.* from qryMap where [DatasheetType] = '"_s + m_type + u"' and [Field] = '"_s
        + field + u"' and [TableName] = '"_s + table + u"';"_s);
    forEachMapRow(*map, [&](const MapRow& row) {
        if (row.isComplete())
            put(row, value(row).text(), source);
    });
}

/// Cells wait to be written together; what has no such place goes out by itself, behind them.
void Filling::put(const MapRow& row, const QString& value, const QString& source)
{
    spreadsheet::Worksheet& sheet = m_sheets.sheet(row.worksheet);
    if (row.isCell() && spreadsheet::fileCellPlace(row.object)) {
        m_pending[row.worksheet].push_back({row.object, value});
        return;
    }
    flush();
    writeValue(sheet, row, value, source);
}

void Filling::flush()
{
    const auto pending = std::exchange(m_pending, {});
    for (const auto& [sheet, cells] : pending)
        m_sheets.sheet(sheet).write(cells);
}

} // namespace ostrand::datasheets
