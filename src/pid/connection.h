// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/database.h"

#include <QString>

#include <optional>

namespace ostrand::pid {

/// The path names a server through its configuration file, and not a database file.
bool isServerConfiguration(const QString& path);

/// Opens the P&ID database that a project names: a database file, or, behind a `Project.cfg`, the
/// schema of the data source `P&ID_SQL_SERVER`. Raises `store::Error`.
store::Database openPidDatabase(const QString& path);

/// The same for import and export: nothing where the file is not there, which shows the record
/// counter, and nothing after a failure, which is told.
std::optional<store::Database> checkPIDDatabaseFunction(const QString& path);

} // namespace ostrand::pid
