// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/dates.h"
#include "store/sql/translate.h"

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool startsName(QChar c)
{
    return c.isLetter() || c == u'_' || c.isSurrogate();
}

bool continuesName(QChar c)
{
    return startsName(c) || isDigit(c) || c == u'$' || c.isMark();
}

class Tokeniser
{
public:
    explicit Tokeniser(QStringView statement)
        : m_statement(statement)
    {
    }

    TokenList run()
    {
        while (m_position < m_statement.size())
            readOne();
        m_list.tokens.push_back({TokenKind::End, {}});
        return std::move(m_list);
    }

private:
    QChar at(qsizetype offset) const
    {
        const qsizetype place = m_position + offset;
        return place < m_statement.size() ? m_statement[place] : QChar();
    }

    [[noreturn]] void fail(const QString& description) const
    {
        throw Error(errors::invalidExpression, description);
    }

    void readOne()
    {
        const QChar c = at(0);
        if (c.isSpace()) {
            m_list.skeleton += c;
            ++m_position;
        } else if (c == u'\'' || c == u'"') {
            readText(c);
        } else if (c == u'[') {
            readBracketName();
        } else if (c == u'#') {
            readDate();
        } else if (isDigit(c) || (c == u'.' && isDigit(at(1)) && !followsName())) {
            readNumber();
        } else if (startsName(c)) {
            readName();
        } else {
            readSymbol();
        }
    }

    void push(TokenKind kind, const QString& text) { m_list.tokens.push_back({kind, text}); }

    /// Adds the token that reaches from the position for `length` and moves behind it.
    void take(TokenKind kind, qsizetype length)
    {
        const QStringView written = m_statement.sliced(m_position, length);
        push(kind, written.toString());
        m_list.skeleton += written;
        m_position += length;
    }

    /// A full stop right behind a name parts table and column.
    bool followsName() const
    {
        if (m_list.tokens.empty() || m_position == 0 || m_statement[m_position - 1].isSpace())
            return false;
        const TokenKind kind = m_list.tokens.back().kind;
        return kind == TokenKind::Name || kind == TokenKind::BracketName;
    }

    void readText(QChar quote)
    {
        QString value;
        qsizetype i = m_position + 1;
        for (;; ++i) {
            if (i >= m_statement.size())
                fail(u"A text in the statement does not end: %1"_s.arg(
                    m_statement.sliced(m_position).left(40)));
            if (m_statement[i] == quote) {
                const bool doubled = i + 1 < m_statement.size() && m_statement[i + 1] == quote;
                if (!doubled)
                    break;
                ++i;
            }
            value += m_statement[i];
        }
        m_position = i + 1;
        push(TokenKind::Text, value);
        m_list.literals += value;
        m_list.skeleton += u"''";
    }

    void readBracketName()
    {
        const qsizetype end = m_statement.indexOf(u']', m_position);
        if (end < 0)
            fail(u"A bracket in the statement does not end."_s);
        const QStringView name = m_statement.sliced(m_position + 1, end - m_position - 1);
        if (name.trimmed().isEmpty() || name.contains(u'[') || name.contains(QChar(u'\0')))
            fail(u"The name [%1] is not valid."_s.arg(name));
        push(TokenKind::BracketName, name.toString());
        m_list.skeleton += m_statement.sliced(m_position, end + 1 - m_position);
        m_position = end + 1;
    }

    void readDate()
    {
        const qsizetype end = m_statement.indexOf(u'#', m_position + 1);
        if (end < 0)
            fail(u"A date in the statement does not end."_s);
        const QStringView literal = m_statement.sliced(m_position + 1, end - m_position - 1);
        const auto date = dateLiteral(literal);
        if (!date)
            fail(u"#%1# is not a date."_s.arg(literal));
        push(TokenKind::Date, *date);
        m_list.skeleton += m_statement.sliced(m_position, end + 1 - m_position);
        m_position = end + 1;
    }

    qsizetype digitsFrom(qsizetype offset) const
    {
        while (isDigit(at(offset)))
            ++offset;
        return offset;
    }

    void readNumber()
    {
        qsizetype length = digitsFrom(0);
        if (at(length) == u'.')
            length = digitsFrom(length + 1);
        if (at(length) == u'e' || at(length) == u'E') {
            const bool hasSign = at(length + 1) == u'+' || at(length + 1) == u'-';
            const qsizetype exponent = length + (hasSign ? 2 : 1);
            if (isDigit(at(exponent)))
                length = digitsFrom(exponent);
        }
        take(TokenKind::Number, length);
    }

    void readName()
    {
        qsizetype length = 1;
        while (m_position + length < m_statement.size() && continuesName(at(length)))
            ++length;
        take(TokenKind::Name, length);
    }

    void readSymbol()
    {
        static constexpr QStringView pairs[] = {u"<>", u"<=", u">=", u"=<", u"=>"};
        const QStringView rest = m_statement.sliced(m_position);
        for (const QStringView pair : pairs) {
            if (rest.startsWith(pair)) {
                take(TokenKind::Symbol, 2);
                return;
            }
        }
        if (!QStringView(u"(),.;=<>+-*/\\^&!").contains(at(0)))
            fail(u"The character %1 has no meaning in a statement."_s.arg(at(0)));
        take(TokenKind::Symbol, 1);
    }

    QStringView m_statement;
    qsizetype m_position = 0;
    TokenList m_list;
};

} // namespace

TokenList tokenise(QStringView statement)
{
    return Tokeniser(statement).run();
}

} // namespace ostrand::store::sql
