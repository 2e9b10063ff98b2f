// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/call_watch.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>
#include <chrono>

namespace ostrand::spreadsheet::libreoffice {
namespace {

using Clock = std::chrono::steady_clock;

/// When the main thread's call began; 0 while there is none.
std::atomic<Clock::rep> callBegan{0};

bool isMainThread()
{
    return QCoreApplication::instance()
           && QThread::currentThread() == QCoreApplication::instance()->thread();
}

} // namespace

CallWatch::Call::Call()
    : m_isOutermost(isMainThread() && callBegan == 0)
{
    if (m_isOutermost)
        callBegan = Clock::now().time_since_epoch().count();
}

CallWatch::Call::~Call()
{
    if (m_isOutermost)
        callBegan = 0;
}

CallWatch::CallWatch(int limit, std::function<void()> overdue)
    : m_thread([this, limit, told = std::move(overdue)] { look(limit, told); })
{
}

CallWatch::~CallWatch()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_ended = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void CallWatch::look(int limit, const std::function<void()>& overdue)
{
    constexpr std::chrono::milliseconds interval{250};
    const std::chrono::milliseconds most(limit);
    std::unique_lock lock(m_mutex);
    while (!m_wake.wait_for(lock, interval, [this] { return m_ended; })) {
        const Clock::time_point began{Clock::duration(callBegan.load())};
        if (callBegan != 0 && Clock::now() - began > most) {
            overdue();
            return;
        }
    }
}

} // namespace ostrand::spreadsheet::libreoffice
