// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The cell under edit: its editor, its list and its button.
#include "toolkit/cell_editor.h"
#include "toolkit/data_control.h"
#include "toolkit/data_drop_down.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_delegate.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_selection.h"
#include "toolkit/prompts.h"
#include "toolkit/row_buffer.h"
#include "toolkit/value_list.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace ostrand::toolkit {

namespace {

constexpr int backspaceCode = 8;

} // namespace

/// Opens the editor on the current cell with its text; false where there is nothing to edit.
bool DataGrid::openEditor()
{
    if (isEditorOpen())
        return true;
    if (!settleOtherRow())
        return false;
    const QModelIndex cell = currentIndex();
    if (!cell.isValid() || !recordset() || m_model->isGone(cell.row()))
        return false;
    const QString text = m_model->text(cell);
    scrollTo(cell);
    m_editorCell = cell;
    m_editor->start(text);
    placeEditor();
    m_editor->show();
    m_editor->setFocus();
    m_editor->deselect();
    m_editor->end(false);
    return true;
}

void DataGrid::placeEditor()
{
    if (!isEditorOpen())
        return;
    const QRect cell = visualRect(m_editorCell);
    constexpr int frame = GridDelegate::frameWidth;
    QRect place = cell.adjusted(frame, frame, -frame, -frame);
    if (cellButton(m_editorCell.column()) != CellButton::None)
        place.setRight(GridDelegate::buttonRect(cell).left() - 1);
    // The line brings two pixels of its own; the text is not to jump when it opens.
    constexpr int ownMargin = 2;
    const int margin = std::max(0, GridDelegate::textMargin(*this) - frame - ownMargin);
    m_editor->setTextMargins(margin, 0, 0, 0);
    m_editor->setGeometry(place);
}

void DataGrid::discardEditor()
{
    if (!isEditorOpen())
        return;
    const bool hadFocus = m_editor->hasFocus();
    m_editorCell = QPersistentModelIndex();
    m_list->hide();
    // Hiding a widget that has the focus would pass it on to the next one.
    if (hadFocus)
        setFocus();
    m_editor->hide();
    viewport()->update();
}

/// Closes the editor and takes its text over. False when the new value was refused.
bool DataGrid::acceptEditor()
{
    if (!isEditorOpen())
        return true;
    const int column = m_editorCell.column();
    const QString text = m_editor->text();
    const bool changed = m_editor->isChanged() && isNewText(m_editorCell, text);
    discardEditor();
    if (changed)
        return acceptValue(column, text);
    dropUnchangedRow();
    return true;
}

/// What was typed counts as new where the value before cannot be read: it is not to get lost.
bool DataGrid::isNewText(const QModelIndex& cell, const QString& text) const
{
    try {
        return m_model->value(cell.row(), cell.column()).text() != text;
    } catch (const store::Error&) {
        return true;
    }
}

bool DataGrid::acceptValue(int column, const store::Value& value)
{
    if (!startRow())
        return false;
    const store::Value* pending = m_buffer->cell(column);
    const std::optional<store::Value> before = pending ? std::optional(*pending) : std::nullopt;
    m_buffer->set(column, value);
    bool cancel = false;
    Q_EMIT beforeColumnUpdate(column, cancel);
    if (cancel && m_buffer->isActive()) {
        if (before)
            m_buffer->set(column, *before);
        else
            m_buffer->drop(column);
    }
    m_model->showRowAgain(m_model->rowUnderEdit());
    if (cancel)
        dropUnchangedRow();
    return !cancel;
}

// ---- keys on a cell with no editor open

void DataGrid::typeOnCell(const QKeyEvent& event)
{
    int code = characterOf(event);
    const int typed = code;
    Q_EMIT keyTyped(code);
    if (code == 0 || !openEditor())
        return;
    m_editor->selectAll();
    m_editor->type(code == typed ? event.text() : QString(QChar(code)));
}

void DataGrid::backspaceOnCell()
{
    m_setByCode = false;
    int code = backspaceCode;
    Q_EMIT keyTyped(code);
    if (code != 0 && !m_setByCode && openEditor())
        m_editor->empty();
}

void DataGrid::deleteOnCell()
{
    bool handled = false;
    Q_EMIT deletePressed(handled);
    const QModelIndex cell = currentIndex();
    if (handled || !cell.isValid())
        return;
    if (m_selection->hasSelection()) {
        DeleteSelected();
    } else if (settleOtherRow() && !m_model->isGone(cell.row())
               && !columnValue(cell.column()).isNullOrEmpty()) {
        acceptValue(cell.column(), QString());
    }
}

// ---- keys in the editor

void DataGrid::editorKey(QKeyEvent* event, bool& handled)
{
    handled = (m_list->isVisible() && listKey(event)) || leaveEditorKey(event);
}

bool DataGrid::listKey(QKeyEvent* event)
{
    const bool isAlt = event->modifiers().testFlag(Qt::AltModifier);
    if (!isAlt && m_list->moveBy(event->key()))
        return true;
    const QString value = m_list->highlighted();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_list->hide();
        if (value.isNull())
            return false;
        pick(value);
        return true;
    case Qt::Key_Escape:
    case Qt::Key_F4:
    case Qt::Key_Up:
    case Qt::Key_Down:
        m_list->hide();
        return true;
    default:
        return false;
    }
}

void DataGrid::pick(const QString& value)
{
    const QModelIndex cell = m_editorCell;
    if (!cell.isValid())
        return;
    const int column = cell.column();
    const bool same = !isNewText(cell, value);
    discardEditor();
    if (same || acceptValue(column, value))
        Q_EMIT dropDownPicked(column);
}

// ---- the button

void DataGrid::pressButton()
{
    const QModelIndex cell = currentIndex();
    if (!cell.isValid())
        return;
    if (cellButton(cell.column()) == CellButton::Arrow)
        dropList();
    else if (cellButton(cell.column()) == CellButton::Dots && settleOtherRow() && acceptEditor())
        Q_EMIT cellButtonClicked(cell.column());
}

void DataGrid::dropList()
{
    const QPointer<DataDropDown> dropDown = m_dropDowns[currentIndex().column()];
    if (!dropDown || !openEditor())
        return;
    const QStringList values = dropDown->values();
    if (const auto failure = dropDown->takeFailure())
        tellFailure(*failure);
    if (values.isEmpty() || !isEditorOpen())
        return;
    const QRect cell = visualRect(m_editorCell);
    m_list->drop(
        values, m_editor->text(), m_editor, {viewport()->mapToGlobal(cell.topLeft()), cell.size()});
    // What is typed next looks a value up, it does not go on with the one in the cell.
    if (m_editor->isChanged())
        m_list->filter(m_editor->text());
    else
        m_editor->selectAll();
}

} // namespace ostrand::toolkit
