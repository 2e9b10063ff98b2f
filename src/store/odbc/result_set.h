// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/row_source.h"

#include <QStringList>

#include <sql.h>
#include <vector>

namespace ostrand::store::odbc {

struct ResultSet
{
    QStringList names;
    std::vector<Meaning> meanings; ///< of the columns
    std::vector<Row> rows;
};

/// The names of the columns of a statement that was executed.
QStringList columnNames(SQLHSTMT statement);

/// Reads all rows of a statement that was executed. Raises 3146 when the server fails meanwhile.
ResultSet readAll(SQLHSTMT statement);

} // namespace ostrand::store::odbc
