// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The keyboard: moving about, and which key does what.
#include "toolkit/cell_editor.h"
#include "toolkit/column_header.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_selection.h"
#include "toolkit/record_header.h"
#include "toolkit/row_buffer.h"
#include "toolkit/value_list.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace ostrand::toolkit {

namespace {

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool moves(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

bool dropsList(const QKeyEvent& event)
{
    return event.key() == Qt::Key_F4
           || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
}

} // namespace

void DataGrid::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    guarded([&] {
        if (commandKey(event) || moveKey(event))
            return;
        if (characterOf(*event) != 0)
            typeOnCell(*event);
        else
            event->ignore();
    });
}

bool DataGrid::commandKey(QKeyEvent* event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const int key = event->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        tabKey(event);
    } else if (isEnter(key)) {
        enterKey(event);
    } else if (dropsList(*event)) {
        pressButton();
    } else if (key == Qt::Key_Escape) {
        event->setAccepted(rowPending());
        cancelRow();
    } else if (key == Qt::Key_F2 && modifiers == Qt::NoModifier) {
        openEditor();
    } else if (key == Qt::Key_Backspace && modifiers == Qt::NoModifier) {
        backspaceOnCell();
    } else if (key == Qt::Key_Delete && modifiers == Qt::NoModifier) {
        deleteOnCell();
    } else if (key == Qt::Key_Space && modifiers == Qt::ShiftModifier) {
        m_anchorRow = currentIndex().row();
        selectRows(m_anchorRow, m_anchorRow, QItemSelectionModel::ClearAndSelect);
    } else if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
    } else {
        return false;
    }
    return true;
}

/// Keys that take over what was typed and leave the cell. Escape leaves it as it was.
bool DataGrid::leaveEditorKey(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Escape) {
        discardEditor();
        dropUnchangedRow();
        return true;
    }
    if (dropsList(*event)) {
        pressButton();
        return true;
    }
    if (isEnter(key) && event->modifiers().testFlag(Qt::ControlModifier)) {
        enterKey(event);
        return true;
    }
    const bool leaves = isEnter(key) || key == Qt::Key_Tab || key == Qt::Key_Backtab
                        || key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
                        || key == Qt::Key_PageDown;
    if (!leaves)
        return key == Qt::Key_F2;
    if (acceptEditor() && !commandKey(event))
        moveKey(event);
    return true;
}

void DataGrid::tabKey(QKeyEvent* event)
{
    const bool back =
        event->key() == Qt::Key_Backtab || event->modifiers().testFlag(Qt::ShiftModifier);
    const bool leavesGrid = event->modifiers().testFlag(Qt::ControlModifier);
    // The table view's own handling would step through cells once more.
    if (leavesGrid || !stepCells(back ? -1 : 1))
        QAbstractScrollArea::focusNextPrevChild(!back); // NOLINT(bugprone-parent-virtual-call)
}

void DataGrid::enterKey(QKeyEvent* event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier))
        pressButton();
    else
        stepRows(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
}

bool DataGrid::moveKey(QKeyEvent* event)
{
    // Any other key, such as the first of a shortcut, leaves the selected rows alone.
    if (event->modifiers().testFlag(Qt::AltModifier) || !moves(event->key()))
        return false;
    const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    const bool extend =
        event->modifiers().testFlag(Qt::ShiftModifier) && m_selection->hasSelection();
    const int row = currentIndex().row();
    const int lastPlace = m_model->columnCount() - 1;
    if (ctrl && (event->key() == Qt::Key_End || event->key() == Qt::Key_Down))
        readAllKeys();
    const int lastRecord = std::max(0, m_model->recordCount() - 1);
    if (!extend)
        clearRows();
    switch (event->key()) {
    case Qt::Key_Up:
        ctrl ? goTo(0, place()) : stepRows(-1);
        break;
    case Qt::Key_Down:
        ctrl ? goTo(lastRecord, place()) : stepRows(1);
        break;
    case Qt::Key_PageUp:
        stepRows(-pageRows());
        break;
    case Qt::Key_PageDown:
        stepRows(pageRows());
        break;
    case Qt::Key_Left:
        goTo(row, ctrl ? 0 : place() - 1);
        break;
    case Qt::Key_Right:
        goTo(row, ctrl ? lastPlace : place() + 1);
        break;
    case Qt::Key_Home:
        goTo(ctrl ? 0 : row, 0);
        break;
    case Qt::Key_End:
        goTo(ctrl ? lastRecord : row, lastPlace);
        break;
    default:
        break;
    }
    if (extend)
        selectRows(m_anchorRow, currentIndex().row(), QItemSelectionModel::ClearAndSelect);
    return true;
}

/// The current column's place among the columns as they are shown.
int DataGrid::place() const
{
    return std::max(0, m_columnHeader->visualIndex(currentIndex().column()));
}

int DataGrid::pageRows() const
{
    return std::max(1,
                    viewport()->height() / std::max(1, m_recordHeader->defaultSectionSize()) - 1);
}

void DataGrid::goTo(int row, int place)
{
    if (m_model->columnCount() == 0)
        return;
    if (row >= m_model->recordCount())
        readAllKeys();
    const int column =
        m_columnHeader->logicalIndex(std::clamp(place, 0, m_model->columnCount() - 1));
    const int nearest = std::clamp(row, 0, std::max(0, m_model->rowCount() - 1));
    m_selection->setCurrentIndex(m_model->index(nearest, column), QItemSelectionModel::NoUpdate);
}

void DataGrid::stepRows(int rows)
{
    // Only when the new record is written there is a row behind it.
    const int row = currentIndex().row();
    if (rows > 0 && row == m_model->newRow() && !leaveRow())
        return;
    goTo(row + rows, place());
}

/// Moves to the next or the last cell, from row to row. False at either end of the grid.
bool DataGrid::stepCells(int step)
{
    clearRows();
    const int next = place() + step;
    const int row = currentIndex().row();
    if (next >= 0 && next < m_model->columnCount()) {
        goTo(row, next);
        return true;
    }
    if (step < 0 && row <= 0)
        return false;
    if (step > 0 && row >= m_model->recordCount() - 1) {
        readAllKeys();
        const bool wasPending = rowPending();
        if (row == m_model->newRow() && !leaveRow())
            return true;
        if (row + 1 >= m_model->rowCount())
            return wasPending;
    }
    goTo(row + step, step > 0 ? 0 : m_model->columnCount() - 1);
    return true;
}

void DataGrid::inputMethodEvent(QInputMethodEvent* event)
{
    guarded([&] {
        if (!isEditorOpen()) {
            if (!openEditor())
                return;
            m_editor->selectAll();
        }
        QCoreApplication::sendEvent(m_editor, event);
    });
}

// ---- the view's own business

void DataGrid::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    viewport()->update();
}

void DataGrid::focusOutEvent(QFocusEvent* event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void DataGrid::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    placeEditor();
}

void DataGrid::updateGeometries()
{
    QTableView::updateGeometries();
    if (m_editor)
        placeEditor();
}

} // namespace ostrand::toolkit
