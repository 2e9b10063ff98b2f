// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/populating.h"

#include "app/main_window.h"
#include "app/state.h"
#include "pid/frmPopulate.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

#include <optional>

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

/// The P&ID database that the open project names; nothing where it names none.
std::optional<QString> pidDatabaseOfProject()
{
    const store::Database project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    const auto attribute = project.OpenRecordset(
        u"Select attributeValue from ProjectInfo where attributeName='DefaultP&IDDatabase'"_s);
    const store::Value value = attribute->Field(u"attributeValue"_s);
    if (value.isNull() || value.text() == u"Null"_s)
        return std::nullopt;
    return value.text();
}

void populate()
{
    const auto path = pidDatabaseOfProject();
    if (!path) {
        toolkit::showNotice(QCoreApplication::translate(
            "frmIndex",
            "There is no default Ostrand P&ID Databse selected. Please select Datadase using Edit "
            "-> Project Information menu"));
        return;
    }
    frmPopulate window(*path, app::mainWindow().window());
    if (window.load())
        window.exec();
}

} // namespace

void cmdTag()
{
    try {
        populate();
    } catch (const store::Error&) {
        // A project that cannot say where its instruments are lists none.
        return;
    }
}

} // namespace ostrand::pid
