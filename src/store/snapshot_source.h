// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/row_source.h"

#include <QStringList>

namespace ostrand::store {

/// Rows that have no key: read once, and not to be changed. Where they come from is told by
/// `readRows`.
class SnapshotSource : public RowSource
{
public:
    explicit SnapshotSource(QStringList names);

    int fieldCount() const override { return static_cast<int>(m_names.size()); }
    QString fieldName(int index) const override { return m_names[index]; }
    bool updatable() const override { return false; }
    bool fieldUpdatable(int /*index*/) const override { return false; }

    bool readFirstKeys(std::vector<qint64>& keys) override;
    std::vector<qint64> readAllKeys() override;
    const Row* row(const std::vector<qint64>& keys, int position) override;
    /// Raises 3251.
    std::vector<qint64> find(const QString& criterion) override;
    bool isStill(qint64 /*key*/, const Row& /*row*/) override { return true; }
    /// These raise 3027.
    qint64 insert(const Changes& changes) override;
    void update(qint64 key, const Row& read, const Changes& changes) override;
    void remove(qint64 key, const Row& read) override;

private:
    virtual std::vector<Row> readRows() = 0;

    QStringList m_names;
    std::vector<Row> m_rows;
};

} // namespace ostrand::store
