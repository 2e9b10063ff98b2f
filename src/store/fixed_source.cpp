// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The rows of a select that has no keys to keep them by: read once and not to be changed.
#include "store/row_source.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

class FixedSource final : public RowSource
{
public:
    FixedSource(std::shared_ptr<Connection> connection,
                std::shared_ptr<Plan> plan,
                QStringList literals)
        : m_connection(std::move(connection)),
          m_plan(std::move(plan)),
          m_literals(std::move(literals))
    {
        const PreparedStatement& statement = *m_plan->prepared;
        for (int i = 0; i < statement.columnCount(); ++i)
            m_names << QString::fromUtf8(sqlite3_column_name(statement.handle(), i));
    }

    int fieldCount() const override { return static_cast<int>(m_names.size()); }
    QString fieldName(int index) const override { return m_names[index]; }
    bool updatable() const override { return false; }
    bool fieldUpdatable(int /*index*/) const override { return false; }

    bool readFirstKeys(std::vector<qint64>& keys) override
    {
        keys = readAllKeys();
        return true;
    }

    std::vector<qint64> readAllKeys() override
    {
        m_rows.clear();
        PreparedStatement& statement = *m_plan->prepared;
        const PreparedStatement::Reset reset(statement);
        statement.bindAll(m_literals);
        while (statement.step()) {
            Row row;
            row.reserve(static_cast<std::size_t>(statement.columnCount()));
            for (int i = 0; i < statement.columnCount(); ++i)
                row.push_back(statement.column(i));
            m_rows.push_back(std::move(row));
        }
        std::vector<qint64> keys(m_rows.size());
        std::iota(keys.begin(), keys.end(), 0);
        return keys;
    }

    const Row* row(const std::vector<qint64>& keys, int position) override
    {
        return &m_rows[static_cast<std::size_t>(keys[static_cast<std::size_t>(position)])];
    }

    std::vector<qint64> find(const QString& /*criterion*/) override
    {
        throw Error(errors::notSupported, u"Rows of this statement cannot be searched."_s);
    }
    bool isStill(qint64 /*key*/, const Row& /*row*/) override { return true; }
    qint64 insert(const Changes& /*changes*/) override { refuse(); }
    void update(qint64 /*key*/, const Row& /*read*/, const Changes& /*changes*/) override
    {
        refuse();
    }
    void remove(qint64 /*key*/, const Row& /*read*/) override { refuse(); }

private:
    [[noreturn]] static void refuse()
    {
        throw Error(errors::notUpdatable, u"The rows of this statement are read-only."_s);
    }

    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<Plan> m_plan;
    QStringList m_literals;
    QStringList m_names;
    std::vector<Row> m_rows;
};

} // namespace

std::unique_ptr<RowSource> makeFixedSource(std::shared_ptr<Connection> connection,
                                           std::shared_ptr<Plan> plan,
                                           const QStringList& literals)
{
    return std::make_unique<FixedSource>(std::move(connection), std::move(plan), literals);
}

} // namespace ostrand::store
