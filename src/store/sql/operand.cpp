// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/calls.h"
#include "store/sql/parser.h"

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

Expression Parser::primary()
{
    switch (peek().kind) {
    case TokenKind::Text:
        return {parameter()};
    case TokenKind::Number:
        return {take().text.toLatin1()};
    case TokenKind::Date:
        return {'\'' + take().text.toLatin1() + '\''};
    case TokenKind::Symbol:
        return bracketed();
    case TokenKind::Name:
    case TokenKind::BracketName:
        return nameOrCall();
    case TokenKind::End:
        break;
    }
    fail();
}

QByteArray Parser::parameter()
{
    const int literal = m_literalNumbers[m_position];
    take();
    return '?' + QByteArray::number(m_firstParameter + literal);
}

Expression Parser::bracketed()
{
    const bool isSubquery = startsSubquery();
    expectSymbol(u"(");
    Expression inner;
    if (isSubquery)
        inner = {'(' + query() + ')'};
    else
        inner = expression();
    expectSymbol(u")");
    return inner;
}

Expression Parser::nameOrCall()
{
    if (acceptWord(u"NULL"))
        return {"NULL"};
    if (isWord(u"EXISTS") && isSymbol(u"(", 1)) {
        take();
        if (!startsSubquery())
            fail();
        return {"EXISTS " + bracketed().sql, true};
    }
    const bool isCall = peek().kind == TokenKind::Name && isSymbol(u"(", 1);
    const bool isQualified = isSymbol(u".", 1) || isSymbol(u"!", 1);
    if (!isCall && !isQualified) {
        if (acceptWord(u"TRUE"))
            return {"(-1)"};
        if (acceptWord(u"FALSE"))
            return {"0"};
    }
    if (isCall && isName())
        return call(take().text);

    const QByteArray first = takeQuotedName();
    if (!acceptSymbol(u".") && !acceptSymbol(u"!"))
        return {first, false, first};
    if (peek().kind != TokenKind::Name && peek().kind != TokenKind::BracketName)
        fail();
    const QByteArray column = quoted(spelled(take().text));
    return {first + '.' + column, false, column};
}

Expression Parser::call(const QString& name)
{
    const FunctionRule* rule = findFunction(name);
    if (rule == nullptr)
        throw Error(errors::undefinedFunction, u"There is no function \"%1\"."_s.arg(name));
    if (isAggregate(*rule))
        m_sawAggregate = true;

    expectSymbol(u"(");
    if (rule->name == u"Count" && acceptSymbol(u"*")) {
        expectSymbol(u")");
        return {"count(*)"};
    }
    std::vector<Expression> arguments;
    if (!isSymbol(u")")) {
        do {
            arguments.push_back(expression());
        } while (acceptSymbol(u","));
    }
    expectSymbol(u")");
    if (arguments.size() < rule->least || arguments.size() > rule->most)
        throw Error(errors::invalidExpression,
                    u"Wrong number of arguments for the function \"%1\"."_s.arg(name));
    return writeCall(*rule, arguments);
}

} // namespace ostrand::store::sql
