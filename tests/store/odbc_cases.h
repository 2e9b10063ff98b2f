// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/database.h"
#include "store/recordset.h"
#include "support/odbc_source.h"

namespace ostrand::tests {

/// The kind of server that the executable was built for.
inline constexpr QLatin1StringView sourceKind{OSTRAND_TEST_SOURCE};

inline store::Database openSource(bool readOnly = false)
{
    return store::DBEngine::OpenDatabase(
        QStringLiteral("P&ID_SQL_SERVER"), 1, readOnly, OdbcSource::connectString());
}

/// The first value of a select.
inline store::Value first(const store::Database& database, const QString& sql)
{
    return database.OpenRecordset(sql)->Field(0);
}

} // namespace ostrand::tests
