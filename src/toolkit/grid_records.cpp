// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// How a grid follows its recordset, and the recordset its grid.
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_selection.h"
#include "toolkit/record_header.h"
#include "toolkit/row_buffer.h"

#include <QPaintEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <set>

namespace ostrand::toolkit {

store::Recordset* DataGrid::recordset() const
{
    return m_control && m_control->isOpen() ? &m_control->Recordset() : nullptr;
}

void DataGrid::takeNewRecordset()
{
    discardEditor();
    m_buffer->clear();
    m_unbound->clear();
    m_guests->clear();
    m_deletedBefore = false;
    const int column = std::max(0, currentIndex().column());
    m_model->reload();
    m_selection->place(m_model->index(0, column));
    followRecordset();
    viewport()->update();
}

void DataGrid::followRecordset()
{
    store::Recordset* records = recordset();
    if (!records || m_starting)
        return;
    const int position = records->AbsolutePosition();
    const int column = std::max(0, currentIndex().column());
    if (position >= 0) {
        m_deletedBefore = false;
        m_model->takeNewRecords();
        if (m_buffer->isActive() && m_model->rowUnderEdit() != position)
            dropBuffer();
        m_selection->place(m_model->index(position, column));
    } else if (records->knownRows() == 0) {
        m_selection->place(m_model->index(0, column));
    } else if (m_deletedBefore && records->Bof()) {
        m_deletedBefore = false;
        records->MoveFirst();
    } else {
        QTimer::singleShot(0, this, &DataGrid::leaveDeletedPlace);
    }
}

/// The recordset stands on no record, after a deletion or behind the end: it comes back to the row
/// that the grid shows as the current one.
void DataGrid::leaveDeletedPlace()
{
    const store::Recordset* records = recordset();
    if (records && records->AbsolutePosition() < 0)
        standOnCurrentRow();
}

void DataGrid::standOnCurrentRow()
{
    store::Recordset* records = recordset();
    const int row = currentIndex().row();
    if (!records || m_following || rowPending() || !m_model->isRecord(row)
        || records->AbsolutePosition() == row)
        return;
    try {
        records->SetAbsolutePosition(row);
    } catch (const store::Error&) {
        // The row is not there any more; the next move of either finds its place.
        followRecordset();
    }
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    if (isEditorOpen() && m_editorCell != current)
        discardEditor();
    QTableView::currentChanged(current, previous);
    m_recordHeader->viewport()->update();
    standOnCurrentRow();
}

void DataGrid::followEditMode()
{
    const store::Recordset* records = recordset();
    if (!records || m_starting)
        return;
    switch (records->editMode()) {
    case store::EditMode::None:
        dropBuffer();
        return;
    case store::EditMode::Add:
        if (m_buffer->kind() != RowBuffer::Kind::Add) {
            dropBuffer();
            m_buffer->begin(RowBuffer::Kind::Add, {}, false);
        }
        break;
    case store::EditMode::InProgress:
        if (m_buffer->kind() != RowBuffer::Kind::Edit || m_buffer->mark() != records->Bookmark()) {
            dropBuffer();
            m_buffer->begin(RowBuffer::Kind::Edit, records->Bookmark(), false);
            pinRowUnderEdit();
        }
        break;
    }
    m_model->showRowAgain(m_model->rowUnderEdit());
}

/// Code may write the row by itself; what was typed or set in the grid goes along.
void DataGrid::flushBuffer()
{
    if (!m_writing)
        acceptEditor();
    store::Recordset* records = recordset();
    for (const auto& [column, value] : m_buffer->cells()) {
        if (m_model->fieldIndex(column) >= 0)
            records->SetField(m_model->fieldIndex(column), value);
    }
}

void DataGrid::takeInsertedRecord(int position)
{
    const QScopedValueRollback guard(m_following, true);
    const bool onNewRow = currentIndex().row() == m_model->newRow();
    m_model->insertRecord(position, !(m_writing && onNewRow));
}

void DataGrid::takeRemovedRecord(int position)
{
    m_deletedBefore = true;
    if (m_editorCell.row() == position)
        discardEditor();
    {
        const QScopedValueRollback guard(m_following, true);
        m_model->removeRecord(position);
    }
    m_recordHeader->viewport()->update();
    QTimer::singleShot(0, this, &DataGrid::leaveDeletedPlace);
}

void DataGrid::takeChangedRecord(int position)
{
    if (const auto mark = m_model->markOf(position)) {
        m_unbound->forget(*mark);
        m_guests->forget(*mark);
    }
    m_model->showRowAgain(position);
}

void DataGrid::readAllKeys()
{
    if (!recordset())
        return;
    try {
        recordset()->readAllKeys();
    } catch (const store::Error&) {
        // The rows known so far stay; the next scroll to their end tries again.
    }
}

// ---- unbound cells

void DataGrid::paintEvent(QPaintEvent* event)
{
    loadVisibleRows();
    QTableView::paintEvent(event);
}

void DataGrid::loadVisibleRows()
{
    store::Recordset* records = recordset();
    if (!records || m_loading > 0)
        return;
    const int known = std::min(m_model->recordCount(), records->knownRows());
    const int lowest = rowAt(viewport()->height() - 1);
    const int first = std::max(0, rowAt(0));
    const int last = (lowest < 0 ? known : std::min(lowest + 1, known)) - 1;
    std::set<qint64> shown;
    std::vector<store::RowMark> missing;
    for (int row = first; row <= last; ++row) {
        const store::RowMark mark = records->markAt(row);
        shown.insert(mark.key);
        if (!m_unbound->has(mark))
            missing.push_back(mark);
    }
    if (m_buffer->kind() == RowBuffer::Kind::Edit)
        shown.insert(m_buffer->mark().key);
    m_unbound->keepOnly(shown);
    loadRows(missing);
    if (last >= 0)
        records->visit(last);
    if (!records->allKeysRead())
        m_keyReading.start();
}

void DataGrid::loadRows(const std::vector<store::RowMark>& marks)
{
    if (marks.empty())
        return;
    try {
        const auto scope = m_control->Database().readScope();
        for (const store::RowMark mark : marks)
            loadRow(mark);
    } catch (const store::Error&) {
        // The file cannot be read just now. The cells stay empty until the rows come up again.
    }
}

void DataGrid::loadRow(store::RowMark mark)
{
    const QScopedValueRollback guard(m_loading, m_loading + 1);
    m_unbound->begin(mark);
    Q_EMIT rowLoaded(mark);
}

void DataGrid::pinRowUnderEdit()
{
    if (m_buffer->kind() == RowBuffer::Kind::Edit && !m_unbound->has(m_buffer->mark()))
        loadRow(m_buffer->mark());
}

void DataGrid::loadRowOnDemand(store::RowMark mark)
{
    if (m_unbound->has(mark) || m_guests->has(mark))
        return;
    const QScopedValueRollback guard(m_loading, m_loading + 1);
    m_guests->begin(mark);
    Q_EMIT rowLoaded(mark);
    QTimer::singleShot(0, this, [this] { m_guests->clear(); });
}

void DataGrid::runAfterLoading(std::function<void()> action)
{
    QTimer::singleShot(0, this, std::move(action));
}

} // namespace ostrand::toolkit
