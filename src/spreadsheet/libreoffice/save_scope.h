// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

namespace ostrand::spreadsheet::libreoffice {

/// Counts a save as long as it lasts.
class SaveScope
{
public:
    explicit SaveScope(std::atomic<int>& saves)
        : m_saves(saves)
    {
        ++m_saves;
    }
    ~SaveScope() { --m_saves; }
    SaveScope(const SaveScope&) = delete;
    SaveScope& operator=(const SaveScope&) = delete;

private:
    std::atomic<int>& m_saves;
};

} // namespace ostrand::spreadsheet::libreoffice
