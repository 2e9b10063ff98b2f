// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::app {

/// Sets `g_blnPidLinked`: whether the open project names a P&ID database. An empty text counts as
/// a name, Null does not. Callers follow it with `ableButton`.
void CheckImpExp();

} // namespace ostrand::app
