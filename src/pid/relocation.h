// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::pid {

/// Moves all datasheets of the project to the new default datasheet folder, and has their records
/// name it. A record whose file is gone names no datasheet any more. Shows its own failures; what
/// was moved before one stays moved.
void changedDatasheetPath();

} // namespace ostrand::pid
