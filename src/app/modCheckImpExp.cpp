// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/modCheckImpExp.h"

#include "app/state.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::app {

void CheckImpExp()
{
    try {
        const auto database = store::DBEngine::OpenDatabase(g_strIndexFile);
        const auto rows = database.OpenRecordset(
            u"select attributeValue from qryProjectInfo where attributeName = "
            u"'DefaultP&IDDatabase';"_s);
        g_blnPidLinked = rows->RecordCount() >= 1 && !rows->Field(u"attributeValue"_s).isNull();
    } catch (const store::Error& error) {
        toolkit::showFailure(QCoreApplication::translate(
                                 "modCheckImpExp", "An Error Has Occured During the Operation")
                             + u"\r\n"_s + QString::number(error.number()) + u" "_s
                             + error.description());
    }
}

} // namespace ostrand::app
