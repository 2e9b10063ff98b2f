// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "maker/range.h"

namespace ostrand::maker {

Range splitRange(std::string_view text)
{
    constexpr std::string_view between = " to ";
    const std::size_t low = text.find(between);
    if (low == std::string_view::npos)
        return {};
    const std::string_view rest = text.substr(low + between.size());
    const std::size_t high = rest.find(' ');
    if (high == std::string_view::npos)
        return {};
    return {std::string(text.substr(0, low)),
            std::string(rest.substr(0, high)),
            std::string(rest.substr(high + 1))};
}

} // namespace ostrand::maker
