// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace ostrand::maker {

/// Makes a project of `count` tags for measurements, with about four documents for each. Equal
/// counts give equal files, and a smaller plant is the beginning of a larger one. Raises as
/// `makeProject` does.
void makeGeneratedProject(int count,
                          const std::filesystem::path& target,
                          const std::filesystem::path& data);

} // namespace ostrand::maker
