// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/parser.h"

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

namespace {

QByteArray inBrackets(const QByteArray& sql)
{
    return '(' + sql + ')';
}

void append(Sources& all, const Sources& more)
{
    all.list.insert(all.list.end(), more.list.begin(), more.list.end());
    all.joinConditions += more.joinConditions;
    all.hasOuterJoin = all.hasOuterJoin || more.hasOuterJoin;
}

/// SQLite's own tables are no part of a project.
void checkSource(const QString& name)
{
    if (name.startsWith(u"sqlite_", Qt::CaseInsensitive)
        || name.startsWith(u"pragma_", Qt::CaseInsensitive))
        throw Error(errors::tableNotFound, u"There is no table or query \"%1\"."_s.arg(name));
}

} // namespace

/// Chains of joins, parted by commas. A chain with an outer join keeps together in brackets, as
/// SQLite would take all that stands left of the join for its left side.
Sources Parser::sources()
{
    std::vector<Sources> chains;
    do {
        chains.push_back(joinChain());
    } while (acceptSymbol(u","));

    Sources all;
    QByteArrayList parts;
    for (const Sources& chain : chains) {
        const bool together = chains.size() > 1 && chain.hasOuterJoin;
        parts += together ? inBrackets(chain.sql) : chain.sql;
        append(all, chain);
    }
    all.sql = parts.join(", ");
    return all;
}

Sources Parser::joinChain()
{
    const Level level(*this);
    Sources chain = joinOperand();
    while (isAnyWord({u"INNER", u"LEFT", u"RIGHT"}))
        joinBehind(chain);
    return chain;
}

/// A table, a query, or joins in brackets. Brackets are dropped here: what they group stands
/// first in its chain, or `joinBehind` sets them anew.
Sources Parser::joinOperand()
{
    if (!isSymbol(u"(") || startsSubquery())
        return source();
    take();
    Sources inner = joinChain();
    expectSymbol(u")");
    return inner;
}

void Parser::joinBehind(Sources& left)
{
    const bool inner = isWord(u"INNER");
    const QByteArray kind = take().text.toUpper().toLatin1();
    if (!inner)
        acceptWord(u"OUTER");
    expectWord(u"JOIN");
    const Sources right = joinOperand();
    expectWord(u"ON");
    const QByteArray condition = expression().sql;

    left.sql += ' ' + kind + " JOIN " + (right.list.size() > 1 ? inBrackets(right.sql) : right.sql)
                + " ON " + condition;
    left.hasOuterJoin = left.hasOuterJoin || !inner;
    append(left, right);
    left.joinConditions += condition;
}

Sources Parser::source()
{
    Source source;
    if (startsSubquery()) {
        take();
        source.sql = inBrackets(query());
        expectSymbol(u")");
    } else {
        source.name = takeName();
        checkSource(source.name);
        source.alias = quoted(source.name);
        source.sql = source.alias;
    }
    const bool named = acceptWord(u"AS");
    if (named || (isName() && !isAnyWord({u"LEFT", u"RIGHT", u"OUTER"}))) {
        source.alias = takeQuotedName();
        source.sql += " AS " + source.alias;
    }
    Sources result;
    result.sql = source.sql;
    result.list.push_back(source);
    return result;
}

} // namespace ostrand::store::sql
