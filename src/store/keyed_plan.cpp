// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/keyed_plan.h"

using namespace Qt::StringLiterals;

namespace ostrand::store {
namespace {

struct Origin
{
    QByteArray table;
    QByteArray column;
    bool operator==(const Origin& other) const
    {
        return table.compare(other.table, Qt::CaseInsensitive) == 0
               && column.compare(other.column, Qt::CaseInsensitive) == 0;
    }
};

Origin originOf(const PreparedStatement& statement, int column)
{
    return {QByteArray(sqlite3_column_table_name(statement.handle(), column)),
            QByteArray(sqlite3_column_origin_name(statement.handle(), column))};
}

QString columnName(const PreparedStatement& statement, int column)
{
    return QString::fromUtf8(sqlite3_column_name(statement.handle(), column));
}

/// The columns of the source with their names there and the places they come from.
struct SourceColumn
{
    QString name;
    Origin origin;
};

std::vector<SourceColumn> sourceColumns(Connection& connection, const QByteArray& quotedSource)
{
    const PreparedStatement all(connection, "SELECT * FROM " + quotedSource + " LIMIT 0");
    std::vector<SourceColumn> columns;
    columns.reserve(static_cast<std::size_t>(all.columnCount()));
    for (int i = 0; i < all.columnCount(); ++i)
        columns.push_back({columnName(all, i), originOf(all, i)});
    return columns;
}

std::vector<QByteArray> primaryKey(Connection& connection, const QByteArray& table)
{
    PreparedStatement info(connection,
                           "SELECT name FROM pragma_table_info(?1) WHERE pk > 0 ORDER BY pk");
    const PreparedStatement::Reset reset(info);
    info.bind(1, QString::fromUtf8(table));
    std::vector<QByteArray> names;
    while (info.step())
        names.push_back(info.column(0).text().toUtf8());
    return names;
}

/// The columns of the source that hold the base table's primary key, as an order; empty when the
/// source does not show them all.
QByteArray naturalOrder(Connection& connection,
                        const KeyedPlan& plan,
                        const QByteArray& alias,
                        const std::vector<SourceColumn>& columns)
{
    QByteArray order;
    for (const QByteArray& part : primaryKey(connection, plan.baseTable)) {
        const auto found = std::find_if(columns.begin(), columns.end(), [&](const auto& column) {
            return column.origin == Origin{plan.baseTable, part};
        });
        if (found == columns.end())
            return {};
        order += (order.isEmpty() ? "" : ", ") + alias + "." + quoteName(found->name);
    }
    return order;
}

bool hasRowid(Connection& connection, const QByteArray& quotedSource)
{
    try {
        const PreparedStatement probe(connection,
                                      "SELECT \"rowid\" FROM " + quotedSource + " LIMIT 0");
        return sqlite3_column_table_name(probe.handle(), 0) != nullptr;
    } catch (const Error&) {
        return false;
    }
}

/// A key may be given again when its row is deleted. The primary key tells such rows apart, or all
/// fields of the base table where there is none.
void describeIdentity(KeyedPlan& plan,
                      const std::vector<Origin>& origins,
                      const std::vector<QByteArray>& primaryKey)
{
    const auto isKey = [&](const Origin& origin) {
        return std::any_of(primaryKey.begin(), primaryKey.end(), [&](const QByteArray& part) {
            return origin == Origin{plan.baseTable, part};
        });
    };
    const auto keyFields = std::count_if(origins.begin(), origins.end(), isKey);
    const bool showsKey = !primaryKey.empty() && keyFields >= std::ssize(primaryKey);
    for (std::size_t i = 0; i < origins.size(); ++i) {
        const bool ofBase = origins[i].table.compare(plan.baseTable, Qt::CaseInsensitive) == 0;
        if (showsKey ? isKey(origins[i]) : ofBase && !plan.fields[i].sourceColumn.isEmpty())
            plan.identity.push_back(static_cast<int>(i));
    }
}

void describeFields(KeyedPlan& plan,
                    const PreparedStatement& rows,
                    int count,
                    const std::vector<SourceColumn>& columns,
                    const std::vector<QByteArray>& primaryKey)
{
    std::vector<Origin> origins;
    for (int i = 0; i < count; ++i) {
        const QString name = columnName(rows, i);
        if (name == QLatin1StringView(hiddenKey))
            continue;
        FieldInfo field{name, {}};
        const Origin origin = originOf(rows, i);
        for (const SourceColumn& column : columns) {
            if (!origin.column.isEmpty() && column.origin == origin)
                field.sourceColumn = quoteName(column.name);
        }
        plan.fields.push_back(field);
        plan.columns.push_back(i);
        origins.push_back(origin);
    }
    describeIdentity(plan, origins, primaryKey);
}

} // namespace

QByteArray quoteName(const QString& name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

std::shared_ptr<KeyedPlan>
makeKeyedPlan(Connection& connection, const sql::KeyedSelect& select, qsizetype parameters)
{
    const auto source = connection.findSource(select.source);
    if (!source)
        return nullptr;
    auto plan = std::make_shared<KeyedPlan>();
    plan->source = *source;
    plan->quotedSource = quoteName(*source);
    const auto columns = sourceColumns(connection, plan->quotedSource);
    const bool hasHiddenKey =
        !columns.empty() && columns.back().name == QLatin1StringView(hiddenKey);
    if (!hasHiddenKey && (connection.isView(*source) || !hasRowid(connection, plan->quotedSource)))
        return nullptr;

    plan->keyColumn = hasHiddenKey ? quoteName(QString::fromLatin1(hiddenKey)) : "\"rowid\"";
    plan->key = select.alias + "." + plan->keyColumn;
    plan->baseTable = hasHiddenKey ? columns.back().origin.table : plan->source.toUtf8();
    plan->updatable = !connection.isReadOnly();
    plan->sorted = !select.orderBy.isEmpty();
    plan->parameters = parameters;
    plan->from = select.from;
    plan->where = select.where;

    const QByteArray order =
        plan->sorted ? select.orderBy : naturalOrder(connection, *plan, select.alias, columns);
    const QByteArray tail = " FROM " + select.from
                            + (select.where.isEmpty() ? QByteArray() : " WHERE " + select.where)
                            + (order.isEmpty() ? QByteArray() : " ORDER BY " + order);
    const QByteArray next = "?" + QByteArray::number(parameters + 1);
    const auto prepare = [&](const QByteArray& sql) {
        return std::make_unique<PreparedStatement>(connection, sql, sql::Verb::Select);
    };
    plan->firstRows =
        prepare("SELECT " + select.columns + ", " + plan->key + tail + " LIMIT " + next);
    plan->allKeys = prepare("SELECT " + plan->key + tail);
    plan->oneRow = prepare("SELECT " + select.columns + " FROM " + select.from + " WHERE "
                           + plan->key + " = " + next);
    plan->keyPosition = plan->firstRows->columnCount() - 1;
    describeFields(*plan,
                   *plan->firstRows,
                   plan->keyPosition,
                   columns,
                   primaryKey(connection, plan->baseTable));
    return plan;
}

} // namespace ostrand::store
