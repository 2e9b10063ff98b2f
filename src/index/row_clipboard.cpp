// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/row_clipboard.h"

#include "index/index_columns.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/busy_pointer.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/file_system.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;
using ostrand::store::EditMode;
using ostrand::store::Error;
using ostrand::store::Value;

namespace ostrand::index {
namespace {

const QString copyPrefix = u"Copy of "_s;

QString keyOf(int column)
{
    return QString::number(column);
}

} // namespace

RowClipboard::RowClipboard(toolkit::DataGrid& grid, toolkit::DataControl& dbIndex, QObject* parent)
    : QObject(parent),
      m_grid(grid),
      m_dbIndex(dbIndex)
{
}

void RowClipboard::CopyRows()
{
    try {
        const toolkit::BusyPointer busy;
        m_copiedRows.emplace();
        const auto scope = m_dbIndex.Database().readScope();
        for (const store::RowMark mark : m_grid.SelBookmarks())
            copyRow(mark);
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error copying records into buffer."), error));
    }
}

void RowClipboard::copyRow(store::RowMark mark)
{
    const store::Recordset& tags = m_dbIndex.Recordset();
    const auto position = tags.positionOf(mark);
    if (!position || !tags.row(*position)) {
        throw Error(store::errors::recordDeleted, u"The record was deleted by another program."_s);
    }
    CRows row;
    for (int column = 0; column < m_grid.ColumnCount(); ++column)
        row.GetRowCollection()->Add(m_grid.Columns(column).CellValue(mark), keyOf(column));
    m_copiedRows->push_back(std::move(row));
}

void RowClipboard::PasteRows()
{
    try {
        if (!m_copiedRows)
            throw Error(store::errors::objectNotSet, u"Object variable not set"_s);
        if (m_copiedRows->empty() || !settleRow())
            return;
        for (const CRows& row : *m_copiedRows)
            pasteRow(row);
    } catch (const Error& error) {
        if (m_dbIndex.isOpen() && m_dbIndex.EditMode() == EditMode::Add)
            m_failedRow = pendingValues();
        toolkit::showFailure(toolkit::formA(tr("Error pasting records from buffer."), error));
    }
}

/// Writes a row that the user is typing, which the first new record would drop. The row of a paste
/// that failed is no such one, as long as nobody changes it. False when the row is refused.
bool RowClipboard::settleRow()
{
    const auto failed = std::exchange(m_failedRow, std::nullopt);
    const bool isLeftOver =
        failed && m_dbIndex.EditMode() == EditMode::Add && *failed == pendingValues();
    return isLeftOver || m_grid.writeRow();
}

std::vector<Value> RowClipboard::pendingValues()
{
    std::vector<Value> values;
    values.reserve(static_cast<std::size_t>(m_grid.ColumnCount()));
    for (int column = 0; column < m_grid.ColumnCount(); ++column)
        values.push_back(m_grid.Columns(column).Value());
    return values;
}

void RowClipboard::pasteRow(const CRows& row)
{
    const RowCollection* items = row.GetRowCollection();
    if (!items)
        throw Error(store::errors::objectNotSet, u"Object variable not set"_s);
    store::Recordset& tags = m_dbIndex.Recordset();
    tags.AddNew();
    m_grid.Columns(column::tag)
        .setValue(QString(copyPrefix + items->Item(keyOf(column::tag)).text()));
    for (int number = column::tag + 1; number < m_grid.ColumnCount(); ++number)
        m_grid.Columns(number).setValue(items->Item(keyOf(number)));
    m_grid.Columns(column::datasheetFileName).setValue(QString());
    pasteDatasheet(items->Item(keyOf(column::datasheetPath)),
                   items->Item(keyOf(column::datasheetFileName)));
    const toolkit::BusyPointer busy;
    tags.Update();
}

void RowClipboard::pasteDatasheet(const Value& folder, const Value& name)
{
    if (folder.isNullOrEmpty() || name.isNullOrEmpty())
        return;
    const QString source = toolkit::joinPath(folder.text(), name.text());
    const QString copy = copyPrefix + name.text();
    if (toolkit::fileExists(source)) {
        const toolkit::BusyPointer busy;
        toolkit::copyFile(source, toolkit::joinPath(folder.text(), copy));
        m_grid.Columns(column::datasheetFileName).setValue(copy);
        return;
    }
    toolkit::showNotice(tr("Could copy file ") + source
                        + tr(". File doesn't exist or has been moved."));
    m_grid.Columns(column::datasheetPath).setValue(QString());
    m_grid.Columns(column::datasheetFileName).setValue(QString());
}

void RowClipboard::DeleteRows()
{
    try {
        if (!m_grid.SelBookmarks().empty())
            m_grid.DeleteSelected();
    } catch (const Error& error) {
        toolkit::showFailure(toolkit::formA(tr("Error deleting multiple records."), error));
    }
}

} // namespace ostrand::index
