// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The rows of a file's select that has no keys to keep them by.
#include "store/snapshot_source.h"

namespace ostrand::store {
namespace {

QStringList columnNames(const PreparedStatement& statement)
{
    QStringList names;
    for (int i = 0; i < statement.columnCount(); ++i)
        names << QString::fromUtf8(sqlite3_column_name(statement.handle(), i));
    return names;
}

class FixedSource final : public SnapshotSource
{
public:
    FixedSource(std::shared_ptr<Connection> connection,
                std::shared_ptr<Plan> plan,
                QStringList literals)
        : SnapshotSource(columnNames(*plan->prepared)),
          m_connection(std::move(connection)),
          m_plan(std::move(plan)),
          m_literals(std::move(literals))
    {
    }

    Meaning fieldMeaning(int index) override
    {
        return meaningOf(*m_connection, *m_plan->prepared, index);
    }

private:
    std::vector<Row> readRows() override
    {
        std::vector<Row> rows;
        PreparedStatement& statement = *m_plan->prepared;
        const PreparedStatement::Reset reset(statement);
        statement.bindAll(m_literals);
        while (statement.step()) {
            Row row;
            row.reserve(static_cast<std::size_t>(statement.columnCount()));
            for (int i = 0; i < statement.columnCount(); ++i)
                row.push_back(statement.column(i));
            rows.push_back(std::move(row));
        }
        return rows;
    }

    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<Plan> m_plan;
    QStringList m_literals;
};

} // namespace

std::unique_ptr<RowSource> makeFixedSource(std::shared_ptr<Connection> connection,
                                           std::shared_ptr<Plan> plan,
                                           const QStringList& literals)
{
    return std::make_unique<FixedSource>(std::move(connection), std::move(plan), literals);
}

} // namespace ostrand::store
