// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/modFormFieldNaming.h"

#include "app/state.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/data_grid.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::app {

void SetColumnNames(toolkit::DataGrid& grid, const QString& formName)
{
    try {
        const auto database = store::DBEngine::OpenDatabase(g_strIndexFile);
        const auto names = database.OpenRecordset(
            u"select * from FormColumnNames where FormName = '"_s + formName + u"';"_s);
        if (names->Eof() || names->Bof())
            return;
        for (int i = 0; i < grid.ColumnCount(); ++i) {
            auto column = grid.Columns(i);
            names->MoveFirst();
            names->FindFirst(u"columnName = '"_s + column.Name() + u"'"_s);
            if (!names->NoMatch())
                column.setCaption(names->Field(u"DisplayName"_s).text());
        }
    } catch (const store::Error& error) {
        toolkit::showFailure(toolkit::formB(
            QCoreApplication::translate("modFormFieldNaming", "Error while naming columns. "),
            error));
    }
}

} // namespace ostrand::app
