// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The rows of one table or stored query, kept by key.
#include "store/row_source.h"

#include <unordered_map>

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

constexpr int firstRowCount = 100;
constexpr int readAhead = 32;
constexpr std::size_t cachedRows = 600;

class KeyedSource final : public RowSource
{
public:
    KeyedSource(std::shared_ptr<Connection> connection,
                std::shared_ptr<KeyedPlan> plan,
                QStringList literals,
                bool readOnly)
        : m_connection(std::move(connection)),
          m_plan(std::move(plan)),
          m_literals(std::move(literals)),
          m_readOnly(readOnly)
    {
    }

    int fieldCount() const override { return static_cast<int>(m_plan->fields.size()); }
    QString fieldName(int index) const override { return field(index).name; }
    bool updatable() const override { return m_plan->updatable && !m_readOnly; }
    bool fieldUpdatable(int index) const override { return !field(index).sourceColumn.isEmpty(); }

    Meaning fieldMeaning(int index) override
    {
        return meaningOf(
            *m_connection, *m_plan->firstRows, m_plan->columns[static_cast<std::size_t>(index)]);
    }

    bool readFirstKeys(std::vector<qint64>& keys) override;
    std::vector<qint64> readAllKeys() override;
    const Row* row(const std::vector<qint64>& keys, int position) override;
    std::vector<qint64> find(const QString& criterion) override;
    bool isStill(qint64 key, const Row& row) override;
    qint64 insert(const Changes& changes) override;
    void update(qint64 key, const Row& read, const Changes& changes) override;
    void remove(qint64 key, const Row& read) override;

private:
    const FieldInfo& field(int index) const
    {
        return m_plan->fields[static_cast<std::size_t>(index)];
    }
    void dropStaleRows();
    bool isGone(qint64 key) const { return m_cache.find(key) == m_cache.end(); }
    void readRow(qint64 key);
    void requireStill(qint64 key, const Row& row);
    Row rowOf(const PreparedStatement& statement) const;
    PreparedStatement ownStatement(const QByteArray& sql, sql::Verb verb)
    {
        return {*m_connection, sql, verb};
    }
    PreparedStatement& insertStatement(const QByteArray& sql);

    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<KeyedPlan> m_plan;
    QStringList m_literals;
    bool m_readOnly;
    std::unordered_map<qint64, Row> m_cache;
    qint64 m_cacheStamp = -1;
    int m_nextMiss = -1;
    QByteArray m_insertSql;
    std::unique_ptr<PreparedStatement> m_insert; ///< kept, as new rows mostly fill the same fields
};

Row KeyedSource::rowOf(const PreparedStatement& statement) const
{
    Row row;
    row.reserve(m_plan->columns.size());
    for (const int column : m_plan->columns)
        row.push_back(statement.column(column));
    return row;
}

bool KeyedSource::readFirstKeys(std::vector<qint64>& keys)
{
    if (m_plan->sorted) {
        keys = readAllKeys();
        return true;
    }
    dropStaleRows();
    PreparedStatement& statement = *m_plan->firstRows;
    const PreparedStatement::Reset reset(statement);
    statement.bindAll(m_literals);
    statement.bind(static_cast<int>(m_plan->parameters) + 1, firstRowCount);
    while (statement.step()) {
        const qint64 key = statement.integerColumn(m_plan->keyPosition);
        keys.push_back(key);
        m_cache.insert_or_assign(key, rowOf(statement));
    }
    return keys.size() < std::size_t{firstRowCount};
}

std::vector<qint64> KeyedSource::readAllKeys()
{
    std::vector<qint64> keys;
    PreparedStatement& statement = *m_plan->allKeys;
    const PreparedStatement::Reset reset(statement);
    statement.bindAll(m_literals);
    while (statement.step())
        keys.push_back(statement.integerColumn(0));
    return keys;
}

void KeyedSource::dropStaleRows()
{
    const qint64 stamp = m_connection->changeStamp();
    if (stamp == m_cacheStamp && m_cache.size() < cachedRows)
        return;
    m_cache.clear();
    m_cacheStamp = stamp;
    m_nextMiss = -1;
}

void KeyedSource::readRow(qint64 key)
{
    PreparedStatement& statement = *m_plan->oneRow;
    const PreparedStatement::Reset reset(statement);
    statement.bindAll(m_literals);
    statement.bind(static_cast<int>(m_plan->parameters) + 1, key);
    if (statement.step())
        m_cache.insert_or_assign(key, rowOf(statement));
}

const Row* KeyedSource::row(const std::vector<qint64>& keys, int position)
{
    const qint64 key = keys[static_cast<std::size_t>(position)];
    if (m_cacheStamp != m_connection->changeStamp())
        dropStaleRows();
    if (const auto found = m_cache.find(key); found != m_cache.end())
        return &found->second;
    dropStaleRows();
    // A miss right behind the last one means that rows are walked in order.
    const int count = position == m_nextMiss ? readAhead : 1;
    const int end = std::min(position + count, static_cast<int>(keys.size()));
    if (count > 1)
        m_connection->beginRead();
    try {
        for (int i = position; i < end; ++i)
            readRow(keys[static_cast<std::size_t>(i)]);
    } catch (...) {
        if (count > 1)
            m_connection->endRead();
        throw;
    }
    if (count > 1)
        m_connection->endRead();
    m_nextMiss = end;
    const auto found = m_cache.find(key);
    return found == m_cache.end() ? nullptr : &found->second;
}

