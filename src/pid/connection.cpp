// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/connection.h"

#include "app/main_window.h"
#include "app/project_cfg.h"
#include "app/state.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;

namespace ostrand::pid {
namespace {

constexpr int noDriverPrompt = 1;
const QString dataSource = u"P&ID_SQL_SERVER"_s;

} // namespace

bool isServerConfiguration(const QString& path)
{
    return toolkit::fileExtension(path).toLower() == u"cfg"_s;
}

store::Database openPidDatabase(const QString& path)
{
    if (!isServerConfiguration(path))
        return store::DBEngine::OpenDatabase(toolkit::filePath(path));
    const QString schema = app::ReadProjectCfg(toolkit::filePath(path));
    return store::DBEngine::OpenDatabase(
        dataSource, noDriverPrompt, false, u"ODBC;DATABASE="_s + schema + u";DSN="_s + dataSource);
}

std::optional<store::Database> checkPIDDatabaseFunction(const QString& path)
{
    try {
        if (!toolkit::fileExists(path)) {
            app::mainWindow().showRecordCounter();
            return {};
        }
        return openPidDatabase(path);
    } catch (const store::Error& error) {
        toolkit::showFailure(
            toolkit::procedureFailure(error, u"checkPIDDatabaseFunction"_s, u"frmIndex"_s));
        return {};
    }
}

} // namespace ostrand::pid
