// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What others ask the main window for, and sorting.
#include "datasheets/datasheet_commands.h"
#include "index/frmIndex.h"
#include "index/index_columns.h"
#include "store/database.h"
#include "toolkit/data_grid.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::index {

QString frmIndex::ActiveTag() const
{
    if (!m_dbIndex->isOpen())
        return {};
    const store::Recordset& tags = m_dbIndex->Recordset();
    if (tags.Eof() || tags.Bof())
        return {};
    return tags.Field(u"Tag"_s).text();
}

QString frmIndex::FolderDatasheets() const
{
    return projectAttribute(u"DefaultDatasheetFolder"_s,
                            tr("Error while getting default datasheets folder. "));
}

QString frmIndex::FolderTemplates() const
{
    return projectAttribute(u"DefaultTemplateFolder"_s,
                            tr("Error while getting default template folder. "));
}

QString frmIndex::DatasheetLogoFile() const
{
    return projectAttribute(u"logo file"_s,
                            tr("Error while getting project datasheet logo file specification. "));
}

QString frmIndex::projectAttribute(const QString& name, const QString& failure) const
{
    try {
        const auto rows = m_dbIndex->Database().OpenRecordset(
            u"select attributeValue from qryProjectInfo where attributeName = '"_s + name
            + u"';"_s);
        return rows->Eof() ? QString() : rows->Field(u"attributeValue"_s).text();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(failure, error));
        return {};
    }
}

bool frmIndex::LocateDatasheetFile()
{
    return m_datasheets->LocateDatasheetFile();
}

void frmIndex::FindDatasheet()
{
    m_datasheets->FindDatasheet();
}

void frmIndex::setDatasheetFolder(const QString& folder)
{
    m_datasheets->setDatasheetFolder(folder);
}

void frmIndex::setDatasheetFileName(const QString& name)
{
    m_datasheets->setDatasheetFileName(name);
}

void frmIndex::Sort(int intColumn)
{
    try {
        if (isDocumentColumn(intColumn)) {
            toolkit::showNotice(tr("Spreadsheet cannot be sorted by document."));
            return;
        }
        if (intColumn == column::remarks) {
            toolkit::showNotice(tr("Spreadsheet cannot be sorted by remarks."));
            return;
        }
        m_dbIndex->setRecordSource(u"select * from qryIndex order by "_s
                                   + m_GridIndex->Columns(intColumn).Name());
        m_dbIndex->Refresh();
        m_GridIndex->setSortMark(intColumn);
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while sorting index spreadsheet. "), error));
    }
}

} // namespace ostrand::index
