// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The unbound cells of the rows in display: how they are loaded, and what follows the loading.
#include "toolkit/data_control.h"
#include "toolkit/data_grid.h"
#include "toolkit/grid_model.h"
#include "toolkit/grid_reading.h"
#include "toolkit/prompts.h"
#include "toolkit/row_buffer.h"

#include <QElapsedTimer>
#include <QPaintEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <set>

namespace ostrand::toolkit {

void DataGrid::paintEvent(QPaintEvent* event)
{
    loadVisibleRows();
    QTableView::paintEvent(event);
}

void DataGrid::loadVisibleRows()
{
    store::Recordset* records = recordset();
    if (records && m_loading == 0)
        m_reading->attempt([&] { showRowsOf(*records); });
}

void DataGrid::showRowsOf(store::Recordset& records)
{
    const int known = std::min(m_model->recordCount(), records.knownRows());
    const int lowest = rowAt(viewport()->height() - 1);
    const int first = std::max(0, rowAt(0));
    const int last = (lowest < 0 ? known : std::min(lowest + 1, known)) - 1;
    std::set<qint64> shown;
    std::vector<store::RowMark> missing;
    std::vector<store::RowMark> again;
    for (int row = first; row <= last; ++row) {
        const store::RowMark mark = records.markAt(row);
        shown.insert(mark.key);
        if (!m_unbound->isKnown(mark))
            missing.push_back(mark);
        else if (!m_unbound->has(mark) && !m_reading->isRetrying())
            again.push_back(mark);
    }
    if (m_buffer->kind() == RowBuffer::Kind::Edit)
        shown.insert(m_buffer->mark().key);
    m_unbound->keepOnly(shown);
    // Those that failed come last: they are not to keep the others waiting.
    missing.insert(missing.end(), again.begin(), again.end());
    loadRows(missing);
    if (last >= 0)
        records.visit(last);
    if (!records.allKeysRead())
        m_keyReading.start();
}

/// Loads the rows, until one is long in failing.
void DataGrid::loadRows(const std::vector<store::RowMark>& marks)
{
    if (marks.empty())
        return;
    const auto scope = m_control->Database().readScope();
    for (const store::RowMark mark : marks) {
        if (!m_reading->attempt([&] { loadRow(mark); }) && m_reading->isPaused())
            return;
    }
}

/// Loads the unbound cells of a row. Raises what kept them from being read.
void DataGrid::loadRow(store::RowMark mark)
{
    const bool isAgain = m_unbound->isKnown(mark);
    const std::size_t queued = m_actions.size();
    m_unbound->begin(mark);
    try {
        emitRowLoaded(mark);
    } catch (const store::Error&) {
        m_unbound->unload(mark);
        throw;
    }
    if (isAgain)
        m_actions.resize(std::min(queued, m_actions.size()));
    if (!m_unbound->has(mark)) {
        throw store::Error(store::errors::diskError,
                           tr("The record cannot be read in full just now."));
    }
}

void DataGrid::emitRowLoaded(store::RowMark mark)
{
    const QScopedValueRollback guard(m_loading, m_loading + 1);
    Q_EMIT rowLoaded(mark);
}

void DataGrid::loadingFailed(store::RowMark mark)
{
    m_unbound->unload(mark);
    m_guests->forget(mark);
}

/// Loads the row whose edit starts anew, as other programs may have changed what its cells show.
/// Gives what failed, if anything.
std::optional<store::Error> DataGrid::loadForEdit(store::RowMark mark)
{
    try {
        if (m_model->hasUnboundColumns()) {
            const auto scope = m_control->Database().readScope();
            loadRow(mark);
        }
    } catch (const store::Error& error) {
        return error;
    }
    return std::nullopt;
}

/// An edit that code began goes on without the unbound cells when they cannot be read; but they
/// have to be there when the row is written.
void DataGrid::pinRowUnderEdit()
{
    if (m_buffer->kind() == RowBuffer::Kind::Edit && loadForEdit(m_buffer->mark()))
        m_unbound->unload(m_buffer->mark());
}

bool DataGrid::isReadyToWrite()
{
    if (m_buffer->kind() != RowBuffer::Kind::Edit || m_unbound->has(m_buffer->mark())
        || !m_model->hasUnboundColumns())
        return true;
    const auto failure = loadForEdit(m_buffer->mark());
    if (failure)
        tellFailure(*failure);
    return !failure;
}

void DataGrid::loadRowOnDemand(store::RowMark mark)
{
    if (m_unbound->has(mark) || m_guests->has(mark))
        return;
    m_guests->begin(mark);
    try {
        emitRowLoaded(mark);
    } catch (const store::Error&) {
        m_guests->forget(mark);
        throw;
    }
    QTimer::singleShot(0, this, [this] { m_guests->clear(); });
}

// ---- what follows

void DataGrid::runAfterLoading(std::function<void()> action)
{
    m_actions.push_back(std::move(action));
    if (!m_acting)
        m_actionTimer.start();
}

void DataGrid::runNextAction()
{
    if (m_acting || m_actions.empty())
        return;
    const std::function<void()> action = std::move(m_actions.front());
    m_actions.pop_front();
    m_acting = true;
    // A window that the action opens may outlive the grid.
    const QPointer<DataGrid> self(this);
    try {
        action();
    } catch (const store::Error& error) {
        showFailure(error.description());
    }
    if (!self)
        return;
    m_acting = false;
    if (!m_actions.empty())
        m_actionTimer.start();
}

} // namespace ostrand::toolkit
