// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// How a grid follows its recordset, and the recordset its grid.
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_reading.h"
#include "toolkit/grid_selection.h"
#include "toolkit/record_header.h"
#include "toolkit/row_buffer.h"

#include <QScopedValueRollback>

#include <algorithm>

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
    try {
        followPosition(*records);
    } catch (const store::Error&) {
        // Whoever moved the recordset did so; the grid catches up with its next move.
    }
}

void DataGrid::followPosition(store::Recordset& records)
{
    const int position = records.AbsolutePosition();
    const int column = std::max(0, currentIndex().column());
    if (position >= 0) {
        m_deletedBefore = false;
        m_model->takeNewRecords();
        if (m_buffer->isActive() && m_model->rowUnderEdit() != position)
            dropBuffer();
        m_selection->place(m_model->index(position, column));
    } else if (records.knownRows() == 0) {
        m_selection->place(m_model->index(0, column));
    } else if (m_deletedBefore && records.Bof()) {
        m_deletedBefore = false;
        records.MoveFirst();
    } else {
        QTimer::singleShot(0, this, &DataGrid::leaveDeletedPlace);
    }
}

/// The recordset stands on no record, after a deletion or behind the end: it comes back to the row
/// that the grid shows as the current one.
void DataGrid::leaveDeletedPlace()
{
    m_reading->attempt([this] {
        const store::Recordset* records = recordset();
        if (records && records->AbsolutePosition() < 0)
            standOnCurrentRow();
    });
}

void DataGrid::standOnCurrentRow()
{
    store::Recordset* records = recordset();
    const int row = currentIndex().row();
    if (!records || m_following || rowPending() || !m_model->isRecord(row))
        return;
    try {
        if (records->AbsolutePosition() != row)
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
    if (!m_writing) {
        const QScopedValueRollback guard(m_writing, true);
        acceptEditor();
    }
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
    // When that fails the rows known so far stay; the next painting tries again.
    m_reading->attempt([this] { recordset()->readAllKeys(); });
}

} // namespace ostrand::toolkit
