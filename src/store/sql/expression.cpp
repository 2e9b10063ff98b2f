// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/parser.h"

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

namespace {

constexpr int longestChain = 60;           ///< operators that nest in what SQLite reads
constexpr std::size_t mostArguments = 100; ///< below SQLite's limit of 127

/// Counts the links of a chain of operators, each of which nests one level deeper.
class Chain
{
public:
    void link()
    {
        if (++m_links > longestChain)
            throw Error(errors::invalidExpression, u"The expression is too long."_s);
    }

private:
    int m_links = 0;
};

Expression binary(const QByteArray& left, const char* op, const QByteArray& right)
{
    return {'(' + left + op + right + ')'};
}

Expression functionOf(const char* function, const Expression& left, const Expression& right)
{
    return {function + ('(' + left.value() + ", " + right.value() + ')')};
}

QByteArray symbolForSqlite(const QString& symbol)
{
    if (symbol == u"=<")
        return "<=";
    if (symbol == u"=>")
        return ">=";
    return symbol.toLatin1();
}

} // namespace

Expression Parser::expression()
{
    const Level level(*this);
    Expression left = disjunction();
    Chain chain;
    while (acceptWord(u"XOR")) {
        chain.link();
        const Expression right = disjunction();
        left = binary('(' + left.sql + " <> 0)", " <> ", '(' + right.sql + " <> 0)");
        left.comparison = true;
    }
    return left;
}

Expression Parser::disjunction()
{
    Expression first = conjunction();
    if (!isWord(u"OR"))
        return first;
    QByteArrayList parts{first.sql};
    while (acceptWord(u"OR"))
        parts += conjunction().sql;
    return {'(' + parts.join(" OR ") + ')', true};
}

Expression Parser::conjunction()
{
    Expression first = negation();
    if (!isWord(u"AND"))
        return first;
    QByteArrayList parts{first.sql};
    while (acceptWord(u"AND"))
        parts += negation().sql;
    return {'(' + parts.join(" AND ") + ')', true};
}

Expression Parser::negation()
{
    if (!acceptWord(u"NOT"))
        return comparison();
    const Level level(*this);
    return {"(NOT " + negation().sql + ')', true};
}

Expression Parser::comparison()
{
    Expression left = joined();
    Chain chain;
    for (;;) {
        const bool isOperator = isSymbol(u"=") || isSymbol(u"<>") || isSymbol(u"<")
                                || isSymbol(u">") || isSymbol(u"<=") || isSymbol(u">=")
                                || isSymbol(u"=<") || isSymbol(u"=>");
        const bool isWordOperator = isAnyWord({u"NOT", u"LIKE", u"BETWEEN", u"IN", u"IS"});
        if (!isOperator && !isWordOperator)
            return left;
        chain.link();
        left = comparisonBehind(left);
    }
}

Expression Parser::comparisonBehind(const Expression& left)
{
    if (peek().kind == TokenKind::Symbol) {
        const QByteArray symbol = symbolForSqlite(take().text);
        const Expression right = joined();
        return {'(' + left.collated() + ' ' + symbol + ' ' + right.value() + ')', true};
    }
    if (acceptWord(u"IS"))
        return nullTestBehind(left);

    const bool negated = acceptWord(u"NOT");
    Expression result;
    if (acceptWord(u"LIKE"))
        result = likeBehind(left);
    else if (acceptWord(u"BETWEEN"))
        result = betweenBehind(left);
    else if (acceptWord(u"IN"))
        result = membershipBehind(left);
    else
        fail();
    if (negated)
        result.sql = "(NOT " + result.sql + ')';
    return result;
}

Expression Parser::likeBehind(const Expression& left)
{
    const Expression pattern = joined();
    return {'(' + left.value() + " LIKE " + pattern.value() + ')', true};
}

Expression Parser::betweenBehind(const Expression& left)
{
    const Expression least = joined();
    expectWord(u"AND");
    const Expression most = joined();
    return {'(' + left.collated() + " BETWEEN " + least.value() + " AND " + most.value() + ')',
            true};
}

Expression Parser::membershipBehind(const Expression& left)
{
    QByteArray members;
    if (startsSubquery()) {
        take();
        members = query();
    } else {
        expectSymbol(u"(");
        QByteArrayList values;
        do {
            values += expression().value();
        } while (acceptSymbol(u","));
        members = values.join(", ");
    }
    expectSymbol(u")");
    return {'(' + left.collated() + " IN (" + members + "))", true};
}

Expression Parser::nullTestBehind(const Expression& left)
{
    const bool negated = acceptWord(u"NOT");
    expectWord(u"NULL");
    return {'(' + left.value() + (negated ? " IS NOT NULL)" : " IS NULL)"), true};
}

/// `&` joins texts, with Null as an empty one. A chain becomes one call, as long ones are common.
Expression Parser::joined()
{
    Expression left = sum();
    while (isSymbol(u"&")) {
        QByteArrayList parts{left.value()};
        while (static_cast<std::size_t>(parts.size()) < mostArguments && acceptSymbol(u"&"))
            parts += sum().value();
        left = {"ostrand_join(" + parts.join(", ") + ')'};
    }
    return left;
}

/// `+` adds numbers and joins texts; which one is known only when a row is read.
Expression Parser::sum()
{
    Expression left = modulo();
    Chain chain;
    while (isSymbol(u"+") || isSymbol(u"-")) {
        chain.link();
        if (acceptSymbol(u"-")) {
            left = binary(left.value(), " - ", modulo().value());
            continue;
        }
        QByteArrayList parts{left.value()};
        while (static_cast<std::size_t>(parts.size()) < mostArguments && acceptSymbol(u"+"))
            parts += modulo().value();
        left = {"ostrand_add(" + parts.join(", ") + ')'};
    }
    return left;
}

Expression Parser::modulo()
{
    Expression left = integerQuotient();
    Chain chain;
    while (acceptWord(u"MOD")) {
        chain.link();
        left = functionOf("ostrand_mod", left, integerQuotient());
    }
    return left;
}

Expression Parser::integerQuotient()
{
    Expression left = product();
    Chain chain;
    while (acceptSymbol(u"\\")) {
        chain.link();
        left = functionOf("ostrand_quotient", left, product());
    }
    return left;
}

Expression Parser::product()
{
    Expression left = signedFactor();
    Chain chain;
    while (isSymbol(u"*") || isSymbol(u"/")) {
        chain.link();
        if (acceptSymbol(u"*"))
            left = binary(left.value(), " * ", signedFactor().value());
        else if (acceptSymbol(u"/"))
            left = binary("CAST(" + left.value() + " AS REAL)", " / ", signedFactor().value());
    }
    return left;
}

Expression Parser::signedFactor()
{
    if (!isSymbol(u"-") && !isSymbol(u"+"))
        return power();
    const Level level(*this);
    const bool negative = take().text == u"-";
    const Expression factor = signedFactor();
    return negative ? Expression{"(-" + factor.value() + ')'} : Expression{factor.value()};
}

Expression Parser::power()
{
    Expression left = primary();
    Chain chain;
    while (acceptSymbol(u"^")) {
        chain.link();
        const bool hasSign = isSymbol(u"-") || isSymbol(u"+");
        left = functionOf("ostrand_power", left, hasSign ? signedFactor() : primary());
    }
    return left;
}

} // namespace ostrand::store::sql
