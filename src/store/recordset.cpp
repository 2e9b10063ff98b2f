// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/recordset.h"

#include "store/collation.h"
#include "store/row_source.h"

#include <unordered_set>

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

[[noreturn]] void raiseNoCurrentRecord()
{
    throw Error(errors::noCurrentRecord, u"There is no current record."_s);
}

[[noreturn]] void raiseDeleted()
{
    throw Error(errors::recordDeleted, u"The record was deleted."_s);
}

} // namespace

Recordset::Recordset(std::unique_ptr<RowSource> source)
    : m_source(std::move(source))
{
}

Recordset::~Recordset() = default;

void Recordset::Close()
{
    m_editMode = EditMode::None;
    m_source.reset();
}

void Recordset::requireOpen() const
{
    if (!m_source)
        throw Error(errors::objectClosed, u"The recordset is closed."_s);
}

/// Reads the first keys when nobody has asked for anything yet.
void Recordset::settle() const
{
    requireOpen();
    if (m_place != Place::Unread)
        return;
    std::vector<qint64> keys;
    m_complete = m_source->readFirstKeys(keys);
    m_keys = std::move(keys);
    m_place = m_keys.empty() ? Place::Behind : Place::At;
    m_position = m_keys.empty() ? -1 : 0;
    m_visited = m_keys.empty() ? 0 : 1;
}

/// True when there is a row at the position; reads all keys when it is not known yet.
bool Recordset::ensureKnown(int position)
{
    settle();
    if (position >= static_cast<int>(m_keys.size()) && !m_complete)
        readAllKeys();
    return position < static_cast<int>(m_keys.size());
}

void Recordset::readAllKeys()
{
    settle();
    if (m_complete)
        return;
    mergeAllKeys();
    if (m_observer)
        m_observer->keysRead();
}

/// Rows known already keep their places; what else the file holds follows in its order.
void Recordset::mergeAllKeys()
{
    std::vector<qint64> all = m_source->readAllKeys();
    m_complete = true;
    const bool samePrefix =
        all.size() >= m_keys.size() && std::equal(m_keys.begin(), m_keys.end(), all.begin());
    if (samePrefix) {
        m_keys = std::move(all);
        return;
    }
    const std::unordered_set<qint64> known(m_keys.begin(), m_keys.end());
    for (const qint64 key : all) {
        if (!known.contains(key))
            m_keys.push_back(key);
    }
}

// ---- where it stands

bool Recordset::Eof() const
{
    settle();
    return m_keys.empty() || m_place == Place::Behind;
}

bool Recordset::Bof() const
{
    settle();
    return m_keys.empty() || m_place == Place::Before;
}

int Recordset::RecordCount() const
{
    settle();
    return m_visited;
}

int Recordset::AbsolutePosition() const
{
    settle();
    return m_place == Place::At ? m_position : -1;
}

void Recordset::SetAbsolutePosition(int position)
{
    if (position < 0 || !ensureKnown(position))
        throw Error(errors::invalidArgument, u"There is no record at this place."_s);
    moveTo(position);
}

RowMark Recordset::Bookmark() const
{
    settle();
    if (m_place != Place::At)
        raiseNoCurrentRecord();
    return markAt(m_position);
}

void Recordset::SetBookmark(RowMark mark)
{
    settle();
    auto position = positionOf(mark);
    if (!position && !m_complete) {
        readAllKeys();
        position = positionOf(mark);
    }
    if (!position)
        throw Error(errors::invalidBookmark, u"The bookmark marks no record."_s);
    moveTo(*position);
}

RowMark Recordset::LastModified() const
{
    if (!m_lastModified)
        raiseNoCurrentRecord();
    return *m_lastModified;
}

// ---- moving

void Recordset::moveTo(int position)
{
    stand(Place::At, position);
}

void Recordset::stand(Place place, int position)
{
    CancelUpdate();
    m_place = place;
    m_position = position;
    if (place == Place::At)
        m_visited = std::max(m_visited, position + 1);
    if (m_observer)
        m_observer->currentChanged();
}

void Recordset::MoveFirst()
{
    if (!ensureKnown(0))
        raiseNoCurrentRecord();
    moveTo(0);
}

void Recordset::MoveLast()
{
    settle();
    readAllKeys();
    if (m_keys.empty())
        raiseNoCurrentRecord();
    moveTo(knownRows() - 1);
}

void Recordset::MoveNext()
{
    settle();
    if (Eof())
        raiseNoCurrentRecord();
    const int next = m_place == Place::Before    ? 0
                     : m_place == Place::Deleted ? m_position
                                                 : m_position + 1;
    if (ensureKnown(next))
        moveTo(next);
    else
        stand(Place::Behind, -1);
}

