// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace ostrand::maker {

/// A measuring range, as "0 to 100 bar(g)" tells it: two ends and what they are measured in.
struct Range
{
    std::string low;
    std::string high;
    std::string unit;
};

/// The parts of a range; all empty for a text of another form.
Range splitRange(std::string_view text);

} // namespace ostrand::maker