std::vector<qint64> KeyedSource::find(const QString& criterion)
{
    const sql::TokenList tokens = sql::tokenise(criterion);
    const QByteArray condition = sql::translateCriterion(
        tokens, static_cast<int>(m_plan->parameters) + 1, m_connection->nameResolver());
    QByteArray sql = "SELECT " + m_plan->key + " FROM " + m_plan->from + " WHERE ";
    if (!m_plan->where.isEmpty())
        sql += "(" + m_plan->where + ") AND ";
    PreparedStatement statement = ownStatement(sql + "(" + condition + ")", sql::Verb::Select);
    statement.bindAll(m_literals + tokens.literals);
    std::vector<qint64> keys;
    while (statement.step())
        keys.push_back(statement.integerColumn(0));
    return keys;
}

bool KeyedSource::isStill(qint64 key, const Row& row)
{
    m_connection->noticeForeignChanges();
    QByteArray sql =
        "SELECT 1 FROM " + m_plan->quotedSource + " WHERE " + m_plan->keyColumn + " = ?1";
    int parameter = 1;
    for (const int index : m_plan->identity)
        sql += " AND " + field(index).sourceColumn + " IS ?" + QByteArray::number(++parameter);
    PreparedStatement statement = ownStatement(sql, sql::Verb::Select);
    statement.bind(1, key);
    parameter = 1;
    for (const int index : m_plan->identity)
        statement.bind(++parameter, row[static_cast<std::size_t>(index)]);
    return statement.step();
}

void KeyedSource::requireStill(qint64 key, const Row& row)
{
    if (!isStill(key, row))
        throw Error(errors::recordDeleted, u"The record was deleted."_s);
}

PreparedStatement& KeyedSource::insertStatement(const QByteArray& sql)
{
    if (!m_insert || m_insertSql != sql) {
        m_insert = std::make_unique<PreparedStatement>(*m_connection, sql, sql::Verb::Insert);
        m_insertSql = sql;
    }
    return *m_insert;
}

qint64 KeyedSource::insert(const Changes& changes)
{
    QByteArray names;
    QByteArray places;
    int parameter = 0;
    for (const auto& [index, value] : changes) {
        names += (parameter == 0 ? "" : ", ") + field(index).sourceColumn;
        places += (parameter == 0 ? "?" : ", ?") + QByteArray::number(parameter + 1);
        ++parameter;
    }
    // A row of nothing but defaults: one field is named, so that the engine's rules speak.
    if (changes.empty()) {
        names = field(0).sourceColumn;
        places = "NULL";
    }
    PreparedStatement& statement = insertStatement("INSERT INTO " + m_plan->quotedSource + " ("
                                                   + names + ") VALUES (" + places + ")");
    const PreparedStatement::Reset reset(statement);
    parameter = 0;
    for (const auto& [index, value] : changes)
        statement.bind(++parameter, value);
    m_connection->requireInPlace();
    m_connection->forgetInserted();
    statement.step();
    const auto key = m_connection->lastInserted(m_plan->baseTable);
    if (!key)
        throw Error(errors::queryNotUpdatable, u"The query took no new record."_s);
    return *key;
}

void KeyedSource::update(qint64 key, const Row& read, const Changes& changes)
{
    m_connection->requireInPlace();
    requireStill(key, read);
    if (changes.empty())
        return;
    QByteArray sets;
    int parameter = 0;
    for (const auto& [index, value] : changes) {
        sets += (parameter == 0 ? "" : ", ") + field(index).sourceColumn + " = ?"
                + QByteArray::number(parameter + 1);
        ++parameter;
    }
    PreparedStatement statement =
        ownStatement("UPDATE " + m_plan->quotedSource + " SET " + sets + " WHERE "
                         + m_plan->keyColumn + " = ?" + QByteArray::number(parameter + 1),
                     sql::Verb::Update);
    parameter = 0;
    for (const auto& [index, value] : changes)
        statement.bind(++parameter, value);
    statement.bind(++parameter, key);
    statement.step();
}

void KeyedSource::remove(qint64 key, const Row& read)
{
    m_connection->requireInPlace();
    requireStill(key, read);
    PreparedStatement statement = ownStatement("DELETE FROM " + m_plan->quotedSource + " WHERE "
                                                   + m_plan->keyColumn + " = ?1",
                                               sql::Verb::Delete);
    statement.bind(1, key);
    statement.step();
}

} // namespace

std::unique_ptr<RowSource> makeKeyedSource(std::shared_ptr<Connection> connection,
                                           std::shared_ptr<KeyedPlan> plan,
                                           const QStringList& literals,
                                           bool readOnly)
{
    return std::make_unique<KeyedSource>(
        std::move(connection), std::move(plan), literals, readOnly);
}

} // namespace ostrand::store
