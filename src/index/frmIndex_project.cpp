// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Opening, making and loading projects.
#include "app/CRegHndlr.h"
#include "app/modCheckImpExp.h"
#include "app/modFormFieldNaming.h"
#include "app/modText.h"
#include "app/program.h"
#include "app/state.h"
#include "index/document_columns.h"
#include "index/frmIndex.h"
#include "store/database.h"
#include "toolkit/data_grid.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;
using ostrand::app::g_strIndexFile;
using ostrand::store::Error;

namespace ostrand::index {

void frmIndex::OpenIndex(const QString& path)
{
    try {
        g_strIndexFile = path.isEmpty() ? pickProject() : path;
        if (path.isEmpty() && isReservedName(g_strIndexFile)) {
            toolkit::showFailure(tr("Index database cannot be opened"));
            return;
        }
        showProjectFile();
        LoadIndex();
        if (!m_blnReadOnly) {
            app::CheckImpExp();
            ableButton(app::g_blnPidLinked);
        }
    } catch (const Error& error) {
        if (error.number() != toolkit::cancelledDialog)
            toolkit::showFailure(toolkit::formB(tr("Error while opening index. "), error));
    }
}

QString frmIndex::pickProject()
{
    const QString last = app::regHndlr().GetLastIndexLocation();
    return toolkit::chooseFile(
        {.title = tr("Open project..."),
         .filter = tr("All Files (*.*)|*.*|Ostrand Instrument Datasheets (*.mdb)|*.mdb"),
         .filterIndex = 2,
         .fileName = last.isEmpty() ? app::installationFolder() : last});
}

QString frmIndex::pickNewProject()
{
    return toolkit::chooseFile(
        {.title = tr("Save Project as..."),
         .filter = tr("All Files (*.*)|*.*|Ostrand Instrument Datasheets(*.mdb)|*.mdb"),
         .filterIndex = 2,
         .save = true});
}

/// The template's name is kept for the template, in the dialogs.
bool frmIndex::isReservedName(const QString& path) const
{
    return toolkit::fileTitle(path).toLower() == u"index.mdb"_s;
}

/// Shows the project's file name, and puts the project first in the recent list.
void frmIndex::showProjectFile()
{
    QString file;
    if (app::SeparateFileDir(g_strIndexFile, m_projectFolder, file))
        setPanelText(2, file);
    if (!g_strIndexFile.isEmpty())
        app::regHndlr().SaveIndexLocation(g_strIndexFile);
}

void frmIndex::LoadIndex()
{
    try {
        bindProject();
    } catch (const Error& error) {
        loadFailed(error);
    }
}

void frmIndex::bindProject()
{
    m_dbIndex->setDatabaseName(g_strIndexFile);
    m_dbIndex->Refresh();
    m_documents->refresh(g_strIndexFile);
    AbleForm(true);
    app::SetColumnNames(*m_GridIndex, objectName());
}

void frmIndex::loadFailed(const Error& error)
{
    switch (error.number()) {
    case store::errors::fileNotFound:
        toolkit::showFailure(tr("File ") + g_strIndexFile
                             + tr(" does not exist or has been moved."));
        g_strIndexFile.clear();
        OpenIndex(QString());
        break;
    case store::errors::refreshWhileEditing:
        toolkit::showFailure(tr("Please save the data before refresh"));
        break;
    case store::errors::readOnly:
        toolkit::showFailure(tr("Error while reading from ") + g_strIndexFile
                             + tr(". Database is read only."));
        m_blnReadOnly = true;
        break;
    default:
        toolkit::showFailure(toolkit::formB(tr("Error while refreshing database. "), error));
    }
}

void frmIndex::CreateIndex()
{
    try {
        g_strIndexFile = pickNewProject();
        if (isReservedName(g_strIndexFile)) {
            toolkit::showFailure(tr("Index.mdb name cannot be used for storing database"));
            return;
        }
        copyTemplate();
        showProjectFile();
        LoadIndex();
        // What could not be loaded was told; the project that is still shown is not the new one.
        if (!m_dbIndex->isOpen() || m_dbIndex->Database().Name() != g_strIndexFile)
            return;
        storeNewProjectFolders();
        ShowProjectInfo();
    } catch (const Error& error) {
        if (error.number() != toolkit::cancelledDialog)
            toolkit::showFailure(toolkit::formB(tr("Error while creating index. "), error));
    }
}

/// False when the user keeps the file that exists; it then becomes the project as it is.
bool frmIndex::copyTemplate()
{
    if (toolkit::fileExists(g_strIndexFile)
        && !toolkit::askYesNo(tr("The following file already exists") + u"\r\n"_s + g_strIndexFile
                              + u"\r\n"_s + tr("Do you wish to overwrite it?")))
        return false;
    store::copyDatabase(toolkit::joinPath(app::installationFolder(), u"index.mdb"_s),
                        g_strIndexFile);
    return true;
}

void frmIndex::storeNewProjectFolders()
{
    const auto store = [this](const QString& folder, const QString& attribute) {
        m_dbIndex->Database().Execute(u"update qryProjectInfo set attributeValue = '"_s + folder
                                      + u"' where attributeName = '"_s + attribute + u"';"_s);
    };
    store(m_projectFolder, u"DefaultDatasheetFolder"_s);
    store(toolkit::joinPath(app::installationFolder(), u"Templates"_s), u"DefaultTemplateFolder"_s);
}

void frmIndex::ShowProjectInfo() const
{
    try {
        if (m_commands.ShowProjectInfo)
            m_commands.ShowProjectInfo();
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while opening Instrument Index Title Information."), error));
    }
}

} // namespace ostrand::index
