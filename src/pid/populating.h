// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::pid {

/// The main window's command that fills the index from the P&ID database that the project names:
/// lists its instruments to choose from. Without a database named it tells so; other failures end
/// it, most of them without a word.
void cmdTag();

} // namespace ostrand::pid
