// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::pid {

/// The main window's command that fills all datasheets from the P&ID database, and passes the
/// values on into the project. It is told in `Import.log`.
void cmdImport();

} // namespace ostrand::pid
