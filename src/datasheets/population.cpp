// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Filling the workbook from the database.
#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/failure.h"
#include "datasheets/map_row.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;
using ostrand::store::DBEngine;

namespace ostrand::datasheets {
namespace {

const QString errorTitle = u"ERROR!"_s;

QString mapStatement(const QString& type, const QString& field, const QString& table)
{
    return u"select qryMap.* from qryMap where [DatasheetType] = '"_s + type
           + u"' and [Field] = '"_s + field + u"' and [TableName] = '"_s + table + u"';"_s;
}

} // namespace

void cXlHndlr::PopulateXl()
{
    try {
        PopulateXlProjInfo();
        PopulateXlIndex();
        PopulateXlDocument();
    } catch (...) {
        showFailure(toolkit::formB(tr("Error while populating datasheet. "), currentFailure()),
                    tr("Error"));
    }
}

void cXlHndlr::populateRows(Sheets& sheets,
                            store::Recordset& map,
                            const QString& source,
                            const std::function<store::Value(const MapRow&)>& value)
{
    forEachMapRow(map, [&](const MapRow& row) {
        if (row.isComplete())
            writeValue(sheets.sheet(row.worksheet), row, value(row).text(), source);
    });
}

void cXlHndlr::PopulateXlIndex()
{
    try {
        const auto database = DBEngine::OpenDatabase(mainWindow().dbIndex().DatabaseName());
        const QString type = DatasheetType();
        Sheets sheets(openWorkbook());
        for (int i = 0; i < indexRecords().FieldCount(); ++i) {
            const auto map =
                database.OpenRecordset(mapStatement(type, indexRecords().FieldName(i), u"index"_s));
            populateRows(sheets, *map, u"CXcelHndlr:PopulateXlIndex()"_s, [](const MapRow& row) {
                return indexRecords().Field(row.field);
            });
        }
    } catch (...) {
        showFailure(toolkit::formA(tr("Error while populating index data into Excel Spreadsheet ")
                                       + filename() + u"."_s,
                                   currentFailure()),
                    errorTitle);
    }
}

void cXlHndlr::PopulateXlProjInfo()
{
    try {
        const auto database = DBEngine::OpenDatabase(mainWindow().dbIndex().DatabaseName());
        const auto attributes = database.OpenRecordset(u"select * from qryProjectInfo;"_s);
        const QString type = DatasheetType();
        Sheets sheets(openWorkbook());
        for (; !attributes->Eof(); attributes->MoveNext()) {
            const QString name = attributes->Field(u"attributeName"_s).text();
            const auto map = database.OpenRecordset(mapStatement(type, name, u"IndexTitleInfo"_s));
            populateRows(sheets, *map, u"CXcelHndlr:PopulateXlProjInfo()"_s, [&](const MapRow&) {
                return attributes->Field(u"attributeValue"_s);
            });
        }
    } catch (...) {
        showFailure(
            toolkit::formA(tr("Error while populating title information in Excel Spreadsheet ")
                               + filename() + u"."_s,
                           currentFailure()),
            errorTitle);
    }
}

void cXlHndlr::PopulateXlDocument()
{
    try {
        const auto database = DBEngine::OpenDatabase(mainWindow().dbIndex().DatabaseName());
        const auto ties = database.OpenRecordset(u"select * from qryDocXref where [Tag] = '"_s
                                                 + mainWindow().ActiveTag() + u"'"_s);
        const QString type = DatasheetType();
        Sheets sheets(openWorkbook());
        for (; !ties->Eof(); ties->MoveNext()) {
            const QString docType = ties->Field(u"docType"_s).text();
            const auto map = database.OpenRecordset(mapStatement(type, docType, u"Document"_s));
            populateRows(sheets, *map, u"CXcelHndlr:PopulateXlDocument()"_s, [&](const MapRow&) {
                return ties->Field(u"docNo"_s);
            });
        }
    } catch (...) {
        showFailure(
            toolkit::formA(tr("Error while populating document information in Excel Spreadsheet ")
                               + filename() + u"."_s,
                           currentFailure()),
            errorTitle);
    }
}

QString cXlHndlr::StartCell(const store::Value& reference)
{
    try {
        if (reference.isNull())
            throw store::Error(errors::invalidUseOfNull, tr("Invalid use of Null"));
        const QString text = reference.text();
        const qsizetype colon = text.indexOf(u':');
        return colon > 0 ? text.left(colon) : text;
    } catch (const store::Error& error) {
        showFailure(tr("Error in StartCell(). ") + QString::number(error.number()) + u" : "_s
                        + error.description(),
                    tr("Error!"));
        return {};
    }
}

} // namespace ostrand::datasheets
