// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "pid/instrument.h"

#include <QHash>

#include <optional>
#include <vector>

namespace ostrand::store {
class Database;
} // namespace ostrand::store

namespace ostrand::pid {

/// How many instruments the database finds to be equal to one of them: of the same function, and
/// of a tag that is LIKE its tag. Values go into the statement as they are, so that an apostrophe
/// makes it fail and a wildcard is one.
///
/// A statement for each instrument of a large file would take the square of their number in time.
/// Where values hold nothing that a statement reads in its own way, the instruments of a file are
/// counted beforehand, in one pass, by the very comparisons that its engine makes.
class EqualInstruments
{
public:
    /// `all` must outlive this object.
    EqualInstruments(const store::Database& pid, bool isServer, const std::vector<Instrument>& all);

    /// Raises `store::Error` where the statement fails.
    qint64 count(std::size_t instrument) const;

private:
    void countAll();
    qint64 countByStatement(const Instrument& instrument) const;

    const store::Database& m_pid;
    QString m_table;
    const std::vector<Instrument>& m_all;
    std::vector<int> m_groupOf; ///< by instrument; empty where nothing was counted beforehand
    std::vector<qint64> m_sizes;
};

} // namespace ostrand::pid
