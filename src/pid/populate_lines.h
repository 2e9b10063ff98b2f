// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace ostrand::store {
class Database;
} // namespace ostrand::store

namespace ostrand::pid {

/// What is known of one line of the list: the line with its place among its equals, counted from
/// 0; `ID_COUNT_`; `SERVICE_`, one blank where there is none.
using TagDetails = std::array<QString, 3>;
inline constexpr std::size_t serviceDetail = 2;

/// The instruments as lines to choose from, in the order of their tags, and their details in the
/// same order.
struct PopulateLines
{
    QStringList lines;
    std::vector<TagDetails> details;
};

/// Reads every instrument that has both a function and a tag. Instruments that the database counts
/// as equal are told apart by a number in brackets. Raises `store::Error`; also where the database
/// finds more or fewer equals of an instrument than there are, so that a group has no end.
PopulateLines readPopulateLines(const store::Database& pid, bool isServer);

} // namespace ostrand::pid
