// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace ostrand::maker {

/// Makes the P&ID database of the sample project from the folder `sample_pid` under `data`: the
/// table `Components-Instruments`. Raises as `makeProject` does.
void makePidDatabase(const std::filesystem::path& target, const std::filesystem::path& data);

} // namespace ostrand::maker
