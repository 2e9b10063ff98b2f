// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "maker/catalogue.h"

#include <filesystem>
#include <functional>

namespace ostrand::maker {

class SqliteFile;

/// Adds a project's own rows to the tables, which hold the seed rows already. Keys beside the
/// primary keys, relationships and stored queries are not there yet, for speed; what breaks them
/// makes the whole file fail.
using Fill = std::function<void(SqliteFile&, const Catalogue&)>;

/// Makes a project file from the folder of the data files: the template, and what `fill` adds.
/// The file appears whole, in place of any file that is there, or not at all. Equal input gives
/// equal bytes. Raises `std::exception` with words that name the faulty file or statement.
void makeProject(const std::filesystem::path& target,
                 const std::filesystem::path& data,
                 const Fill& fill = {});

} // namespace ostrand::maker
