// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::pid {

/// The main window's command that brings all datasheets up to date from the project, and writes
/// their mapped cells into the P&ID database. It is told in `Export.log`.
void cmdExport();

} // namespace ostrand::pid
