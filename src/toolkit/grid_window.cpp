// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_window.h"

#include "toolkit/named.h"
#include "toolkit/prompts.h"
#include "toolkit/record_failure.h"
#include "toolkit/twips.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using ostrand::store::Error;

namespace ostrand::toolkit {
namespace {

constexpr int alreadyShown = 400;
constexpr int keyColumn = 0;
/// Left free around a window on a screen that is smaller than the design.
constexpr QSize screenMargin(40, 80);

} // namespace

GridWindow::GridWindow(Design design, QWidget* parent)
    : QDialog(parent),
      m_design(std::move(design)),
      m_grid(named(new DataGrid(this), m_design.grid)),
      m_records(named(new DataControl(this), m_design.dataControl))
{
    setObjectName(m_design.name);
    setWindowTitle(m_design.caption);
    setModal(true);
    m_records->setRecordSource(m_design.query);
    m_grid->setAccessibleName(m_design.gridCaption);
    for (const GridColumn& column : m_design.columns)
        m_grid->addColumn(column);
    m_grid->setAllowAddNew(true);
    // Rows are deleted by the command alone, which asks what the grid would not.
    m_grid->setAllowDelete(false);
    m_grid->setDataControl(m_records);
    m_grid->keepLayoutAs(m_design.grid);
    connectGrid();
    const QSize room = screen()->availableSize() - screenMargin;
    resize(
        QSize(px(m_design.size.width(), this), px(m_design.size.height(), this)).boundedTo(room));
    m_grid->setFocus();
}

void GridWindow::connectGrid()
{
    connect(m_grid, &DataGrid::headerClicked, this, &GridWindow::Sort);
    connect(m_grid, &DataGrid::beforeUpdate, this, &GridWindow::beforeUpdate);
    connect(m_grid, &DataGrid::afterUpdate, this, &GridWindow::afterUpdate);
    connect(m_records, &DataControl::validate, this, &GridWindow::validate);
}

void GridWindow::addButton(const QString& name,
                           const QString& caption,
                           std::function<void()> handler)
{
    auto* button = named(new QPushButton(caption, this), name);
    // Enter is for the grid.
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, std::move(handler));
    m_buttons.push_back(button);
}

void GridWindow::layOut()
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : m_buttons)
        row->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_grid, 1);
    layout->addLayout(row);
}

// ---- opening and closing

void GridWindow::showWindow()
{
    try {
        if (isVisible())
            throw Error(alreadyShown, tr("The window is shown already."));
        RefreshData();
        exec();
    } catch (const Error& error) {
        showFailure(formA(m_design.texts.showing, error));
    }
}

void GridWindow::RefreshData()
{
    try {
        load();
    } catch (const Error& error) {
        loadFailed(error);
    }
}

void GridWindow::loadFailed(const Error& error)
{
    showFailure(formB(m_design.texts.loading, error));
}

void GridWindow::Sort(int intColumn)
{
    const QString before = m_records->RecordSource();
    try {
        m_records->setRecordSource(sortedSource(m_grid->Columns(intColumn).Name()));
        m_records->Refresh();
        m_grid->setSortMark(intColumn);
    } catch (const Error& error) {
        m_records->setRecordSource(before);
        showFailure(formB(m_design.texts.sorting, error));
    }
}

QString GridWindow::sortedSource(const QString& column) const
{
    return u"select * from "_s + m_design.query + u" order by "_s + column;
}

void GridWindow::reject()
{
    if (m_grid->rowPending()) {
        m_grid->cancelRow();
        m_grid->setFocus();
    } else {
        close();
    }
}

/// A row that cannot be written keeps the window open: what was typed is not to get lost unseen.
void GridWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(settleRow());
}

bool GridWindow::settleRow()
{
    try {
        return m_grid->writeRow();
    } catch (const Error& error) {
        showFailure(formA(m_design.texts.saving, error));
        return false;
    }
}

// ---- commands

void GridWindow::saveRecord()
{
    try {
        m_records->UpdateRecord();
    } catch (const Error& error) {
        showFailure(formA(m_design.texts.saving, error));
    }
}

void GridWindow::deleteRecord()
{
    try {
        if (!isAdding() && !hasRecord())
            return;
        if (!askYesNo(deleteQuestion()))
            return;
        // A row that is still being typed is no record: what goes is the row, and no other record.
        if (isAdding())
            m_grid->cancelRow();
        else
            removeRecord();
    } catch (const Error& error) {
        showFailure(formA(m_design.texts.deleting, error));
    }
}

void GridWindow::removeRecord()
{
    aboutToDelete();
    m_records->DeleteRecord();
    store::Recordset& rows = m_records->Recordset();
    if (!rows.Eof() && !rows.Bof())
        rows.MovePrevious();
}

// ---- the row in hand

bool GridWindow::isAdding() const
{
    return m_records->EditMode() == store::EditMode::Add;
}

bool GridWindow::hasRecord() const
{
    if (!m_records->isOpen())
        return false;
    const store::Recordset& rows = m_records->Recordset();
    return !rows.Eof() && !rows.Bof() && m_grid->currentIndex().row() == rows.AbsolutePosition();
}

store::Value GridWindow::cell(int column) const
{
    return m_grid->Columns(column).Value();
}

QString GridWindow::textInHand(int column) const
{
    if (isAdding())
        return cell(column).text();
    const GridColumn& design = m_design.columns[static_cast<std::size_t>(column)];
    return m_records->Recordset().Field(design.field).text();
}

bool GridWindow::keyIsEmpty() const
{
    try {
        return cell(keyColumn).isNullOrEmpty();
    } catch (const Error&) {
        return false;
    }
}

// ---- writing a row

void GridWindow::beforeUpdate(bool& /*cancel*/)
{
    try {
        clearEmptyCells();
    } catch (const Error& error) {
        showFailure(formA(m_design.texts.writing, error));
    }
}

void GridWindow::clearEmptyCells()
{
    m_records->Recordset(); // raises where there is none
    for (int i = 0; i < m_grid->ColumnCount() && clearIfEmpty(i); ++i) {
    }
}

/// False when the cell could not be read, which was told.
bool GridWindow::clearIfEmpty(int column)
{
    try {
        const store::Value value = cell(column);
        if (!value.isNull() && value.isNullOrEmpty())
            m_grid->Columns(column).setValue({});
        return true;
    } catch (const Error& error) {
        showFailure(formA(m_design.texts.checking, error));
        return false;
    }
}

/// What has nothing to do with the key, a locked file or an unknown kind, is left to the grid,
/// which tells it in the engine's words.
void GridWindow::afterUpdate(bool& failed)
{
    if (!failed)
        return;
    if (keyIsEmpty())
        showFailure(m_design.texts.emptyKey);
    else if (m_grid->writeFailure()->number() == store::errors::duplicateKey)
        showFailure(m_design.texts.sameKey);
    else
        return;
    failed = false;
}

void GridWindow::validate(DataControl::Action action,
                          bool& save,
                          const std::optional<Error>& pending)
{
    tellRecordFailure(action, pending);
    if (!pending && action != DataControl::Action::Delete)
        checkRecord(save);
}

} // namespace ostrand::toolkit
