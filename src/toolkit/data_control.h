// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/database.h"
#include "store/recordset.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace ostrand::toolkit {

/// A recordset that controls are bound to. Its settings take effect at `Refresh`; from then on it
/// tells the bound grid and the window of every change in the recordset, whoever makes it.
class DataControl final : public QObject, private store::RecordsetObserver
{
    Q_OBJECT

public:
    enum class Action { Add = 5, Update = 6, Delete = 7 };
    Q_ENUM(Action)

    explicit DataControl(QObject* parent = nullptr);
    ~DataControl() override;

    QString DatabaseName() const { return m_databaseName; }
    void setDatabaseName(const QString& path) { m_databaseName = path; }
    QString RecordSource() const { return m_recordSource; }
    /// A table, a stored query or a select statement.
    void setRecordSource(const QString& source) { m_recordSource = source; }
    void setReadOnly(bool readOnly) { m_readOnly = readOnly; }

    /// Opens the database and the record source anew, standing on the first record. Raises 444
    /// while an edit is pending, and what the engine refuses; after a failure everything is as it
    /// was, the old recordset included.
    void Refresh();

    /// The recordset and its database; both raise 91 before the first `Refresh`.
    store::Recordset& Recordset() const;
    const store::Database& Database() const;
    bool isOpen() const;
    store::EditMode EditMode() const;

    /// Writes the record under edit, through the bound grid's row steps where a grid is bound.
    /// Raises 3020 with no edit pending, and the error that stood when the control was to act.
    void UpdateRecord();

    /// Deletes the current record, through the validation. Raises the error that stood when the
    /// control was to act.
    void DeleteRecord();

    /// Runs the validation for an action: first looks whether the recordset could act at all, then
    /// raises the `validate` signal with the error found, if any. True when the action may go on.
    bool validateAction(Action action);
    /// The error that the last `validateAction` found, if any.
    const std::optional<store::Error>& pendingError() const;

    /// Starts an edit of the current record, or of a new one. A failure does not reach the caller,
    /// who is in the middle of a keystroke: it is kept, and stands as the pending error when the
    /// record is to be written. True when the recordset is in edit now.
    bool startEdit(Action action);
    /// Drops the edit, and the error kept by a failed start.
    void cancelEdit();

    /// The grid's way of writing its row, which takes the place of the plain
    /// `Recordset().Update()`, and its word whether a row is under edit there. Empty functions take
    /// the grid away.
    void bindRow(std::function<void()> writer, std::function<bool()> pending);

Q_SIGNALS:
    /// The recordset was replaced by a new one.
    void refreshed();
    /// The current record changed.
    void reposition();
    /// A record is about to be written or deleted: clear `save` to keep it from being so.
    void validate(ostrand::toolkit::DataControl::Action action,
                  bool& save,
                  const std::optional<ostrand::store::Error>& pending);
    void recordAboutToUpdate();
    void recordEditModeChanged();
    void recordInserted(int position);
    void recordRemoved(int position);
    void recordChanged(int position);
    void keysArrived();

private:
    bool isPending() const;
    std::optional<store::Error> standingError(Action action) const;

    void currentChanged() override;
    void aboutToUpdate() override;
    void editModeChanged() override;
    void rowInserted(int position) override;
    void rowRemoved(int position) override;
    void rowChanged(int position) override;
    void keysRead() override;

    QString m_databaseName;
    QString m_recordSource;
    bool m_readOnly = false;
    std::unique_ptr<store::Database> m_database;
    std::unique_ptr<store::Recordset> m_recordset;
    std::function<void()> m_rowWriter;
    std::function<bool()> m_rowPending;
    std::optional<store::Error> m_startError;
    std::optional<store::Error> m_pendingError;
};

} // namespace ostrand::toolkit
