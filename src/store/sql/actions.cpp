// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/parser.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

namespace {

bool sameName(const QByteArray& a, const QByteArray& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QByteArray whereClause(const QByteArray& condition)
{
    return condition.isEmpty() ? QByteArray() : QByteArray(" WHERE " + condition);
}

Statement changing(Verb verb, const QByteArray& word, const QByteArray& rest)
{
    Statement statement;
    statement.verb = verb;
    statement.sql = word + ' ' + rest;
    statement.sqlDropping = word + " OR IGNORE " + rest;
    return statement;
}

} // namespace

Statement Parser::insertStatement()
{
    m_place = errors::syntaxInInsert;
    expectWord(u"INSERT");
    expectWord(u"INTO");
    const Sources target = source();
    if (target.list.front().sql != quoted(target.list.front().name))
        fail();
    QByteArray rest = "INTO " + target.sql;
    if (isSymbol(u"(") && !startsSubquery()) {
        take();
        QByteArrayList columns;
        do {
            columns += takeQuotedName();
        } while (acceptSymbol(u","));
        expectSymbol(u")");
        rest += " (" + columns.join(", ") + ')';
    }
    return changing(Verb::Insert, "INSERT", rest + insertedRows());
}

QByteArray Parser::insertedRows()
{
    if (isWord(u"SELECT"))
        return ' ' + query();
    expectWord(u"VALUES");
    expectSymbol(u"(");
    QByteArrayList values;
    do {
        values += expression().value();
    } while (acceptSymbol(u","));
    expectSymbol(u")");
    return " VALUES (" + values.join(", ") + ')';
}

Statement Parser::updateStatement()
{
    m_place = errors::syntaxInUpdate;
    expectWord(u"UPDATE");
    const Sources all = sources();
    expectWord(u"SET");
    const Assignments set = assignments();
    const QByteArray where = optionalWhere();

    const auto target =
        std::find_if(all.list.begin(), all.list.end(), [&set](const Source& candidate) {
            return set.target.isEmpty() || sameName(candidate.alias, set.target);
        });
    if (target == all.list.end() || target->name.isEmpty())
        throw Error(errors::syntaxInUpdate,
                    u"The UPDATE statement sets fields of no table that it names."_s);

    if (all.list.size() == 1)
        return changing(
            Verb::Update, "UPDATE", all.sql + " SET " + written(set.list) + whereClause(where));
    return changing(Verb::Update,
                    "UPDATE",
                    all.hasOuterJoin ? updateThroughOuterJoins(all, *target, set, where)
                                     : updateThroughInnerJoins(all, *target, set, where));
}

/// The other tables move behind FROM and the join conditions into the where clause.
QByteArray Parser::updateThroughInnerJoins(const Sources& sources,
                                           const Source& target,
                                           const Assignments& set,
                                           const QByteArray& where)
{
    QByteArrayList others;
    for (const Source& source : sources.list) {
        if (&source != &target)
            others += source.sql;
    }
    QByteArrayList conditions = sources.joinConditions;
    if (!where.isEmpty())
        conditions += where;
    return target.sql + " SET " + written(set.list) + " FROM " + others.join(", ")
           + whereClause(conditions.join(" AND "));
}

/// The joins stay whole in a subquery that yields row numbers and new values.
QByteArray Parser::updateThroughOuterJoins(const Sources& sources,
                                           const Source& target,
                                           const Assignments& set,
                                           const QByteArray& where)
{
    QByteArray columns = target.alias + ".rowid AS \"row\"";
    std::vector<Assignment> fromJoined;
    for (const Assignment& assignment : set.list) {
        const QByteArray name = "\"value " + QByteArray::number(fromJoined.size()) + '"';
        columns += ", " + assignment.value + " AS " + name;
        fromJoined.push_back({assignment.column, "\"joined\"." + name});
    }
    const QByteArray table = quoted(target.name);
    return table + " SET " + written(fromJoined) + " FROM (SELECT " + columns + " FROM "
           + sources.sql + whereClause(where) + ") AS \"joined\" WHERE " + table
           + ".rowid = \"joined\".\"row\"";
}

QByteArray Parser::written(const std::vector<Assignment>& assignments)
{
    QByteArrayList parts;
    for (const Assignment& assignment : assignments)
        parts += assignment.column + " = " + assignment.value;
    return parts.join(", ");
}

Parser::Assignments Parser::assignments()
{
    Assignments result;
    do {
        QByteArray column = takeQuotedName();
        if (acceptSymbol(u".") || acceptSymbol(u"!")) {
            const bool sameTarget = result.target.isEmpty() || sameName(result.target, column);
            if (!sameTarget)
                fail();
            result.target = column;
            column = takeQuotedName();
        }
        expectSymbol(u"=");
        result.list.push_back({column, expression().value()});
    } while (acceptSymbol(u","));
    return result;
}

Statement Parser::deleteStatement()
{
    m_place = errors::invalidExpression;
    expectWord(u"DELETE");
    QByteArray columns;
    acceptAllColumns(columns);
    m_place = errors::syntaxInFrom;
    expectWord(u"FROM");
    const Sources all = sources();
    if (all.list.size() != 1 || all.list.front().name.isEmpty())
        throw Error(errors::syntaxInFrom, u"DELETE takes rows out of one table only."_s);
    const QByteArray alias = all.list.front().alias;
    if (!columns.isEmpty() && columns != "*" && !sameName(columns, alias + ".*"))
        throw Error(errors::syntaxInFrom, u"DELETE names a table that it does not read."_s);

    const QByteArray where = optionalWhere();
    Statement statement;
    statement.verb = Verb::Delete;
    statement.sql = "DELETE FROM " + all.sql;
    if (!where.isEmpty())
        statement.sql += " WHERE " + where;
    return statement;
}

} // namespace ostrand::store::sql
