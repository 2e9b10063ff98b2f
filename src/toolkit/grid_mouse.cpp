// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The mouse, and the selected rows.
#include "toolkit/data_grid.h"
#include "toolkit/grid_delegate.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_selection.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace ostrand::toolkit {

void DataGrid::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    guarded([&] { press(event); });
}

void DataGrid::press(const QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex cell = indexAt(position);
    m_pressedCell = cell;
    if (event->button() == Qt::LeftButton) {
        const bool onButton = cell.isValid() && cell == currentIndex()
                              && cellButton(cell.column()) != CellButton::None
                              && GridDelegate::buttonRect(visualRect(cell)).contains(position);
        clearRows();
        if (onButton)
            pressButton();
        else if (cell.isValid())
            m_selection->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
        else
            acceptEditor();
    } else if (event->button() == Qt::RightButton && cell.isValid()
               && !m_selection->hasSelection()) {
        m_selection->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    }
}

/// Cells are not selected by dragging over them.
void DataGrid::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
}

void DataGrid::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex cell = indexAt(position);
    guarded([&] {
        if (event->button() == Qt::LeftButton && cell.isValid() && cell == m_pressedCell)
            Q_EMIT clicked(cell);
        Q_EMIT mouseReleased(event->button(), event->modifiers(), position);
    });
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || cell != currentIndex()) {
        mousePressEvent(event);
        return;
    }
    const bool onButton =
        cellButton(cell.column()) != CellButton::None
        && GridDelegate::buttonRect(visualRect(cell)).contains(event->position().toPoint());
    guarded([&] {
        if (!onButton)
            openEditor();
        Q_EMIT doubleClicked(cell);
    });
}

void DataGrid::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard)
        return;
    guarded(
        [&] { Q_EMIT mouseReleased(Qt::RightButton, {}, visualRect(currentIndex()).center()); });
}

// ---- selected rows

QItemSelectionModel::SelectionFlags DataGrid::selectionCommand(const QModelIndex& /*index*/,
                                                               const QEvent* /*event*/) const
{
    return QItemSelectionModel::NoUpdate;
}

void DataGrid::pressRow(int row, Qt::KeyboardModifiers modifiers)
{
    setFocus();
    const int scrolled = horizontalScrollBar()->value();
    m_selection->setCurrentIndex(m_model->index(row, std::max(0, currentIndex().column())),
                                 QItemSelectionModel::NoUpdate);
    horizontalScrollBar()->setValue(scrolled);
    if (currentIndex().row() != row)
        return;
    if (modifiers.testFlag(Qt::ShiftModifier) && m_selection->hasSelection()) {
        selectRows(m_anchorRow, row, QItemSelectionModel::ClearAndSelect);
        return;
    }
    m_anchorRow = row;
    const bool toggle = modifiers.testFlag(Qt::ControlModifier);
    selectRows(
        row, row, toggle ? QItemSelectionModel::Toggle : QItemSelectionModel::ClearAndSelect);
}

/// Selects whole rows; the new-record row is none.
void DataGrid::selectRows(int from, int to, QItemSelectionModel::SelectionFlags command)
{
    const int last = m_model->recordCount() - 1;
    const int top = std::max(0, std::min(from, to));
    const int bottom = std::min(std::max(from, to), last);
    if (bottom < top) {
        if (command.testFlag(QItemSelectionModel::Clear))
            clearRows();
        return;
    }
    const QItemSelection rows(m_model->index(top, 0),
                              m_model->index(bottom, m_model->columnCount() - 1));
    m_selection->select(rows, command);
}

void DataGrid::clearRows()
{
    if (m_selection->hasSelection())
        m_selection->clearSelection();
}

void DataGrid::selectAll()
{
    readAllKeys();
    m_anchorRow = 0;
    selectRows(0, m_model->recordCount() - 1, QItemSelectionModel::ClearAndSelect);
}

} // namespace ostrand::toolkit
