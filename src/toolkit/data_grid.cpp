// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/data_grid.h"

#include "toolkit/cell_editor.h"
#include "toolkit/column_header.h"
#include "toolkit/data_control.h"
#include "toolkit/data_drop_down.h"
#include "toolkit/grid_delegate.h"
#include "toolkit/grid_layout.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_reading.h"
#include "toolkit/grid_selection.h"
#include "toolkit/prompts.h"
#include "toolkit/record_header.h"
#include "toolkit/row_buffer.h"
#include "toolkit/twips.h"
#include "toolkit/value_list.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>

namespace ostrand::toolkit {

DataGrid::DataGrid(QWidget* parent)
    : QTableView(parent),
      m_reading(std::make_unique<GridReading>([this] { viewport()->update(); })),
      m_buffer(std::make_unique<RowBuffer>()),
      m_unbound(std::make_unique<UnboundCells>()),
      m_guests(std::make_unique<UnboundCells>()),
      m_model(new DataGridModel(*m_buffer, *m_unbound, *m_reading, this))
{
    makeHeaders();
    makeEditor();
    setModel(m_model);
    const std::unique_ptr<QItemSelectionModel> unused(selectionModel());
    m_selection = new GridSelection(
        m_model, this, [this](const QModelIndex& target) { return mayLeave(target); });
    setSelectionModel(m_selection);
    setItemDelegate(new GridDelegate(this));
    setAccessibleName(tr("Grid"));
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setWordWrap(false);
    setShowGrid(false); // the delegate draws the lines
    setTextElideMode(Qt::ElideRight);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(true);
    fitToFont();
    m_keyReading.setSingleShot(true);
    m_keyReading.setInterval(0);
    connect(&m_keyReading, &QTimer::timeout, this, &DataGrid::readAllKeys);
    m_actionTimer.setSingleShot(true);
    m_actionTimer.setInterval(0);
    connect(&m_actionTimer, &QTimer::timeout, this, &DataGrid::runNextAction);
}

DataGrid::~DataGrid()
{
    m_layout.reset();
    setDataControl(nullptr);
    m_editor->disconnect(this);
    m_list->disconnect(this);
}

void DataGrid::makeHeaders()
{
    m_columnHeader = new ColumnHeader(this);
    setHorizontalHeader(m_columnHeader);
    connect(m_columnHeader, &QHeaderView::sectionClicked, this, &DataGrid::headerClicked);
    m_recordHeader = new RecordHeader(this, [this](int row) { return markerOf(row); });
    setVerticalHeader(m_recordHeader);
    connect(m_recordHeader,
            &RecordHeader::rowPressed,
            this,
            [this](int row, Qt::KeyboardModifiers modifiers) {
                guarded([&] { pressRow(row, modifiers); });
            });
    connect(m_recordHeader, &RecordHeader::rowDraggedTo, this, [this](int row) {
        guarded([&] { selectRows(m_anchorRow, row, QItemSelectionModel::ClearAndSelect); });
    });
    connect(m_recordHeader,
            &RecordHeader::released,
            this,
            [this](Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint position) {
                const QPoint global = m_recordHeader->viewport()->mapToGlobal(position);
                guarded([&] {
                    Q_EMIT mouseReleased(button, modifiers, viewport()->mapFromGlobal(global));
                });
            });
}

void DataGrid::makeEditor()
{
    m_editor = new CellEditor(viewport());
    m_list = new ValueList(this);
    connectEditor();
    connect(m_list, &ValueList::picked, this, [this](const QString& value) {
        guarded([&] { pick(value); });
    });
}

void DataGrid::connectEditor()
{
    connect(m_editor, &CellEditor::changeStarted, this, [this] { guarded([&] { startRow(); }); });
    connect(m_editor, &CellEditor::gridKey, this, [this](QKeyEvent* event, bool& handled) {
        // A key whose handling failed is not for the line either.
        handled = true;
        guarded([&] { editorKey(event, handled); });
    });
    connect(m_editor, &CellEditor::keyTyped, this, [this](int& code) {
        guarded([&] { Q_EMIT keyTyped(code); });
    });
    connect(m_editor, &CellEditor::deletePressed, this, [this](bool& handled) {
        guarded([&] { Q_EMIT deletePressed(handled); });
    });
    connect(m_editor, &CellEditor::left, this, [this] { guarded([&] { acceptEditor(); }); });
    connect(m_editor, &QLineEdit::textEdited, this, [this](const QString& text) {
        scrollTo(m_editorCell);
        if (m_list->isVisible())
            m_list->filter(text);
    });
}

void DataGrid::guarded(const std::function<void()>& action)
{
    try {
        action();
    } catch (const store::Error& error) {
        tellFailure(error);
    }
}

void DataGrid::tellFailure(const store::Error& error)
{
    // The box has the grid painted, which is not to wait for the same file once more.
    if (error.number() == store::errors::locked)
        m_reading->noteFailure(true);
    showFailure(error.description());
}

/// Rows are as high as a line of text needs, columns keep their proportion to it.
void DataGrid::fitToFont()
{
    const double scale = fontScale(font());
    m_recordHeader->setMinimumSectionSize(1);
    m_recordHeader->setDefaultSectionSize(fontMetrics().height() + 2 * GridDelegate::frameWidth
                                          + qRound(4 * scale));
    for (int i = 0; i < ColumnCount(); ++i)
        setColumnWidth(i, qRound(columnWidth(i) * scale / m_fontScale));
    m_fontScale = scale;
}

void DataGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_recordHeader)
        fitToFont();
}

