// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/connection.h"

#include <QHash>

#include <vector>

namespace ostrand::store {

/// One field of a select: its name, and where an edit of it goes.
struct FieldInfo
{
    QString name;
    QByteArray
        sourceColumn; ///< the column of the source, quoted; empty where nothing can be written
};

/// What is known of a select of one source, whose rows are kept by key.
struct KeyedPlan
{
    QString source; ///< the table or stored query
    QByteArray quotedSource;
    QByteArray key; ///< the key as an expression of the select: "alias"."rowid" or "alias"."~key"
    QByteArray keyColumn; ///< the key as a column of the source
    QByteArray baseTable; ///< the table whose rowid the key is
    bool updatable = false;
    std::vector<FieldInfo> fields; ///< the visible fields, in order
    std::vector<int> columns;      ///< the column of the row statements that each field comes from
    std::vector<int> identity;     ///< the fields that tell a row from one that got its key later
    int keyPosition = 0;           ///< the column of the first-rows statement that holds the key
    bool sorted = false;           ///< the statement has an order of its own
    qsizetype parameters = 0;      ///< text literals of the statement
    QByteArray from;
    QByteArray where;
    std::unique_ptr<PreparedStatement> firstRows; ///< fields and key, limited by the last parameter
    std::unique_ptr<PreparedStatement> allKeys;
    std::unique_ptr<PreparedStatement> oneRow; ///< by the key in the last parameter
};

/// The plan of a select, or nothing when the source has no key to keep rows by.
std::shared_ptr<KeyedPlan>
makeKeyedPlan(Connection& connection, const sql::KeyedSelect& select, qsizetype parameters);

/// A name as SQLite reads it, in double quotes.
QByteArray quoteName(const QString& name);

/// The hidden last column of stored queries whose rows can be changed.
inline constexpr const char* hiddenKey = "~key";

} // namespace ostrand::store
