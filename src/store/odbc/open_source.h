// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/backend.h"

#include <QString>

#include <memory>

namespace ostrand::store::odbc {

struct Patience;

/// Connects to a data source. Raises as `DBEngine::OpenDatabase` tells. Whatever the options say,
/// no login window is shown.
std::shared_ptr<Backend>
openSource(const QString& name, int options, bool readOnly, const QString& connect);

/// The times that connections made from now on wait for their servers.
Patience& patience();

} // namespace ostrand::store::odbc
