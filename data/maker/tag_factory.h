// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "maker/generated_tag.h"
#include "maker/plant.h"

#include <cstdint>

namespace ostrand::maker {

/// The same number for the same text in every run: generated plants make their choices by it.
std::uint64_t stableHash(std::string_view text);

/// The tag of an instrument with all its fields. They follow from its place and from the hash of
/// its name alone.
GeneratedTag makeTag(const Place& place, const Makers& makers);

/// The smallest of 1, 1.6, 2.5, 4 and 6 times a power of ten that is above `value`.
double nextPreferred(double value);

} // namespace ostrand::maker
