// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

struct sqlite3;

namespace ostrand::store {

/// Registers on a connection the functions that translated statements call: `like` with the
/// dialect's wildcards, joining and adding, Nz, Len, Mid, Format and their fellows.
void registerFunctions(sqlite3* connection);

} // namespace ostrand::store
