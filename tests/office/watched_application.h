// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/host.h"

#include <memory>

namespace ostrand::tests {

/// Makes links to the real application that remember the workbook they opened last, so that a test
/// can look into the one that the program has open. As long as it stands, all links are such.
class WatchedApplication
{
public:
    WatchedApplication();
    ~WatchedApplication();
    WatchedApplication(const WatchedApplication&) = delete;
    WatchedApplication& operator=(const WatchedApplication&) = delete;

    /// The workbook opened last, if the program still has it.
    std::shared_ptr<spreadsheet::Workbook> workbook() const { return m_workbook->lock(); }

private:
    void install();

    std::shared_ptr<std::weak_ptr<spreadsheet::Workbook>> m_workbook =
        std::make_shared<std::weak_ptr<spreadsheet::Workbook>>();
};

} // namespace ostrand::tests
