// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The columns of a grid as windows address them.
#include "toolkit/cell_editor.h"
#include "toolkit/data_control.h"
#include "toolkit/data_drop_down.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_model.h"
#include "toolkit/row_buffer.h"

namespace ostrand::toolkit {

DataGrid::Column::Column(DataGrid* grid, int number)
    : m_grid(grid),
      m_number(number)
{
}

QString DataGrid::Column::Name() const
{
    return m_grid->m_model->column(m_number).name;
}

QString DataGrid::Column::Caption() const
{
    return m_grid->m_model->column(m_number).caption;
}

void DataGrid::Column::setCaption(const QString& caption)
{
    m_grid->m_model->setCaption(m_number, caption);
}

store::Value DataGrid::Column::Value() const
{
    return m_grid->columnValue(m_number);
}

void DataGrid::Column::setValue(const store::Value& value)
{
    m_grid->setColumnValue(m_number, value);
}

store::Value DataGrid::Column::CellValue(store::RowMark mark) const
{
    return m_grid->cellValue(m_number, mark);
}

void DataGrid::Column::setCellValue(store::RowMark mark, const store::Value& value)
{
    m_grid->setUnboundValue(m_number, mark, value);
}

void DataGrid::Column::setDropDown(DataDropDown* dropDown)
{
    m_grid->tieDropDown(m_number, dropDown);
}

store::Value DataGrid::columnValue(int column)
{
    // What is being typed counts already: a button reached by its mnemonic leaves the editor open.
    if (isEditorOpen() && m_editor->isChanged() && m_editorCell.column() == column)
        return m_editor->text();
    if (m_buffer->isActive())
        return m_model->editedValue(column);
    if (const auto mark = m_model->markOf(currentIndex().row()))
        return cellValue(column, *mark);
    return {};
}

void DataGrid::setColumnValue(int column, const store::Value& value)
{
    if (isEditorOpen() && m_editorCell.column() == column)
        discardEditor();
    if (!startRow())
        return;
    m_buffer->set(column, value);
    m_setByCode = true;
    m_model->showRowAgain(m_model->rowUnderEdit());
}

store::Value DataGrid::cellValue(int column, store::RowMark mark)
{
    const store::Recordset* records = recordset();
    const auto row = records ? records->positionOf(mark) : std::nullopt;
    if (!row)
        return {};
    if (m_model->isUnbound(column) && !m_unbound->has(mark) && !m_model->isUnderEdit(*row)) {
        loadRowOnDemand(mark);
        return m_guests->value(mark, column);
    }
    return m_model->value(*row, column);
}

void DataGrid::setUnboundValue(int column, store::RowMark mark, const store::Value& value)
{
    m_unbound->set(mark, column, value);
    m_guests->set(mark, column, value);
    // A row is mostly filled while the grid paints, which an update then would only repeat.
    if (m_loading == 0 && m_unbound->has(mark))
        viewport()->update();
}

void DataGrid::tieDropDown(int column, DataDropDown* dropDown)
{
    QPointer<DataDropDown>& tied = m_dropDowns[column];
    if (tied == dropDown)
        return;
    if (tied)
        tied->disconnect(this);
    tied = dropDown;
    if (dropDown) {
        connect(dropDown, &DataDropDown::valueSet, this, [this, column](const QString& text) {
            setColumnValue(column, text);
        });
    }
    viewport()->update();
}

} // namespace ostrand::toolkit