void DataGrid::setDataControl(DataControl* control)
{
    discardEditor();
    if (m_control) {
        m_control->disconnect(this);
        m_control->bindRow({}, {});
    }
    m_control = control;
    dropBuffer();
    m_unbound->clear();
    m_guests->clear();
    m_model->setDataControl(control);
    if (!control)
        return;
    control->bindRow([this] { writeRow(); }, [this] { return rowPending(); });
    connect(control, &DataControl::refreshed, this, &DataGrid::takeNewRecordset);
    connect(control, &DataControl::reposition, this, &DataGrid::followRecordset);
    connect(control, &DataControl::recordAboutToUpdate, this, &DataGrid::flushBuffer);
    connect(control, &DataControl::recordEditModeChanged, this, &DataGrid::followEditMode);
    connect(control, &DataControl::recordInserted, this, &DataGrid::takeInsertedRecord);
    connect(control, &DataControl::recordRemoved, this, &DataGrid::takeRemovedRecord);
    connect(control, &DataControl::recordChanged, this, &DataGrid::takeChangedRecord);
    connect(control, &DataControl::keysArrived, m_model, &DataGridModel::takeNewRecords);
    if (control->isOpen())
        takeNewRecordset();
}

void DataGrid::addColumn(const GridColumn& column)
{
    m_model->addColumn(column);
    setColumnWidth(ColumnCount() - 1, px(column.width, this));
}

int DataGrid::ColumnCount() const
{
    return m_model->columnCount();
}

DataGrid::Column DataGrid::Columns(int number)
{
    return {this, number};
}

int DataGrid::Col() const
{
    return currentIndex().column();
}

void DataGrid::setAllowAddNew(bool allow)
{
    m_model->setAllowAddNew(allow);
    followRecordset();
}

void DataGrid::setAllowDelete(bool allow)
{
    m_allowDelete = allow;
}

void DataGrid::copyCurrentCell() const
{
    const QModelIndex cell = currentIndex();
    if (cell.isValid())
        QGuiApplication::clipboard()->setText(m_model->text(cell));
}

void DataGrid::setSortMark(int column)
{
    m_columnHeader->setSortMark(column);
}

CellButton DataGrid::cellButton(int column) const
{
    if (const auto found = m_dropDowns.find(column); found != m_dropDowns.end() && found->second)
        return CellButton::Arrow;
    if (m_model->column(column).style == GridColumn::Style::TextWithButton)
        return CellButton::Dots;
    return CellButton::None;
}

bool DataGrid::isEditingHere() const
{
    return hasFocus() || m_editor->hasFocus();
}

void DataGrid::keepLayoutAs(const QString& key)
{
    m_layout.reset();
    m_layout = std::make_unique<GridLayout>(*m_columnHeader, key);
}

RecordMarker DataGrid::markerOf(int row) const
{
    try {
        if (m_model->isUnderEdit(row))
            return RecordMarker::Edited;
    } catch (const store::Error&) {
        return RecordMarker::None; // the recordset was closed
    }
    if (row == m_model->newRow())
        return RecordMarker::New;
    return row == currentIndex().row() ? RecordMarker::Current : RecordMarker::None;
}

} // namespace ostrand::toolkit
