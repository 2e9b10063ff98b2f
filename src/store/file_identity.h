// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace ostrand::store {

/// What a file is, whatever path leads to it: two paths of one file have the same identity, and a
/// file that took the place of another has a new one.
struct FileIdentity
{
    std::uintmax_t device = 0;
    std::uintmax_t file = 0;
    bool operator==(const FileIdentity&) const = default;
};

/// Nothing when the file cannot be looked at.
std::optional<FileIdentity> identityOf(const std::filesystem::path& path);

} // namespace ostrand::store
