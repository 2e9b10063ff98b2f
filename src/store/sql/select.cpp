// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/parser.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

namespace {

constexpr int firstUnnamed = 1000;

/// A select as one part of a union, where a limit may not stand.
QByteArray asPart(const QByteArray& select, bool limited)
{
    return limited ? QByteArray("SELECT * FROM (" + select + ')') : select;
}

} // namespace

/// One select or a union of several. A subquery's errors count as those of its own places, and the
/// query around it goes on where it was.
QByteArray Parser::query(std::optional<KeyedSelect>* keyed)
{
    const Level level(*this);
    const int outerPlace = m_place;
    const bool outerAggregate = std::exchange(m_sawAggregate, false);

    std::vector<Select> parts{select()};
    QByteArrayList unions;
    while (acceptWord(u"UNION")) {
        m_place = errors::syntaxInSelect;
        unions += acceptWord(u"ALL") ? " UNION ALL " : " UNION ";
        parts.push_back(select());
    }
    const QByteArray orderBy = orderList();

    QByteArray sql;
    if (parts.size() == 1) {
        sql = written(parts.front(), orderBy);
        if (keyed != nullptr)
            *keyed = keyedForm(parts.front(), orderBy);
    } else {
        sql = asPart(written(parts.front(), {}), !parts.front().top.isEmpty());
        for (std::size_t i = 1; i < parts.size(); ++i) {
            sql += unions[static_cast<qsizetype>(i) - 1];
            sql += asPart(written(parts[i], {}), !parts[i].top.isEmpty());
        }
        if (!orderBy.isEmpty())
            sql += " ORDER BY " + orderBy;
    }
    if (keyed == nullptr)
        m_place = outerPlace;
    m_sawAggregate = outerAggregate;
    return sql;
}

Parser::Select Parser::select()
{
    m_place = errors::syntaxInSelect;
    expectWord(u"SELECT");
    Select select;
    m_sawAggregate = false;
    selectQuantity(select);
    selectList(select);
    if (acceptWord(u"FROM")) {
        m_place = errors::syntaxInFrom;
        select.from = sources();
    }
    select.where = optionalWhere();
    select.groupBy = groupList();
    if (acceptWord(u"HAVING")) {
        m_place = errors::invalidExpression;
        select.having = expression().sql;
    }
    select.aggregates = m_sawAggregate;
    return select;
}

/// DISTINCTROW leaves rows alone: with one source it means nothing.
void Parser::selectQuantity(Select& select)
{
    if (acceptWord(u"DISTINCT"))
        select.distinct = true;
    else if (!acceptWord(u"DISTINCTROW") && isWord(u"ALL") && !isSymbol(u".", 1)
             && !isSymbol(u",", 1) && !isWord(u"FROM", 1))
        take();
    if (!isWord(u"TOP") || peek(1).kind != TokenKind::Number)
        return;
    take();
    bool isWhole = false;
    const int count = peek().text.toInt(&isWhole);
    if (!isWhole)
        fail();
    take();
    select.top = QByteArray::number(count);
    select.topIsPercent = acceptWord(u"PERCENT");
}

void Parser::selectList(Select& select)
{
    QByteArrayList items;
    int unnamed = firstUnnamed;
    do {
        items += selectItem(unnamed);
    } while (acceptSymbol(u","));
    select.columns = items.join(", ");
}

/// An expression that is no column gets a name of its own, and the order of texts, which would
/// else be lost.
QByteArray Parser::selectItem(int& unnamed)
{
    QByteArray all;
    if (acceptAllColumns(all))
        return all;
    const Expression item = expression();
    if (acceptWord(u"AS"))
        return (item.column.isEmpty() ? item.collated() : item.sql) + " AS " + takeQuotedName();
    if (!item.column.isEmpty())
        return item.sql;
    return item.collated() + " AS \"Expr" + QByteArray::number(unnamed++) + '"';
}

bool Parser::acceptAllColumns(QByteArray& sql)
{
    if (acceptSymbol(u"*")) {
        sql = "*";
        return true;
    }
    if (!isName() || !isSymbol(u".", 1) || !isSymbol(u"*", 2))
        return false;
    sql = takeQuotedName() + ".*";
    take();
    take();
    return true;
}

QByteArray Parser::groupList()
{
    if (!acceptWord(u"GROUP"))
        return {};
    m_place = errors::invalidExpression;
    expectWord(u"BY");
    QByteArrayList terms;
    do {
        terms += expression().collated();
    } while (acceptSymbol(u","));
    return terms.join(", ");
}

QByteArray Parser::orderList()
{
    if (!acceptWord(u"ORDER"))
        return {};
    m_place = errors::invalidExpression;
    expectWord(u"BY");
    QByteArrayList terms;
    do {
        QByteArray term = expression().collated();
        if (acceptWord(u"DESC"))
            term += " DESC";
        else
            acceptWord(u"ASC");
        terms += term;
    } while (acceptSymbol(u","));
    return terms.join(", ");
}

QByteArray Parser::optionalWhere()
{
    if (!acceptWord(u"WHERE"))
        return {};
    m_place = errors::invalidExpression;
    return expression().sql;
}

QByteArray Parser::written(const Select& select, const QByteArray& orderBy)
{
    QByteArray sql = select.distinct ? "SELECT DISTINCT " : "SELECT ";
    sql += select.columns;
    if (!select.from.sql.isEmpty())
        sql += " FROM " + select.from.sql;
    if (!select.where.isEmpty())
        sql += " WHERE " + select.where;
    if (!select.groupBy.isEmpty())
        sql += " GROUP BY " + select.groupBy;
    if (!select.having.isEmpty())
        sql += " HAVING " + select.having;
    const QByteArray unordered = sql;
    if (!orderBy.isEmpty())
        sql += " ORDER BY " + orderBy;
    if (select.top.isEmpty())
        return sql;
    if (!select.topIsPercent)
        return sql + " LIMIT " + select.top;
    return sql + " LIMIT (SELECT (count(*) * " + select.top + " + 99) / 100 FROM (" + unordered
           + "))";
}

std::optional<KeyedSelect> Parser::keyedForm(const Select& select, const QByteArray& orderBy)
{
    const bool plain = !select.distinct && select.top.isEmpty() && !select.aggregates
                       && select.groupBy.isEmpty() && select.having.isEmpty();
    if (!plain || select.from.list.size() != 1 || select.from.list.front().name.isEmpty())
        return {};
    const Source& source = select.from.list.front();
    return KeyedSelect{
        source.name, source.alias, select.columns, source.sql, select.where, orderBy};
}

Statement Parser::selectStatement()
{
    Statement statement;
    statement.verb = Verb::Select;
    statement.sql = query(&statement.keyed);
    return statement;
}

} // namespace ostrand::store::sql
