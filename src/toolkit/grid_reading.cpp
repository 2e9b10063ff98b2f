// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/grid_reading.h"

#include <QElapsedTimer>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace ostrand::toolkit {

namespace {

constexpr auto retryTime = 1s;
/// What fails sooner than this costs a screen of cells no noticeable time.
constexpr qint64 slowMs = 100;

} // namespace

GridReading::GridReading(std::function<void()> retry)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(retryTime);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this, run = std::move(retry)] {
        m_paused = false;
        run();
    });
}

bool GridReading::attempt(const std::function<void()>& read)
{
    if (m_paused)
        return false;
    QElapsedTimer timer;
    timer.start();
    try {
        read();
        return true;
    } catch (const store::Error&) {
        noteFailure(timer.elapsed() >= slowMs);
        return false;
    }
}

void GridReading::noteFailure(bool slow)
{
    m_paused = m_paused || slow;
    if (slow || !m_retry.isActive())
        m_retry.start();
}

} // namespace ostrand::toolkit
