// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/keyed_plan.h"
#include "store/value.h"

#include <QString>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace ostrand::store {

using Row = std::vector<Value>;
/// Values to be written, by field index.
using Changes = std::vector<std::pair<int, Value>>;

/// Where the rows of a recordset come from and go to.
class RowSource
{
public:
    virtual ~RowSource() = default;

    virtual int fieldCount() const = 0;
    virtual QString fieldName(int index) const = 0;
    virtual bool updatable() const = 0;
    virtual bool fieldUpdatable(int index) const = 0;
    virtual Meaning fieldMeaning(int index) = 0;

    /// Reads the keys of the first rows; true when there are no others.
    virtual bool readFirstKeys(std::vector<qint64>& keys) = 0;
    virtual std::vector<qint64> readAllKeys() = 0;
    /// The row of keys[position], read with its neighbours where that saves work; nullptr when it
    /// is gone. The pointer holds until the next call.
    virtual const Row* row(const std::vector<qint64>& keys, int position) = 0;
    virtual std::vector<qint64> find(const QString& criterion) = 0;
    /// False when the row is gone from the file, or when another one has got its key.
    virtual bool isStill(qint64 key, const Row& row) = 0;

    virtual qint64 insert(const Changes& changes) = 0;
    /// Both raise 3167 when the row is not the one that was read.
    virtual void update(qint64 key, const Row& read, const Changes& changes) = 0;
    virtual void remove(qint64 key, const Row& read) = 0;
};

/// What the column of a select stands for, by the file's own list of its columns. Columns that are
/// reckoned, and files without such a list, tell nothing.
Meaning meaningOf(Connection& connection, const PreparedStatement& select, int column);

std::unique_ptr<RowSource> makeKeyedSource(std::shared_ptr<Connection> connection,
                                           std::shared_ptr<KeyedPlan> plan,
                                           const QStringList& literals,
                                           bool readOnly);
/// Rows that have no key: read once, and not to be changed.
std::unique_ptr<RowSource> makeFixedSource(std::shared_ptr<Connection> connection,
                                           std::shared_ptr<Plan> plan,
                                           const QStringList& literals);

} // namespace ostrand::store