void Recordset::MovePrevious()
{
    settle();
    if (Bof())
        raiseNoCurrentRecord();
    if (m_place == Place::Behind)
        readAllKeys();
    const int previous = (m_place == Place::Behind ? knownRows() : m_position) - 1;
    if (previous >= 0)
        moveTo(previous);
    else
        stand(Place::Before, -1);
}

void Recordset::FindFirst(const QString& criterion)
{
    settle();
    const std::vector<qint64> found = m_source->find(criterion);
    m_noMatch = true;
    if (found.empty())
        return;
    readAllKeys();
    const std::unordered_set<qint64> keys(found.begin(), found.end());
    const auto first =
        std::find_if(m_keys.begin(), m_keys.end(), [&](qint64 key) { return keys.contains(key); });
    if (first == m_keys.end())
        return;
    m_noMatch = false;
    moveTo(static_cast<int>(first - m_keys.begin()));
}

// ---- fields

int Recordset::FieldCount() const
{
    requireOpen();
    return m_source->fieldCount();
}

QString Recordset::FieldName(int index) const
{
    if (index < 0 || index >= FieldCount())
        throw Error(errors::itemNotFound, u"There is no field number %1."_s.arg(index));
    return m_source->fieldName(index);
}

int Recordset::FieldIndex(const QString& name) const
{
    for (int i = 0; i < FieldCount(); ++i) {
        if (m_source->fieldName(i) == name)
            return i;
    }
    for (int i = 0; i < FieldCount(); ++i) {
        if (sameText(m_source->fieldName(i), name))
            return i;
    }
    return -1;
}

const std::vector<Value>& Recordset::currentRow() const
{
    if (m_place == Place::Deleted)
        raiseDeleted();
    if (m_place != Place::At)
        raiseNoCurrentRecord();
    const Row* values = row(m_position);
    if (!values)
        raiseDeleted();
    return *values;
}

Value Recordset::Field(const QString& name) const
{
    const int index = FieldIndex(name);
    if (index < 0)
        throw Error(errors::itemNotFound, u"There is no field '%1'."_s.arg(name));
    return Field(index);
}

Meaning Recordset::FieldMeaning(int index) const
{
    requireOpen();
    return m_source->fieldMeaning(index);
}

Value Recordset::Field(int index) const
{
    settle();
    if (index < 0 || index >= FieldCount())
        throw Error(errors::itemNotFound, u"There is no field number %1."_s.arg(index));
    if (m_editMode != EditMode::None) {
        if (const auto& change = m_changes[static_cast<std::size_t>(index)])
            return *change;
        if (m_editMode == EditMode::Add)
            return {};
    }
    return currentRow()[static_cast<std::size_t>(index)];
}

void Recordset::SetField(const QString& name, const Value& value)
{
    const int index = FieldIndex(name);
    if (index < 0)
        throw Error(errors::itemNotFound, u"There is no field '%1'."_s.arg(name));
    SetField(index, value);
}

void Recordset::SetField(int index, const Value& value)
{
    if (m_editMode == EditMode::None)
        throw Error(errors::updateWithoutEdit, u"The record is not being edited."_s);
    if (!m_source->fieldUpdatable(index)) {
        throw Error(errors::fieldNotUpdatable,
                    u"The field '%1' cannot be changed."_s.arg(FieldName(index)));
    }
    m_changes[static_cast<std::size_t>(index)] = value;
}

// ---- rows beside the current one

int Recordset::knownRows() const
{
    settle();
    return static_cast<int>(m_keys.size());
}

bool Recordset::allKeysRead() const
{
    settle();
    return m_complete;
}

RowMark Recordset::markAt(int position) const
{
    if (position < 0 || position >= knownRows())
        raiseNoCurrentRecord();
    return {m_keys[static_cast<std::size_t>(position)]};
}

std::optional<int> Recordset::positionOf(RowMark mark) const
{
    const int count = knownRows();
    const auto at = [&](int position) { return m_keys[static_cast<std::size_t>(position)]; };
    // Marks are asked for row by row: the place is mostly near the last one.
    constexpr int near = 64;
    for (int i = std::max(0, m_hint - near); i < std::min(count, m_hint + near); ++i) {
        if (at(i) == mark.key) {
            m_hint = i;
            return i;
        }
    }
    const auto found = std::find(m_keys.begin(), m_keys.end(), mark.key);
    if (found == m_keys.end())
        return std::nullopt;
    m_hint = static_cast<int>(found - m_keys.begin());
    return m_hint;
}

const std::vector<Value>* Recordset::row(int position) const
{
    if (position < 0 || position >= knownRows())
        raiseNoCurrentRecord();
    return m_source->row(m_keys, position);
}

void Recordset::visit(int position)
{
    m_visited = std::max(m_visited, std::min(position + 1, knownRows()));
}

} // namespace ostrand::store
