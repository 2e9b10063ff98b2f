// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/data_control.h"

#include <utility>

namespace ostrand::toolkit {

namespace {

[[noreturn]] void raiseNotSet()
{
    throw store::Error(store::errors::objectNotSet,
                       DataControl::tr("The data control has no recordset yet."));
}

} // namespace

DataControl::DataControl(QObject* parent)
    : QObject(parent)
{
}

DataControl::~DataControl()
{
    if (m_recordset)
        m_recordset->setObserver(nullptr);
}

void DataControl::Refresh()
{
    if (isPending()) {
        throw store::Error(store::errors::refreshWhileEditing,
                           tr("The record cannot be refreshed while an edit is pending."));
    }
    const auto access =
        m_readOnly ? store::DBEngine::Access::ReadOnly : store::DBEngine::Access::ReadWrite;
    auto database =
        std::make_unique<store::Database>(store::DBEngine::OpenDatabase(m_databaseName, access));
    auto recordset = database->OpenRecordset(m_recordSource);
    // A grid reads at once: what fails there has to fail ahead of the exchange. Controls that
    // nobody looks at yet do not read.
    if (m_rowWriter)
        recordset->RecordCount();

    if (m_recordset)
        m_recordset->setObserver(nullptr);
    m_startError.reset();
    m_pendingError.reset();
    // The replaced recordset has to live until the bound controls have let go of its rows.
    const auto oldRecordset = std::exchange(m_recordset, std::move(recordset));
    const auto oldDatabase = std::exchange(m_database, std::move(database));
    m_recordset->setObserver(this);
    Q_EMIT refreshed();
    Q_EMIT reposition();
}

store::Recordset& DataControl::Recordset() const
{
    if (!m_recordset)
        raiseNotSet();
    return *m_recordset;
}

const store::Database& DataControl::Database() const
{
    if (!m_database)
        raiseNotSet();
    return *m_database;
}

bool DataControl::isOpen() const
{
    return m_recordset != nullptr;
}

store::EditMode DataControl::EditMode() const
{
    return m_recordset ? m_recordset->editMode() : store::EditMode::None;
}

bool DataControl::isPending() const
{
    return EditMode() != store::EditMode::None || (m_rowPending && m_rowPending());
}

void DataControl::UpdateRecord()
{
    if (!isPending()) {
        throw store::Error(store::errors::updateWithoutEdit, tr("No edit is pending."));
    }
    m_pendingError.reset();
    if (m_rowWriter) {
        m_rowWriter();
    } else {
        const bool adding = EditMode() == store::EditMode::Add;
        if (validateAction(adding ? Action::Add : Action::Update))
            Recordset().Update();
    }
    if (m_pendingError)
        throw store::Error(*m_pendingError);
}

void DataControl::DeleteRecord()
{
    if (validateAction(Action::Delete))
        Recordset().Delete();
    else if (m_pendingError)
        throw store::Error(*m_pendingError);
}

bool DataControl::validateAction(Action action)
{
    m_pendingError = standingError(action);
    bool save = true;
    Q_EMIT validate(action, save, m_pendingError);
    return save && !m_pendingError;
}

const std::optional<store::Error>& DataControl::pendingError() const
{
    return m_pendingError;
}

std::optional<store::Error> DataControl::standingError(Action action) const
{
    if (m_startError && action != Action::Delete)
        return m_startError;
    try {
        if (action != Action::Add) {
            Recordset().checkWritable();
        } else if (!Recordset().Updatable()) {
            return store::Error(store::errors::notUpdatable,
                                tr("The database or the query is read-only."));
        }
    } catch (const store::Error& error) {
        return error;
    }
    return std::nullopt;
}

bool DataControl::startEdit(Action action)
{
    m_startError.reset();
    try {
        if (action == Action::Add)
            Recordset().AddNew();
        else
            Recordset().Edit();
    } catch (const store::Error& error) {
        m_startError = error;
    }
    return !m_startError;
}

void DataControl::cancelEdit()
{
    m_startError.reset();
    if (EditMode() != store::EditMode::None)
        m_recordset->CancelUpdate();
}

void DataControl::bindRow(std::function<void()> writer, std::function<bool()> pending)
{
    m_rowWriter = std::move(writer);
    m_rowPending = std::move(pending);
}

void DataControl::currentChanged()
{
    Q_EMIT reposition();
}

void DataControl::aboutToUpdate()
{
    Q_EMIT recordAboutToUpdate();
}

void DataControl::editModeChanged()
{
    Q_EMIT recordEditModeChanged();
}

void DataControl::rowInserted(int position)
{
    Q_EMIT recordInserted(position);
}

void DataControl::rowRemoved(int position)
{
    Q_EMIT recordRemoved(position);
}

void DataControl::rowChanged(int position)
{
    Q_EMIT recordChanged(position);
}

void DataControl::keysRead()
{
    Q_EMIT keysArrived();
}

} // namespace ostrand::toolkit
