// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/datasheet_commands.h"

#include "app/main_window.h"
#include "app/modText.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/failure.h"
#include "datasheets/frmDSType.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/data_control.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <QFileInfo>
#include <QPointer>

#include <optional>

using namespace Qt::StringLiterals;

namespace ostrand::datasheets {
namespace {

const QString fieldPath = u"DatasheetPath"_s;
const QString fieldFileName = u"DatasheetFileName"_s;

store::Value nullIfEmpty(const QString& text)
{
    return text.isEmpty() ? store::Value() : store::Value(text);
}

bool folderExists(const QString& folder)
{
    return QFileInfo(toolkit::filePath(folder)).isDir();
}

/// The project's database; nothing where there is no such file.
std::optional<store::Database> projectDatabase()
{
    try {
        return store::DBEngine::OpenDatabase(app::g_strIndexFile);
    } catch (const store::Error& error) {
        if (error.number() == store::errors::fileNotFound
            || error.number() == store::errors::invalidPath)
            return std::nullopt;
        throw;
    }
}

/// The project's default folder holds a file of the tag's name. The name is the tag as it stands:
/// a file whose name had separators replaced is not looked for.
bool hasDefaultFile(const store::Database& database, const QString& tag)
{
    const auto folders =
        database.OpenRecordset(u"select attributevalue from qryProjectInfo where attributeName = "
                               u"'defaultdatasheetfolder';"_s);
    if (folders->Eof())
        return false;
    const QString folder = folders->Field(0).text();
    return folderExists(folder) && toolkit::fileExists(toolkit::joinPath(folder, tag + u".xls"_s));
}

bool recordNamesNoFile(const store::Database& database, const QString& tag)
{
    const auto rows = database.OpenRecordset(
        u"select datasheetpath, datasheetfilename from qryindex where tag= '"_s + tag + u"';"_s);
    if (rows->RecordCount() <= 0)
        return false;
    return rows->Field(0).isNullOrEmpty() || rows->Field(1).isNullOrEmpty();
}

} // namespace

DatasheetCommands::DatasheetCommands(app::MainWindow& window, Links links)
    : m_window(window),
      m_links(std::move(links))
{
}

store::Recordset& DatasheetCommands::tags() const
{
    return m_window.dbIndex().Recordset();
}

void DatasheetCommands::cmdDatasheet()
{
    try {
        if (m_links.GridTag().isEmpty()) {
            toolkit::showFailure(tr("Tag value is Null"));
            return;
        }
    } catch (...) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while opening datasheet."), currentFailure()));
        return;
    }
    if (connectDB()
        && !toolkit::askYesNo(
            tr("Datasheet fot this tag is already exists, do you want to overwrite it?")))
        return;
    OpenTagDatasheet();
}

/// A row that cannot be written stays under edit: no other record must be taken for it. True when
/// none is.
bool DatasheetCommands::settleRow() const
{
    m_links.SaveTag();
    return m_window.dbIndex().EditMode() == store::EditMode::None;
}

bool DatasheetCommands::connectDB() const
{
    try {
        const auto database = projectDatabase();
        if (!database) {
            toolkit::showFailure(tr("Main database not found"));
            return false;
        }
        const QString tag = m_links.GridTag();
        return hasDefaultFile(*database, tag) && recordNamesNoFile(*database, tag);
    } catch (...) {
        toolkit::showFailure(tr("An error occured during operation") + u"\r\n"_s
                             + currentFailure().description());
        return false;
    }
}

bool DatasheetCommands::HasDatasheetFields() const
{
    if (tags().Eof() || tags().Bof())
        return false;
    return !tags().Field(fieldPath).isNull() && !tags().Field(fieldFileName).isNull();
}

void DatasheetCommands::OpenTagDatasheet()
{
    try {
        cXlHndlr& session = xlHndlr();
        if (session.XlAlreadyOpen()) {
            toolkit::promptHost().messageBox(
                {.text = tr("Datasheet ") + session.filename()
                         + tr(" is already open.  Only one datasheet can be opened at a time."),
                 .icon = toolkit::BoxIcon::None});
            return;
        }
        if (!settleRow())
            return;
        if (tags().Eof() || tags().Bof())
            return;
        if (!HasDatasheetFields())
            makeDatasheet();
        if (!HasDatasheetFields())
            return;
        session.OpenXl(
            toolkit::joinPath(tags().Field(fieldPath).text(), tags().Field(fieldFileName).text()));
    } catch (...) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while opening datasheet."), currentFailure()));
    }
}

void DatasheetCommands::makeDatasheet()
{
    m_strDatasheetFolder.clear();
    m_strDatasheetFileName.clear();
    // The main window takes its window along when it goes first.
    const QPointer<frmDSType> types = new frmDSType(m_window.window());
    types->exec();
    delete types;
    storePlace(m_strDatasheetFolder, m_strDatasheetFileName);
}

void DatasheetCommands::storePlace(const QString& folder, const QString& name)
{
    store::Recordset& records = tags();
    records.Edit();
    try {
        records.SetField(fieldPath, nullIfEmpty(folder));
        records.SetField(fieldFileName, nullIfEmpty(name));
        records.Update();
    } catch (const store::Error&) {
        // A name that is too long for its field would leave the record under edit.
        m_window.dbIndex().cancelEdit();
        throw;
    }
}

QString DatasheetCommands::locatedFile() const
{
    return toolkit::chooseFile({.title = tr("Locate Excel Spreadsheet Datasheet..."),
                                .filter = tr("All Files (*.*)|*.*|Excel (*.xls)|*.xls"),
                                .filterIndex = 2,
                                .fileName = toolkit::joinPath(m_window.FolderDatasheets(),
                                                              m_links.GridTag() + u".xls"_s)});
}

bool DatasheetCommands::LocateDatasheetFile()
{
    try {
        if (!settleRow())
            return false;
        const QString chosen = locatedFile();
        QString folder;
        QString name;
        if (!app::SeparateFileDir(chosen, folder, name))
            toolkit::showFailure(tr("Error getting file and path name for datasheet."));
        storePlace(folder, name);
        return true;
    } catch (...) {
        const store::Error error = currentFailure();
        if (error.number() != toolkit::cancelledDialog)
            toolkit::showFailure(toolkit::formA(tr("Error while locating datasheet file."), error));
        return false;
    }
}

void DatasheetCommands::FindDatasheet()
{
    try {
        if (LocateDatasheetFile())
            OpenTagDatasheet();
    } catch (...) {
        const store::Error error = currentFailure();
        if (error.number() != toolkit::cancelledDialog)
            toolkit::showFailure(toolkit::formA(tr("Error while finding datasheet."), error));
    }
}

} // namespace ostrand::datasheets
