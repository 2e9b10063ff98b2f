// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"

#include <QTimer>

#include <functional>

namespace ostrand::toolkit {

/// How a grid reads while it paints. A file that another program holds keeps each read waiting; so
/// after one that was long in failing no other is tried for a while, or a screen of cells would
/// wait cell by cell.
class GridReading
{
public:
    /// `retry` runs a while after a failure, to have the grid painted again.
    explicit GridReading(std::function<void()> retry);

    /// Reads, unless there is a pause. False in a pause, or when the reading failed.
    bool attempt(const std::function<void()>& read);
    /// Notes a failure met elsewhere; `slow` begins a pause.
    void noteFailure(bool slow);
    bool isPaused() const { return m_paused; }
    /// True from a failure until the retry, paused or not.
    bool isRetrying() const { return m_retry.isActive(); }

private:
    QTimer m_retry;
    bool m_paused = false;
};

} // namespace ostrand::toolkit
