// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/sql/translate.h"

#include <QByteArrayList>
#include <QHash>
#include <QSet>

#include <initializer_list>

namespace ostrand::store::sql {

/// A piece of an expression, written for SQLite. Operators stand in brackets of their own, so that
/// a piece can be put anywhere.
struct Expression
{
    QByteArray sql;
    bool comparison = false; ///< yields 1 or 0 where the dialect means -1 or 0
    QByteArray column = {};  ///< the quoted column that it is, or empty

    /// What stands for it where its value counts and not only whether it holds.
    QByteArray value() const { return comparison ? QByteArray("(-" + sql + ")") : sql; }
    /// Its value, compared and ordered as texts are in this system.
    QByteArray collated() const { return value() + " COLLATE JET"; }
};

struct Source
{
    QString name;     ///< the table's or stored query's; empty for a subquery
    QByteArray alias; ///< quoted; how columns address it
    QByteArray sql;
};

/// What stands behind FROM or UPDATE.
struct Sources
{
    QByteArray sql;
    std::vector<Source> list;
    QByteArrayList joinConditions;
    bool hasOuterJoin = false;
};

/// Reads the tokens of one statement from left to right, one method per rule of the dialect.
/// Every method raises an `Error` at the first token that it does not expect; the number comes from
/// the place in the statement.
class Parser
{
public:
    Parser(const TokenList& tokens, const NameResolver& resolve, int firstParameter = 1);

    Statement statement();
    QByteArray criterion();

private:
    /// Counts how deep rules stand within each other and ends statements that nest without end.
    class Level
    {
    public:
        explicit Level(Parser& parser);
        ~Level() { --m_parser.m_depth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        Parser& m_parser;
    };

    struct Select
    {
        bool distinct = false;
        QByteArray top; ///< a number, or empty
        bool topIsPercent = false;
        QByteArray columns;
        bool aggregates = false;
        Sources from;
        QByteArray where;
        QByteArray groupBy;
        QByteArray having;
    };

    struct Assignment
    {
        QByteArray column;
        QByteArray value;
    };

    struct Assignments
    {
        std::vector<Assignment> list;
        QByteArray target; ///< the quoted alias that columns were addressed by, or empty
    };

    // ---- tokens
    const Token& peek(std::size_t ahead = 0) const;
    bool atEnd() const { return peek().kind == TokenKind::End; }
    Token take();
    bool isWord(QStringView word, std::size_t ahead = 0) const;
    bool isAnyWord(std::initializer_list<QStringView> words) const;
    bool isSymbol(QStringView symbol, std::size_t ahead = 0) const;
    bool acceptWord(QStringView word);
    bool acceptSymbol(QStringView symbol);
    void expectWord(QStringView word);
    void expectSymbol(QStringView symbol);
    void expectEnd();
    bool startsSubquery() const;
    [[noreturn]] void fail() const;

    // ---- names
    bool isName(std::size_t ahead = 0) const;
    QString takeName();
    QByteArray takeQuotedName();
    QString spelled(const QString& name);

    // ---- expressions, from the loosest binding to the tightest
    Expression expression();
    Expression disjunction();
    Expression conjunction();
    Expression negation();
    Expression comparison();
    Expression comparisonBehind(const Expression& left);
    Expression likeBehind(const Expression& left);
    Expression betweenBehind(const Expression& left);
    Expression membershipBehind(const Expression& left);
    Expression nullTestBehind(const Expression& left);
    Expression joined();
    Expression sum();
    Expression modulo();
    Expression integerQuotient();
    Expression product();
    Expression signedFactor();
    Expression power();
    Expression primary();
    Expression nameOrCall();
    Expression call(const QString& name);
    Expression bracketed();
    QByteArray parameter();

    // ---- selects
    QByteArray query(std::optional<KeyedSelect>* keyed = nullptr);
    Select select();
    void selectQuantity(Select& select);
    void selectList(Select& select);
    QByteArray selectItem(int& unnamed);
    bool acceptAllColumns(QByteArray& sql);
    QByteArray groupList();
    QByteArray orderList();
    Sources sources();
    Sources joinChain();
    Sources joinOperand();
    Sources source();
    void joinBehind(Sources& left);
    static QByteArray written(const Select& select, const QByteArray& orderBy);
    static std::optional<KeyedSelect> keyedForm(const Select& select, const QByteArray& orderBy);

    // ---- actions
    Statement selectStatement();
    Statement insertStatement();
    Statement updateStatement();
    Statement deleteStatement();
    QByteArray insertedRows();
    Assignments assignments();
    static QByteArray written(const std::vector<Assignment>& assignments);
    static QByteArray updateThroughInnerJoins(const Sources& sources,
                                              const Source& target,
                                              const Assignments& set,
                                              const QByteArray& where);
    static QByteArray updateThroughOuterJoins(const Sources& sources,
                                              const Source& target,
                                              const Assignments& set,
                                              const QByteArray& where);
    QByteArray optionalWhere();

    const TokenList& m_tokens;
    const NameResolver& m_resolve;
    std::vector<int> m_literalNumbers; ///< for each token the number of its text literal
    QHash<QString, QString> m_spellings;
    int m_firstParameter;
    std::size_t m_position = 0;
    int m_depth = 0;
    int m_place = errors::notAStatement; ///< the error number of a slip at this place
    bool m_sawAggregate = false;
};

/// A name as SQLite takes it: in double quotes.
QByteArray quoted(const QString& name);

} // namespace ostrand::store::sql
