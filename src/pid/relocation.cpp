// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/relocation.h"

#include "app/main_window.h"
#include "app/state.h"
#include "store/database.h"
#include "store/quoting.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <QCoreApplication>

#include <optional>

using namespace Qt::StringLiterals;
using ostrand::app::g_strNewDatasheetFolder;

namespace ostrand::pid {
namespace {

void forget(const store::Database& project, const QString& tag)
{
    project.Execute(
        u"Update qryIndex set DatasheetPath= Null  , DataSheetFileName = Null where tag='"_s + tag
        + u"';"_s);
}

/// The record goes first and the file follows it.
void moveDatasheet(const store::Database& project,
                   const QString& tag,
                   const QString& folder,
                   const QString& name)
{
    const QString file = toolkit::joinPath(folder, name);
    if (!toolkit::fileExists(file)) {
        forget(project, tag);
        return;
    }
    project.Execute(u"Update qryIndex set DatasheetPath='"_s
                    + store::quoted(g_strNewDatasheetFolder) + u"' , DataSheetFileName = '"_s
                    + store::quoted(name) + u"' where tag='"_s + store::quoted(tag) + u"';"_s);
    try {
        toolkit::moveFile(file, toolkit::joinPath(g_strNewDatasheetFolder, name));
    } catch (const store::Error& error) {
        if (error.number() != toolkit::fileErrors::fileNotFound)
            throw;
        forget(project, tag);
    }
}

/// A record with an empty text takes the next one with it.
void moveDatasheets(const store::Database& project, store::Recordset& tags)
{
    for (; !tags.Eof(); tags.MoveNext()) {
        const store::Value folder = tags.Field(1);
        const store::Value name = tags.Field(2);
        if (folder.isNull() || name.isNull())
            continue;
        if (folder.text().isEmpty() || name.text().isEmpty())
            tags.MoveNext();
        else
            moveDatasheet(project, tags.Field(0).text(), folder.text(), name.text());
    }
}

QString words(const char* text)
{
    return QCoreApplication::translate("pid", text);
}

void relocate()
{
    std::optional<store::Database> project;
    try {
        project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    } catch (const store::Error&) {
        toolkit::showFailure(words("Main database not found"));
        return;
    }
    std::unique_ptr<store::Recordset> tags;
    try {
        tags = project->OpenRecordset(
            u"select DISTINCT tag,datasheetpath,datasheetfilename from qryindex"_s);
    } catch (const store::Error&) {
        toolkit::showFailure(words("Main database cannot be opened"));
        return;
    }
    tags->readAllKeys(); // the records change on the way
    moveDatasheets(*project, *tags);
    app::mainWindow().dbIndex().Refresh();
}

} // namespace

void changedDatasheetPath()
{
    try {
        relocate();
    } catch (const store::Error& error) {
        toolkit::showFailure(
            toolkit::procedureFailure(error, u"changedDatasheetPath"_s, u"frmIndex"_s));
    }
}

} // namespace ostrand::pid
