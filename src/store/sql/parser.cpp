// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/parser.h"

#include "store/folding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

namespace {

constexpr int deepestLevel = 60;

/// Words that cannot be names unless they stand in brackets.
bool isReserved(const QString& word)
{
    static const QSet<QString> reserved{
        u"AND"_s,    u"AS"_s,    u"BETWEEN"_s, u"DELETE"_s, u"DISTINCT"_s, u"DISTINCTROW"_s,
        u"EXISTS"_s, u"FROM"_s,  u"GROUP"_s,   u"HAVING"_s, u"IN"_s,       u"INNER"_s,
        u"INSERT"_s, u"INTO"_s,  u"IS"_s,      u"JOIN"_s,   u"LIKE"_s,     u"MOD"_s,
        u"NOT"_s,    u"NULL"_s,  u"ON"_s,      u"OR"_s,     u"ORDER"_s,    u"SELECT"_s,
        u"SET"_s,    u"UNION"_s, u"UPDATE"_s,  u"VALUES"_s, u"WHERE"_s,    u"XOR"_s};
    return reserved.contains(word.toUpper());
}

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

QByteArray quoted(const QString& name)
{
    return '"' + name.toUtf8().replace('"', "\"\"") + '"';
}

Parser::Parser(const TokenList& tokens, const NameResolver& resolve, int firstParameter)
    : m_tokens(tokens),
      m_resolve(resolve),
      m_firstParameter(firstParameter)
{
    int literal = 0;
    for (const Token& token : tokens.tokens)
        m_literalNumbers.push_back(token.kind == TokenKind::Text ? literal++ : -1);
}

Parser::Level::Level(Parser& parser)
    : m_parser(parser)
{
    if (parser.m_depth >= deepestLevel)
        throw Error(errors::invalidExpression, u"The statement is nested too deeply."_s);
    ++parser.m_depth;
}

// ---- tokens

const Token& Parser::peek(std::size_t ahead) const
{
    static const Token end;
    const std::size_t place = m_position + ahead;
    return place < m_tokens.tokens.size() ? m_tokens.tokens[place] : end;
}

Token Parser::take()
{
    Token token = peek();
    ++m_position;
    return token;
}

bool Parser::isWord(QStringView word, std::size_t ahead) const
{
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Name && token.text.compare(word, Qt::CaseInsensitive) == 0;
}

bool Parser::isAnyWord(std::initializer_list<QStringView> words) const
{
    return std::any_of(
        words.begin(), words.end(), [this](QStringView word) { return isWord(word); });
}

bool Parser::isSymbol(QStringView symbol, std::size_t ahead) const
{
    const Token& token = peek(ahead);
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool Parser::acceptWord(QStringView word)
{
    const bool found = isWord(word);
    m_position += found ? 1 : 0;
    return found;
}

bool Parser::acceptSymbol(QStringView symbol)
{
    const bool found = isSymbol(symbol);
    m_position += found ? 1 : 0;
    return found;
}

void Parser::expectWord(QStringView word)
{
    if (!acceptWord(word))
        fail();
}

void Parser::expectSymbol(QStringView symbol)
{
    if (!acceptSymbol(symbol))
        fail();
}

void Parser::expectEnd()
{
    acceptSymbol(u";");
    if (!atEnd())
        fail();
}

bool Parser::startsSubquery() const
{
    return isSymbol(u"(") && isWord(u"SELECT", 1);
}

void Parser::fail() const
{
    const Token& token = peek();
    const QString near = token.kind == TokenKind::End ? u"the end"_s : u'"' + token.text + u'"';
    switch (m_place) {
    case errors::notAStatement:
        throw Error(
            m_place,
            u"Not a statement: SELECT, INSERT, UPDATE or DELETE is expected at %1."_s.arg(near));
    case errors::syntaxInSelect:
        throw Error(m_place, u"Syntax error in the SELECT statement at %1."_s.arg(near));
    case errors::syntaxInFrom:
        throw Error(m_place, u"Syntax error in the FROM clause at %1."_s.arg(near));
    case errors::syntaxInInsert:
        throw Error(m_place, u"Syntax error in the INSERT INTO statement at %1."_s.arg(near));
    case errors::syntaxInUpdate:
        throw Error(m_place, u"Syntax error in the UPDATE statement at %1."_s.arg(near));
    default:
        throw Error(m_place, u"Syntax error in the expression at %1."_s.arg(near));
    }
}

// ---- names

bool Parser::isName(std::size_t ahead) const
{
    const Token& token = peek(ahead);
    if (token.kind == TokenKind::BracketName)
        return true;
    return token.kind == TokenKind::Name && !isReserved(token.text);
}

QString Parser::takeName()
{
    if (!isName())
        fail();
    return spelled(take().text);
}

QByteArray Parser::takeQuotedName()
{
    return quoted(takeName());
}

/// SQLite tells case apart beyond ASCII; so one spelling of a name serves a whole statement: the
/// schema's, or else the first one met.
QString Parser::spelled(const QString& name)
{
    if (isAscii(name))
        return name;
    QString known = m_resolve ? m_resolve(name) : name;
    if (known != name)
        return known;
    const QString key = foldCase(name);
    const auto first = m_spellings.constFind(key);
    if (first != m_spellings.constEnd())
        return *first;
    m_spellings.insert(key, name);
    return name;
}

} // namespace ostrand::store::sql
