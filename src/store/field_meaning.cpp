// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/row_source.h"

using namespace Qt::StringLiterals;

namespace ostrand::store {

Meaning meaningOf(Connection& connection, const PreparedStatement& select, int column)
{
    const char* table = sqlite3_column_table_name(select.handle(), column);
    const char* origin = sqlite3_column_origin_name(select.handle(), column);
    if (!table || !origin || !connection.findSource(u"~columns"_s))
        return Meaning::Plain;
    PreparedStatement types(
        connection, "SELECT type FROM \"~columns\" WHERE tableName = ?1 AND columnName = ?2");
    const PreparedStatement::Reset reset(types);
    types.bind(1, QString::fromUtf8(table));
    types.bind(2, QString::fromUtf8(origin));
    if (!types.step())
        return Meaning::Plain;
    const QString type = types.column(0).text();
    if (type == "Date"_L1)
        return Meaning::Date;
    return type == "Boolean"_L1 ? Meaning::Flag : Meaning::Plain;
}

} // namespace ostrand::store
