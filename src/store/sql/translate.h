// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <optional>
#include <vector>

/// The dialect that the program's statements are written in, turned into SQLite's. A statement is
/// read by a real parser: what it does not understand ends in an `Error`, never in a guess.
namespace ostrand::store::sql {

enum class TokenKind { Name, BracketName, Text, Number, Date, Symbol, End };

struct Token
{
    TokenKind kind = TokenKind::End;
    QString text; ///< a name without brackets, a text literal's value, a symbol
};

/// A statement cut into tokens. Text literals are numbered from 0 in order of appearance and
/// become bound parameters, so that statements which differ only in values share one plan.
struct TokenList
{
    std::vector<Token> tokens; ///< ends with a token of kind End
    QStringList literals;      ///< values of the text literals
    QString skeleton; ///< the statement with its text literals left out: the key of the plan cache
};

/// Raises 3075 for a literal, bracket or date that does not end, or a character of no meaning.
TokenList tokenise(QStringView statement);

enum class Verb { Select, Insert, Update, Delete };

/// The pieces of a select whose rows can be kept by key: one source, no distinct, top, group,
/// aggregate or union.
struct KeyedSelect
{
    QString source;     ///< the table or stored query, as it is written in the schema
    QByteArray alias;   ///< how columns address it, quoted
    QByteArray columns; ///< the select list
    QByteArray from;    ///< all behind FROM
    QByteArray where;   ///< without the word; empty for none
    QByteArray orderBy; ///< without the words; empty for none
};

/// A translated statement: UTF-8 for sqlite3_prepare, with parameter ?n+1 for literal n.
struct Statement
{
    Verb verb = Verb::Select;
    QByteArray sql;
    QByteArray sqlDropping;           ///< insert or update: the form that leaves refused rows out
    std::optional<KeyedSelect> keyed; ///< selects only
};

/// Gives a name of the schema (table, query, column) the spelling that it has there, for names
/// beyond ASCII, which SQLite compares with case. Returns the name itself when it knows none.
using NameResolver = std::function<QString(const QString&)>;

/// Raises 3129 (no statement of the dialect), 3141, 3134, 3144, 3131, 3075 (syntax, by place),
/// 3085 (unknown function).
Statement translate(const TokenList& statement, const NameResolver& resolve = {});

/// A criterion of FindFirst, the text of a where clause without the word. `firstParameter` is the
/// number of its first parameter, counted from 1.
QByteArray translateCriterion(const TokenList& criterion,
                              int firstParameter,
                              const NameResolver& resolve = {});

} // namespace ostrand::store::sql
