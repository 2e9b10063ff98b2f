// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The row under edit: how it starts, is written and dropped.
#include "toolkit/cell_editor.h"
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_selection.h"
#include "toolkit/prompts.h"
#include "toolkit/record_header.h"
#include "toolkit/row_buffer.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <set>

namespace ostrand::toolkit {

namespace {

DataControl::Action actionOf(RowBuffer::Kind kind)
{
    return kind == RowBuffer::Kind::Add ? DataControl::Action::Add : DataControl::Action::Update;
}

} // namespace

bool DataGrid::rowPending() const
{
    return !isUnchanged()
           && (m_buffer->isActive()
               || (m_control && m_control->EditMode() != store::EditMode::None));
}

/// True for a row whose edit the user started, when every change was taken back again.
bool DataGrid::isUnchanged() const
{
    return m_buffer->startedByGrid() && m_buffer->cells().empty()
           && !(isEditorOpen() && m_editor->isChanged());
}

void DataGrid::dropUnchangedRow()
{
    if (isUnchanged() && !m_writing)
        cancelRow();
}

/// Begins an edit of the current row, where none is pending. True when there is a row under edit.
bool DataGrid::startRow()
{
    if (m_buffer->isActive())
        return true;
    const int row = currentIndex().row();
    const bool isNew = row >= 0 && row == m_model->newRow();
    const auto mark = m_model->markOf(row);
    if (!recordset() || (!isNew && !mark))
        return false;
    standOnCurrentRow();
    if (mark) {
        if (const auto failure = loadForEdit(*mark)) {
            discardEditor();
            tellFailure(*failure);
            return false;
        }
    }
    m_buffer->begin(isNew ? RowBuffer::Kind::Add : RowBuffer::Kind::Edit,
                    mark.value_or(store::RowMark()),
                    true);
    {
        const QScopedValueRollback guard(m_starting, true);
        m_control->startEdit(actionOf(m_buffer->kind()));
    }
    m_model->showRowAgain(row);
    m_recordHeader->viewport()->update();
    return true;
}

void DataGrid::dropBuffer()
{
    if (!m_buffer->isActive())
        return;
    if (!isEditorOpen() || m_editorCell.row() == m_model->rowUnderEdit())
        discardEditor();
    const int row = m_model->rowUnderEdit();
    m_buffer->clear();
    m_model->showRowAgain(row);
    m_recordHeader->viewport()->update();
}

void DataGrid::cancelRow()
{
    discardEditor();
    if (m_buffer->kind() == RowBuffer::Kind::Edit)
        m_unbound->expire(m_buffer->mark());
    if (m_control)
        m_control->cancelEdit();
    dropBuffer();
    viewport()->update();
}

bool DataGrid::mayLeave(const QModelIndex& target)
{
    bool may = false;
    guarded([&] { may = target.row() == currentIndex().row() ? acceptEditor() : leaveRow(); });
    return may;
}

bool DataGrid::leaveRow()
{
    if (!acceptEditor())
        return false;
    if (writeRow())
        return true;
    const int row = m_model->rowUnderEdit();
    if (row >= 0 && row != currentIndex().row())
        m_selection->place(m_model->index(row, std::max(0, currentIndex().column())));
    return false;
}

/// Code may have left a new record pending while the user stands on another row. It is written
/// before he edits that one; when it is refused, he is taken to it.
bool DataGrid::settleOtherRow()
{
    return !m_buffer->isActive() || m_model->isUnderEdit(currentIndex().row()) || leaveRow();
}

bool DataGrid::writeRow()
{
    if (m_writing || !acceptEditor())
        return false;
    // Every change was taken back again: there is nothing to write.
    dropUnchangedRow();
    if (!rowPending())
        return true;
    const QScopedValueRollback guard(m_writing, true);
    return writePendingRow();
}

bool DataGrid::writePendingRow()
{
    if (!isReadyToWrite())
        return false;
    // What kept the edit from starting, another program's lock perhaps, may be over.
    if (m_control->EditMode() == store::EditMode::None) {
        const QScopedValueRollback guard(m_starting, true);
        m_control->startEdit(actionOf(m_buffer->kind()));
    }
    bool cancel = false;
    Q_EMIT beforeUpdate(cancel);
    if (cancel || !rowPending())
        return !rowPending();
    if (!m_control->validateAction(actionOf(m_buffer->kind()))) {
        const int row = m_model->rowUnderEdit();
        if (!m_control->pendingError() && row >= 0)
            m_selection->place(m_model->index(row, 0));
        return false;
    }
    return storeRow();
}

bool DataGrid::storeRow()
{
    const bool adding = m_buffer->kind() == RowBuffer::Kind::Add;
    m_writeFailure = tryUpdate();
    // The grid stays on the row that was its new-record row, and takes the recordset there.
    const bool written = !m_writeFailure;
    if (written && adding)
        standOnCurrentRow();
    bool failed = !written;
    Q_EMIT afterUpdate(failed);
    if (!written && failed)
        showFailure(m_writeFailure->description());
    return written;
}

std::optional<store::Error> DataGrid::tryUpdate()
{
    try {
        m_control->Recordset().Update();
    } catch (const store::Error& error) {
        return error;
    }
    dropBuffer();
    return std::nullopt;
}

// ---- deleting

std::vector<store::RowMark> DataGrid::SelBookmarks() const
{
    std::set<int> seen;
    std::vector<store::RowMark> marks;
    for (const QItemSelectionRange& range : m_selection->selection()) {
        const int last = std::min(range.bottom(), m_model->recordCount() - 1);
        for (int row = range.top(); row <= last; ++row) {
            const auto mark = m_model->markOf(row);
            if (mark && seen.insert(row).second)
                marks.push_back(*mark);
        }
    }
    return marks;
}

void DataGrid::DeleteSelected()
{
    if (!m_allowDelete || !leaveRow())
        return;
    for (const store::RowMark mark : SelBookmarks())
        deleteRecord(mark);
}

void DataGrid::deleteRecord(store::RowMark mark)
{
    bool cancel = false;
    bool prompt = true;
    Q_EMIT beforeDelete(cancel, prompt);
    if (cancel || (prompt && !askYesNo(tr("Do you want to delete the selected record?"))))
        return;
    store::Recordset& records = m_control->Recordset();
    const bool onRecord = records.AbsolutePosition() >= 0;
    const store::RowMark current = onRecord ? records.Bookmark() : mark;
    records.SetBookmark(mark);
    const int position = records.AbsolutePosition();
    if (m_control->validateAction(DataControl::Action::Delete))
        records.Delete();
    // The user's own row stays the current one; when it was the one deleted, the next one is.
    if (const auto place = records.positionOf(current))
        records.SetAbsolutePosition(*place);
    else if (records.knownRows() > 0)
        records.SetAbsolutePosition(std::min(position, records.knownRows() - 1));
}

} // namespace ostrand::toolkit
