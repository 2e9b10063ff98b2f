// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>

namespace ostrand::maker {

class SqliteFile;

/// Makes a database file. It appears whole, in place of any file that is there, or not at all.
/// Raises what `fill` raises, and `std::runtime_error` where rows refer to rows that are not there.
void makeDatabase(const std::filesystem::path& target,
                  const std::function<void(SqliteFile&)>& fill);

} // namespace ostrand::maker
