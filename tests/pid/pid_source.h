// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace ostrand::tests {

/// An instrument of a P&ID database; no value is Null.
struct PidRow
{
    std::optional<QString> function;
    std::optional<QString> tag;
    std::optional<QString> service;
};

/// A P&ID database that a test fills.
class PidSource
{
public:
    PidSource() = default;
    virtual ~PidSource() = default;
    PidSource(const PidSource&) = delete;
    PidSource& operator=(const PidSource&) = delete;

    /// What the project names it by.
    virtual QString path() const = 0;
    /// Adds instruments, numbered from 1.
    virtual void fill(const std::vector<PidRow>& rows) = 0;

    /// Texts that differ in case alone are equal to it.
    virtual bool ignoresCase() const = 0;
};

} // namespace ostrand::tests
