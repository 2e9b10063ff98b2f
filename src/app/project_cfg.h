// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::app {

/// The schema that a configuration file of the P&ID link names; "" when the file or its section is
/// not there. Warns unless the database type and the schema are valid, and gives the schema in any
/// case. Raises `store::Error`: 5 (a line shorter than its key, or one beyond all measure), 57 (the
/// device failed), 62 (the file ends within the section), 70 (permission denied).
QString ReadProjectCfg(const QString& path);

} // namespace ostrand::app
