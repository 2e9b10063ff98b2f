// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Comparing the workbook with the database.
#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/cell_text.h"
#include "datasheets/failure.h"
#include "datasheets/map_row.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"
#include "toolkit/prompts.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;

namespace ostrand::datasheets {
namespace {

const QString indexSource = u"CXcelHndlr:DataDifIndexInfo()"_s;
const QString documentSource = u"CXcelHndlr:DataDifXdocRef()"_s;

bool differs(spreadsheet::Worksheet& sheet,
             const MapRow& row,
             const QString& expected,
             const QString& source)
{
    return textOf(readValue(sheet, row, source)) != expected;
}

/// The first document of a type that a tag is tied to; "" for none.
QString firstDocument(const store::Database& database, const QString& tag, const QString& docType)
{
    const auto ties = database.OpenRecordset(u"select * from qryDocXref where Tag = '"_s + tag
                                             + u"'   and DocType = '"_s + docType + u"';"_s);
    return ties->Eof() ? QString() : ties->Field(u"docNo"_s).text();
}

} // namespace

bool cXlHndlr::DataDifIndexInfo()
{
    bool found = false;
    try {
        const auto database = store::DBEngine::OpenDatabase(app::g_strIndexFile);
        const QString type = DatasheetType();
        Sheets sheets(openWorkbook());
        for (int i = 0; i < indexRecords().FieldCount(); ++i) {
            const auto map =
                database.OpenRecordset(u"select qryMap.* from qryMap where [DatasheetType] = '"_s
                                       + type + u"' and [Field] = '"_s + indexRecords().FieldName(i)
                                       + u"' and [TableName] = 'Index';"_s);
            forEachMapRow(*map, [&](const MapRow& row) {
                if (!row.isComplete())
                    return;
                spreadsheet::Worksheet& sheet = sheets.sheet(row.worksheet);
                const QString expected = indexRecords().Field(row.field).text();
                if (!differs(sheet, row, expected, indexSource))
                    return;
                if (row.field.toUpper() == "TAG"_L1)
                    restoreTag(sheet, row, expected);
                else
                    found = true;
            });
        }
    } catch (...) {
        showFailure(toolkit::formB(
                        tr("Error while checking differences between Excel Datasheet and index. "),
                        currentFailure()),
                    tr("Error"));
    }
    return found;
}

void cXlHndlr::restoreTag(spreadsheet::Worksheet& sheet, const MapRow& row, const QString& tag)
{
    setVisible(false);
    const auto show = qScopeGuard([this] { setVisible(true); });
    writeValue(sheet, row, tag, indexSource);
    toolkit::showNotice(
        tr("One cannot edit tag number from datasheet. Please, modify tag from index."));
}

bool cXlHndlr::DataDifXdocRef()
{
    bool found = false;
    try {
        const auto database = store::DBEngine::OpenDatabase(app::g_strIndexFile);
        const auto map = database.OpenRecordset(
            u"select qryMap.* from qryMap where [DatasheetType] = '"_s + DatasheetType()
            + u"' and [TableName] = 'document' and [Worksheet] = '"_s + WorksheetName() + u"';"_s);
        const QString tag = mainWindow().ActiveTag();
        Sheets sheets(openWorkbook());
        forEachMapRow(*map, [&](const MapRow& row) {
            if (!row.isComplete())
                return;
            const QString expected = firstDocument(database, tag, row.field);
            if (differs(sheets.sheet(row.worksheet), row, expected, documentSource))
                found = true;
        });
    } catch (...) {
        showFailure(
            toolkit::formB(tr("Error while checking differences between Excel Datasheet and "
                              "document cross reference. "),
                           currentFailure()),
            tr("Error"));
    }
    return found;
}

} // namespace ostrand::datasheets
