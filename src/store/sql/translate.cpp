// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/translate.h"

#include "store/sql/parser.h"

namespace ostrand::store::sql {

Statement Parser::statement()
{
    Statement result;
    if (isWord(u"SELECT"))
        result = selectStatement();
    else if (isWord(u"INSERT"))
        result = insertStatement();
    else if (isWord(u"UPDATE"))
        result = updateStatement();
    else if (isWord(u"DELETE"))
        result = deleteStatement();
    else
        fail();
    expectEnd();
    return result;
}

QByteArray Parser::criterion()
{
    m_place = errors::invalidExpression;
    QByteArray sql = expression().sql;
    if (!atEnd())
        fail();
    return sql;
}

Statement translate(const TokenList& statement, const NameResolver& resolve)
{
    return Parser(statement, resolve).statement();
}

QByteArray
translateCriterion(const TokenList& criterion, int firstParameter, const NameResolver& resolve)
{
    return Parser(criterion, resolve, firstParameter).criterion();
}

} // namespace ostrand::store::sql
