// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Editing: the row buffer of a recordset and the three ways in which it reaches the file.
#include "store/recordset.h"
#include "store/row_source.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::store {

bool Recordset::Updatable() const
{
    requireOpen();
    return m_source->updatable();
}

void Recordset::requireUpdatable() const
{
    if (!Updatable())
        throw Error(errors::notUpdatable, u"The database or the query is read-only."_s);
}

void Recordset::checkWritable() const
{
    settle();
    requireUpdatable();
    if (m_place == Place::Deleted)
        throw Error(errors::recordDeleted, u"The record was deleted."_s);
    if (m_place != Place::At)
        throw Error(errors::noCurrentRecord, u"There is no current record."_s);
    // What is known of the row from before the look at the file is what the user saw.
    const Row* known = row(m_position);
    if (!known || !m_source->isStill(m_keys[static_cast<std::size_t>(m_position)], Row(*known)))
        throw Error(errors::recordDeleted, u"The record was deleted by another program."_s);
}

void Recordset::setEditMode(EditMode mode)
{
    m_changes.assign(mode == EditMode::None ? 0 : static_cast<std::size_t>(FieldCount()),
                     std::nullopt);
    if (m_editMode == mode)
        return;
    m_editMode = mode;
    if (m_observer)
        m_observer->editModeChanged();
}

void Recordset::AddNew()
{
    settle();
    requireUpdatable();
    setEditMode(EditMode::Add);
}

void Recordset::Edit()
{
    checkWritable();
    m_read = currentRow();
    setEditMode(EditMode::InProgress);
}

void Recordset::CancelUpdate()
{
    if (m_editMode != EditMode::None)
        setEditMode(EditMode::None);
}

void Recordset::Update()
{
    requireOpen();
    if (m_editMode == EditMode::None)
        throw Error(errors::updateWithoutEdit, u"The record is not being edited."_s);
    const auto before = m_changes;
    try {
        if (m_observer)
            m_observer->aboutToUpdate();
        store();
    } catch (...) {
        m_changes = before;
        throw;
    }
}

void Recordset::store()
{
    Changes changes;
    for (std::size_t i = 0; i < m_changes.size(); ++i) {
        if (m_changes[i])
            changes.emplace_back(static_cast<int>(i), *m_changes[i]);
    }
    if (m_editMode == EditMode::Add) {
        finishInsert(m_source->insert(changes));
        return;
    }
    const int position = m_position;
    const RowMark mark = markAt(position);
    m_source->update(mark.key, m_read, changes);
    m_lastModified = mark;
    setEditMode(EditMode::None);
    if (m_observer)
        m_observer->rowChanged(position);
}

/// The key of a row that another program deleted was given to a new one: the old row's place goes.
void Recordset::dropGhost(qint64 key)
{
    const auto found = std::find(m_keys.begin(), m_keys.end(), key);
    if (found == m_keys.end())
        return;
    const int position = static_cast<int>(found - m_keys.begin());
    m_keys.erase(found);
    m_visited = std::max(0, m_visited - (position < m_visited ? 1 : 0));
    if (m_place == Place::At && position == m_position)
        m_place = Place::Deleted;
    else if (position < m_position)
        --m_position;
    if (m_observer)
        m_observer->rowRemoved(position);
}

/// The new row takes the last place, whatever the order of the others.
void Recordset::finishInsert(qint64 key)
{
    // A key above all others belongs to no known row; a look through the keys at each insert would
    // make many inserts take the square of their number in time.
    const bool mayBeKnown = !m_highestKey || key <= *m_highestKey;
    if (mayBeKnown)
        dropGhost(key);
    const bool wasComplete = m_complete;
    if (!wasComplete)
        mergeAllKeys();
    if (mayBeKnown)
        std::erase(m_keys, key);
    if (!m_highestKey && !m_keys.empty())
        m_highestKey = *std::max_element(m_keys.begin(), m_keys.end());
    m_highestKey = std::max(m_highestKey.value_or(key), key);
    if (!wasComplete && m_observer)
        m_observer->keysRead();
    m_keys.push_back(key);
    ++m_visited;
    m_lastModified = RowMark{key};
    if (m_keys.size() == 1)
        m_place = Place::Behind;
    setEditMode(EditMode::None);
    if (m_observer)
        m_observer->rowInserted(static_cast<int>(m_keys.size()) - 1);
}

void Recordset::Delete()
{
    if (m_editMode == EditMode::Add)
        throw Error(errors::noCurrentRecord, u"The new record is not stored yet."_s);
    checkWritable();
    CancelUpdate();
    const int position = m_position;
    m_source->remove(m_keys[static_cast<std::size_t>(position)], Row(currentRow()));
    m_keys.erase(m_keys.begin() + position);
    m_visited = std::max(0, m_visited - (position < m_visited ? 1 : 0));
    m_place = m_keys.empty() ? Place::Behind : Place::Deleted;
    if (!m_observer)
        return;
    m_observer->rowRemoved(position);
    if (m_keys.empty())
        m_observer->currentChanged();
}

} // namespace ostrand::store
