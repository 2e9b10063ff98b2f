// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "store/sql/translate.h"

#include <QString>

#include <optional>
#include <sql.h>

namespace ostrand::store::odbc {

/// What a driver tells of a call that failed.
struct Diagnosis
{
    QString state; ///< the five characters of the first record
    QString words; ///< of all records
};

Diagnosis diagnose(SQLSMALLINT handleType, SQLHANDLE handle);

/// The error of a statement that failed: 3078, 3061, 3079, 3085 where the driver says so, what a
/// slip in a statement of that verb is called (3141 ...), and 3146 for all else.
Error callError(const Diagnosis& diagnosis, std::optional<sql::Verb> verb = std::nullopt);

} // namespace ostrand::store::odbc
