// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The commands on the project's attributes.
#include "app/FolderDialog.h"
#include "app/frmProjectInfo.h"
#include "app/main_window.h"
#include "app/modCheckImpExp.h"
#include "app/program.h"
#include "app/project_attributes.h"
#include "app/project_cfg.h"
#include "app/state.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::app {
namespace {

const QString fieldName = u"attributeName"_s;
const QString fieldStatic = u"static"_s;

} // namespace

bool frmProjectInfo::IsAttributeStatic()
{
    try {
        const store::Recordset& attributes = m_dbProjInfo->Recordset();
        if (isAdding())
            return false;
        return attributes.Eof() || attributes.Bof() || attributes.Field(fieldStatic).flag();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(
            tr("Error while checking if Instrument Index Information attribute is static."),
            error));
        return true;
    }
}

bool frmProjectInfo::ValidateAttribute()
{
    try {
        if (!IsAttributeStatic()
            || m_dbProjInfo->Recordset().Field(fieldName).text() == cell(infoColumn::name))
            return true;
        toolkit::showNotice(tr("This property's name cannot be edited. It is used by program."));
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while validating index title data ."), error));
    }
    return false;
}

// ---- writing

void frmProjectInfo::afterUpdate(bool& failed)
{
    if (!failed)
        return;
    failed = false;
    if (cell(infoColumn::name).isEmpty()) {
        toolkit::showFailure(tr("Property column should not be null") + u"\r\n"_s
                             + tr("or press escape to cancel"));
    } else {
        m_untold = m_GridInfo->writeFailure();
    }
}

void frmProjectInfo::cmdSave()
{
    try {
        if (ValidateAttribute())
            writePendingRow();
    } catch (const Error& error) {
        if (error.number() == store::errors::updateWithoutEdit) {
            toolkit::showFailure(tr("Save cannot succeed without addnew or delete operation"));
        } else {
            toolkit::showFailure(
                toolkit::formA(tr("Error while saving index title data ."), error));
        }
    }
}

void frmProjectInfo::writePendingRow()
{
    m_untold.reset();
    m_dbProjInfo->UpdateRecord();
    if (m_untold)
        throw Error(*m_untold);
}

/// Writes what is pending, if anything is. False when it could not be written, which was told.
bool frmProjectInfo::writeRow()
{
    m_untold.reset();
    try {
        if (m_GridInfo->writeRow())
            return true;
    } catch (const Error& error) {
        m_untold = error;
    }
    if (m_untold) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while saving index title data ."), *m_untold));
    }
    return false;
}

void frmProjectInfo::cmdDelete()
{
    try {
        deleteAttribute();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(
            tr("Error while deleting attribute for instrument index title."), error));
    }
}

void frmProjectInfo::deleteAttribute()
{
    store::Recordset& attributes = m_dbProjInfo->Recordset();
    if (!isAdding() && (attributes.Eof() || attributes.Bof()))
        return;
    if (IsAttributeStatic()) {
        toolkit::showNotice(tr("This property cannot be deleted. It is used by program."));
        return;
    }
    const QString name = isAdding() ? cell(infoColumn::name) : attributes.Field(fieldName).text();
    if (!toolkit::askYesNo(tr("Are you sure you want to delete attribute ") + name + u"?"_s))
        return;
    // A row that is still being typed is no record: what goes is the row, and no other attribute.
    if (isAdding()) {
        m_GridInfo->cancelRow();
        return;
    }
    m_dbProjInfo->DeleteRecord();
    if (!attributes.Eof() && !attributes.Bof())
        attributes.MovePrevious();
}

void frmProjectInfo::cmdRefresh()
{
    try {
        m_dbProjInfo->Refresh();
    } catch (const Error& error) {
        if (error.number() == store::errors::refreshWhileEditing) {
            toolkit::showFailure(
                tr("Refresh command is not allowed without addnew or delete operation"));
        } else {
            toolkit::showFailure(tr("An error occured during operation") + u"\r\n"_s
                                 + QString::number(error.number()) + u" "_s + error.description());
        }
    }
}

void frmProjectInfo::cmdExit()
{
    close();
    CheckImpExp();
    if (g_frmIndex)
        g_frmIndex->ableButton(g_blnPidLinked);
}

// ---- browsing

void frmProjectInfo::cmdLocateDir()
{
    constexpr int cancelledByUser = 3059;
    try {
        locate(cell(infoColumn::name));
    } catch (const Error& error) {
        switch (error.number()) {
        case toolkit::fileErrors::permissionDenied:
            toolkit::showFailure(tr("File 'data.txt' is already exists ") + u"\r\n"_s
                                 + tr(" and it is read only"));
            break;
        case cancelledByUser:
            toolkit::showFailure(tr("Operation was cancelled by the user"));
            break;
        default:
            toolkit::showFailure(toolkit::formB(tr("Error while locating directory. "), error));
        }
    }
}

void frmProjectInfo::locate(const QString& attribute)
{
    if (attribute == attributeDatasheetFolder)
        locateFolder(tr("Select default datasheet folder"));
    else if (attribute == attributeTemplateFolder)
        locateFolder(tr("Select default template folder"));
    else if (attribute == attributePidDatabase)
        locatePidDatabase();
    // The key handlers know this attribute by another spelling.
    else if (attribute == u"Logo file"_s)
        locateLogo();
}

void frmProjectInfo::locateFolder(const QString& title)
{
    const QString folder = BrowseForFolder(this, title);
    if (!folder.isEmpty())
        m_GridInfo->Columns(infoColumn::value).setValue(folder);
}

void frmProjectInfo::locatePidDatabase()
{
    const QString path =
        toolkit::chooseFileIfAny({.title = tr("Locate P&ID Database"),
                                  .filter = tr("Ostrand P&ID Database (*.mdb)|*.mdb|"
                                               "Microsoft Access Database (*.mdb)|*.mdb|"
                                               "Oracle Database (Project.cfg)|Project.cfg|"
                                               "Microsoft SQL Server (Project.cfg)|Project.cfg"),
                                  .folder = installationFolder()});
    if (path.isEmpty())
        return;
    m_GridInfo->Columns(infoColumn::value).setValue(path);
    if (toolkit::fileExtension(path).toLower() != "cfg"_L1)
        return;
    ReadProjectCfg(path);
    // A configuration file is kept only where a database was linked before, however valid it is.
    if (!g_blnPidLinked)
        m_GridInfo->Columns(infoColumn::value).setValue(QString());
}

void frmProjectInfo::locateLogo()
{
    const QString path = toolkit::chooseFileIfAny(
        {.title = tr("Locate logo file"),
         .filter = tr("Graphic Files (*.gif;*.bmp;*.jpg)|*.gif;*.bmp;*.jpg|GIF Image(*.gif)|*.gif|"
                      "BMP Image(*.bmp)|*.bmp|JPG Image (*.jpg)|*.jpg"),
         .folder = installationFolder()});
    if (!path.isEmpty())
        m_GridInfo->Columns(infoColumn::value).setValue(path);
}

} // namespace ostrand::app
