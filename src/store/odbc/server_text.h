// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/odbc/like_pattern.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace ostrand::store::odbc {

/// What a server's language differs in.
struct ServerDialect
{
    bool keepsBrackets = false; ///< takes names in brackets, and finds names in any case
    QString quote;              ///< stands around names elsewhere; "" when the server has none
    PatternForm patterns = PatternForm::LikeOnly;
    QString joiner; ///< joins two texts
};

/// Tells how the server spells its names.
class NameBook
{
public:
    NameBook() = default;
    virtual ~NameBook() = default;
    NameBook(const NameBook&) = delete;
    NameBook& operator=(const NameBook&) = delete;

    /// The spelling of a table or view that is named in any case; nothing when there is none.
    virtual std::optional<QString> table(const QString& name) = 0;
    /// The columns of a table, named as the server spells it.
    virtual QStringList columns(const QString& table) = 0;
};

/// The spelling of a name in a list: the name itself, or else the first in another case.
std::optional<QString> spellingIn(const QStringList& list, const QString& name);

/// A statement of the program's dialect in the server's language.
QString serverText(QStringView statement, const ServerDialect& dialect, NameBook& book);

/// A statement of the server's language that has names in brackets, or in another case than the
/// server keeps them in: only those change.
QString passThroughText(QStringView statement, const ServerDialect& dialect, NameBook& book);

} // namespace ostrand::store::odbc
