// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Writing the workbook's values into the database.
#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/cell_text.h"
#include "datasheets/failure.h"
#include "datasheets/map_row.h"
#include "store/database.h"
#include "store/quoting.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"
#include "toolkit/prompts.h"

#include <optional>

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;
using ostrand::store::DBEngine;

namespace ostrand::datasheets {
namespace {

const QString indexSource = u"CXcelHndlr:UpdateDbIndex()"_s;
const QString documentSource = u"CXcelHndlr:StoreData()"_s;

/// Rows that a key refuses are left out, so that a document may be in the register already.
void execute(const QString& statement)
{
    mainWindow().dbIndex().Database().Execute(statement, store::RefusedRows::Drop);
}

/// Each row of the Map is an edit of its own, also one that shows nothing.
void updateField(Sheets& sheets, const MapRow& row)
{
    std::optional<store::Value> value;
    if (row.isComplete()) {
        requireCell(row, indexSource);
        value = storedValue(readValue(sheets.sheet(row.worksheet), row, indexSource));
    }
    store::Recordset& index = indexRecords();
    index.Edit();
    if (value)
        index.SetField(row.field, *value);
    index.Update();
}

void updateFailed(const store::Error& error)
{
    showFailure(QCoreApplication::translate("cXlHndlr", "Error while updating database. ")
                    + QString::number(error.number()) + u" "_s + error.description(),
                u"ERROR!"_s);
}

} // namespace

void cXlHndlr::UpdateDbIndex()
{
    try {
        const auto database = DBEngine::OpenDatabase(mainWindow().dbIndex().DatabaseName());
        const QString type = DatasheetType();
        const QString worksheet = WorksheetName();
        Sheets sheets(openWorkbook());
        for (int i = 0; i < indexRecords().FieldCount(); ++i) {
            const auto map = database.OpenRecordset(
                u"select qryMap.* from qryMap where [DatasheetType] = '"_s + type
                + u"' and [Field] = '"_s + indexRecords().FieldName(i)
                + u"' and [TableName] = 'index' and [Worksheet] = '"_s + worksheet + u"'"_s);
            forEachMapRow(*map, [&](const MapRow& row) { updateField(sheets, row); });
        }
    } catch (...) {
        const store::Error error = currentFailure();
        // An edit left pending would keep the index from being read anew.
        if (app::g_frmIndex)
            app::g_frmIndex->dbIndex().cancelEdit();
        updateFailed(error);
    }
}

void cXlHndlr::StoreData()
{
    try {
        const auto database = DBEngine::OpenDatabase(mainWindow().dbIndex().DatabaseName());
        const auto map = database.OpenRecordset(
            u"select qryMap.* from qryMap where [DatasheetType] = '"_s + DatasheetType()
            + u"' and [TableName] = 'document' and [Worksheet] = '"_s + WorksheetName() + u"'"_s);
        Sheets sheets(openWorkbook());
        forEachMapRow(*map, [&](const MapRow& row) {
            if (!row.isComplete())
                return;
            requireCell(row, documentSource);
            // A cell without a text must not cost the tag its cross references.
            const QString docNo =
                store::quoted(textOf(readValue(sheets.sheet(row.worksheet), row, documentSource)));
            DeleteXdocRef(row.field);
            if (docNo.isEmpty())
                return;
            CreateDocument(docNo, row.field);
            CreateXdocRef(docNo);
        });
    } catch (...) {
        updateFailed(currentFailure());
    }
}

void cXlHndlr::DeleteXdocRef(const QString& docType)
{
    try {
        const QString tag = mainWindow().ActiveTag();
        execute(u"delete itemDocXRef.* from itemDocXRef where PlantItemNo = '"_s + tag
                + u"' and   docNo in (select docNo from qryDocXRef where docType= '"_s + docType
                + u"'   and Tag = '"_s + tag + u"');"_s);
    } catch (...) {
        showFailure(toolkit::formB(tr("Error while deleting document cross reference from Excel. "),
                                   currentFailure()),
                    tr("Error"));
    }
}

void cXlHndlr::CreateDocument(const QString& docNo, const QString& docType)
{
    try {
        execute(u"insert into document (docNo, docType) values ( '"_s + docNo + u"', '"_s + docType
                + u"');"_s);
    } catch (...) {
        showFailure(
            toolkit::formB(tr("Error while creating document from Excel. "), currentFailure()),
            tr("Error"));
    }
}

void cXlHndlr::CreateXdocRef(const QString& docNo)
{
    try {
        execute(u"insert into itemDocXRef (PlantItemNo, docNo) values ('"_s
                + mainWindow().ActiveTag() + u"', '"_s + docNo + u"');"_s);
    } catch (...) {
        showFailure(toolkit::formB(tr("Error while creating document cross reference from Excel. "),
                                   currentFailure()),
                    tr("Error"));
    }
}

} // namespace ostrand::datasheets
