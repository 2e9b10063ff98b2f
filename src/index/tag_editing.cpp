// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/tag_editing.h"

#include "datasheets/file_name.h"
#include "index/index_columns.h"
#include "store/database.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;
using ostrand::store::EditMode;
using ostrand::store::Error;

namespace ostrand::index {
namespace {

const QString fieldTag = u"Tag"_s;
const QString fieldPath = u"DatasheetPath"_s;
const QString fieldFileName = u"DatasheetFileName"_s;

} // namespace

TagEditing::TagEditing(toolkit::DataGrid& grid,
                       toolkit::DataControl& dbIndex,
                       Links links,
                       QObject* parent)
    : QObject(parent),
      m_grid(grid),
      m_dbIndex(dbIndex),
      m_links(std::move(links))
{
}

QString TagEditing::tagCell()
{
    return m_grid.Columns(column::tag).Value().text();
}

/// A record that is gone from the file is not one without a tag.
bool TagEditing::tagCellIsEmpty()
{
    try {
        return tagCell().isEmpty();
    } catch (const Error&) {
        return false;
    }
}

void TagEditing::cmdSave()
{
    if (tagCellIsEmpty()) {
        toolkit::showFailure(tr("Please enter the Tag Value"));
        return;
    }
    SaveTag();
}

void TagEditing::cmdDelete()
{
    if (!tagCellIsEmpty())
        DeleteTag();
}

void TagEditing::SaveTag()
{
    try {
        if (m_dbIndex.EditMode() != EditMode::None)
            m_dbIndex.UpdateRecord();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while saving data ."), error));
    }
}

void TagEditing::DeleteTag()
{
    try {
        if (m_dbIndex.EditMode() == EditMode::Add) {
            dropNewTag();
            return;
        }
        store::Recordset& tags = m_dbIndex.Recordset();
        if (tags.Eof() || tags.Bof())
            return;
        if (!toolkit::askYesNo(tr("Are you sure you want to delete tag ")
                               + tags.Field(fieldTag).text() + u"?"_s))
            return;
        DeleteDatasheetFile();
        m_dbIndex.DeleteRecord();
        if (!tags.Eof() && !tags.Bof())
            tags.MovePrevious();
    } catch (const Error& error) {
        if (error.number() == store::errors::noCurrentRecord)
            toolkit::showFailure(tr("Databse is empty, no record present"));
        else
            toolkit::showFailure(toolkit::formA(tr("Error while deleting data ."), error));
    }
}

/// A tag that is still being typed is no record: what is deleted is the row, and no other tag.
void TagEditing::dropNewTag()
{
    if (toolkit::askYesNo(tr("Are you sure you want to delete tag ") + tagCell() + u"?"_s))
        m_grid.cancelRow();
}

void TagEditing::DeleteDatasheetFile()
{
    QString path;
    try {
        const store::Recordset& tags = m_dbIndex.Recordset();
        const store::Value folder = tags.Field(fieldPath);
        const store::Value file = tags.Field(fieldFileName);
        if (folder.isNullOrEmpty() || file.isNullOrEmpty())
            return;
        path = toolkit::joinPath(folder.text(), file.text());
        toolkit::deleteFile(path);
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while deleting file ") + path + u"."_s, error));
    }
}

void TagEditing::beforeUpdate()
{
    m_moved.reset();
    try {
        clearEmptiedDatasheet();
        const store::Recordset& tags = m_dbIndex.Recordset();
        const bool isNew = tags.editMode() == EditMode::Add;
        const bool isRenamed = !isNew && tags.Field(fieldTag).text() != tagCell();
        if ((isNew || isRenamed) && CheckDuplicateTag())
            return;
        updateTiedData();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error while working in spreadsheet. "), error));
    }
}

/// Without its folder and file name a tag has no datasheet, and the next command makes one. An
/// empty text would still count as a place.
void TagEditing::clearEmptiedDatasheet()
{
    for (const int number : {column::datasheetPath, column::datasheetFileName}) {
        toolkit::DataGrid::Column cell = m_grid.Columns(number);
        if (const store::Value value = cell.Value(); !value.isNull() && value.isNullOrEmpty())
            cell.setValue({});
    }
}

void TagEditing::updateTiedData()
{
    m_links.UpdateDocCrossRefs();
    UpdateDatasheetFile();
}

bool TagEditing::CheckDuplicateTag()
{
    try {
        const auto same = m_dbIndex.Database().OpenRecordset(
            u"select * from qryIndex where Tag = '"_s + tagCell() + u"'"_s);
        return same->RecordCount() > 0;
    } catch (const Error& error) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while checking for duplicate tags. "), error));
        return true;
    }
}

void TagEditing::UpdateDatasheetFile()
{
    try {
        store::Recordset& tags = m_dbIndex.Recordset();
        const store::Value folder = tags.Field(fieldPath);
        const store::Value file = tags.Field(fieldFileName);
        if (folder.isNull() || file.isNull() || tags.Field(fieldTag).text() == tagCell())
            return;
        const QString oldPath = toolkit::joinPath(folder.text(), file.text());
        if (toolkit::fileExists(oldPath)) {
            moveDatasheetFile(oldPath);
        } else {
            tags.SetField(fieldPath, {});
            tags.SetField(fieldFileName, {});
        }
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while updating datasheet file. "), error));
    }
}

/// The record keeps its old folder, although the file now lies in the default one.
void TagEditing::moveDatasheetFile(const QString& oldPath)
{
    store::Recordset& tags = m_dbIndex.Recordset();
    const QString newName = datasheets::datasheetNameOf(tagCell());
    const QString newPath = toolkit::joinPath(m_links.FolderDatasheets(), newName);
    toolkit::moveFile(oldPath, newPath);
    m_moved = MovedFile{oldPath, newPath, tags.Field(fieldFileName).text()};
    tags.SetField(fieldFileName, newName);
}

/// The tag keeps its name, so its datasheet has to be found under the old one.
void TagEditing::moveDatasheetFileBack()
{
    if (!m_moved)
        return;
    const MovedFile moved = *std::exchange(m_moved, std::nullopt);
    try {
        toolkit::moveFile(moved.to, moved.from);
        m_dbIndex.Recordset().SetField(fieldFileName, moved.oldName);
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while updating datasheet file. "), error));
    }
}

void TagEditing::afterUpdate(bool& failed)
{
    if (failed) {
        moveDatasheetFileBack();
        toolkit::showFailure(tagCellIsEmpty()
                                 ? tr("Key field cannot be null")
                                 : tr("Record cannot be saved due to duplication of the key"));
        m_grid.Columns(column::tag).setValue(QString());
        failed = false;
        return;
    }
    store::Recordset& tags = m_dbIndex.Recordset();
    if (tags.RecordCount() > 0 && m_dbIndex.EditMode() == EditMode::None)
        tags.SetBookmark(tags.LastModified());
}

} // namespace ostrand::index
