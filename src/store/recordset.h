// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "store/value.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace ostrand::store {

class RowSource;

/// Marks one row of a recordset as long as the recordset lives, wherever it moves.
struct RowMark
{
    qint64 key = 0;
    bool operator==(const RowMark&) const = default;
};

/// Told of what happens in a recordset, whoever does it. Positions count from 0.
class RecordsetObserver
{
public:
    virtual ~RecordsetObserver() = default;
    /// Another row became the current one, or none is.
    virtual void currentChanged() {}
    /// `Update` is about to write: the last chance to set fields of the row under edit.
    virtual void aboutToUpdate() {}
    virtual void editModeChanged() {}
    virtual void rowInserted(int /*position*/) {}
    virtual void rowRemoved(int /*position*/) {}
    virtual void rowChanged(int /*position*/) {}
    /// More keys were read from the file: rows up to `knownRows()` can be asked for.
    virtual void keysRead() {}
};

enum class EditMode { None = 0, InProgress = 1, Add = 2 };

/// The rows of a select statement, one of them current, with the meaning of the DAO object of the
/// same name. The rows' keys are read when they are first needed and then stay, so that rows keep
/// their places; the rows' values are read in windows around the place asked for.
class Recordset
{
public:
    explicit Recordset(std::unique_ptr<RowSource> source);
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    // ---- where it stands
    /// Named `EOF` and `BOF` elsewhere; those names belong to <cstdio>.
    bool Eof() const;
    bool Bof() const;
    /// Rows visited so far: the furthest place that was current or was shown, and all rows once
    /// `MoveLast` ran.
    int RecordCount() const;
    /// The current place, counted from 0; -1 with no current record.
    int AbsolutePosition() const;
    /// Raises 3001 where no such row is.
    void SetAbsolutePosition(int position);
    RowMark Bookmark() const;       ///< raises 3021 with no current record
    void SetBookmark(RowMark mark); ///< raises 3159 for a mark of no row
    /// The row last added or changed; raises 3021 when there was none.
    RowMark LastModified() const;

    // ---- moving; each drops a pending edit, as in DAO
    void MoveFirst();
    void MoveLast();
    void MoveNext();     ///< raises 3021 at the end
    void MovePrevious(); ///< raises 3021 at the beginning
    /// Makes the first row that meets the criterion current; none sets `NoMatch` and stays.
    void FindFirst(const QString& criterion);
    bool NoMatch() const { return m_noMatch; }

    // ---- fields of the current row, or of the row under edit
    int FieldCount() const;
    QString FieldName(int index) const;
    /// The index of a field by its name in any case, or -1.
    int FieldIndex(const QString& name) const;
    /// Raises 3265 for an unknown name, 3021 with no current record, 3167 when another program
    /// deleted it.
    Value Field(const QString& name) const;
    Value Field(int index) const;
    /// What a field's values stand for, by the type that its column was declared with.
    Meaning FieldMeaning(int index) const;
    /// Raises 3020 outside an edit, 3164 for a field that cannot be written.
    void SetField(const QString& name, const Value& value);
    void SetField(int index, const Value& value);

    // ---- editing
    bool Updatable() const;
    EditMode editMode() const { return m_editMode; }
    void AddNew();
    void Edit();
    /// Writes the row under edit. On failure the edit stays pending, with the values that it had
    /// before the observer was asked for more. A new row takes the last
    /// place; the current row stays as before `AddNew`, and `LastModified` marks the new one.
    void Update();
    void CancelUpdate();
    /// Raises 3021 while a new row is pending: it is no record yet.
    void Delete();
    void Close();

    // ---- rows beside the current one, for grids
    /// Rows whose keys are read; all of them when `allKeysRead()`.
    int knownRows() const;
    bool allKeysRead() const;
    void readAllKeys();
    RowMark markAt(int position) const;
    std::optional<int> positionOf(RowMark mark) const;
    /// The stored values of a row in field order, or nothing when the row is gone from the file.
    /// The reference holds until the next call.
    const std::vector<Value>* row(int position) const;
    /// Counts rows up to `position` as visited.
    void visit(int position);
    /// Raises what an edit or deletion of the current row would fail with: 3027, 3021, 3167.
    void checkWritable() const;

    /// One observer at most; nullptr takes it away.
    void setObserver(RecordsetObserver* observer) { m_observer = observer; }

private:
    /// Where the recordset stands: on a row, before the first, behind the last, or on a row that
    /// it deleted itself (`m_position` is then the place of the row that followed).
    enum class Place { Unread, At, Before, Behind, Deleted };

    void settle() const;
    bool ensureKnown(int position);
    void mergeAllKeys();
    void moveTo(int position);
    void stand(Place place, int position);
    const std::vector<Value>& currentRow() const;
    void requireUpdatable() const;
    void requireOpen() const;
    void setEditMode(EditMode mode);
    void store();
    void finishInsert(qint64 key);
    void dropGhost(qint64 key);

    std::unique_ptr<RowSource> m_source;
    RecordsetObserver* m_observer = nullptr;
    mutable std::vector<qint64> m_keys;
    std::optional<qint64> m_highestKey; ///< no known key is above it; kept from the first insert on
    mutable bool m_complete = false;
    mutable Place m_place = Place::Unread;
    mutable int m_position = -1;
    mutable int m_visited = 0;
    mutable int m_hint = 0;
    EditMode m_editMode = EditMode::None;
    std::vector<std::optional<Value>> m_changes; ///< by field, while an edit is pending
    std::vector<Value> m_read;                   ///< the row under edit as it was read
    std::optional<RowMark> m_lastModified;
    bool m_noMatch = false;
};

} // namespace ostrand::store
