// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace ostrand::spreadsheet::libreoffice {

/// Looks after calls of the main thread to the application. One that stands still holds the program
/// up; when a call has taken too long, somebody is told, on a thread of the watch.
class CallWatch
{
public:
    /// The limit is milliseconds.
    CallWatch(int limit, std::function<void()> overdue);
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    /// A call in progress, on whatever thread; those of the main thread are watched.
    class Call
    {
    public:
        Call();
        ~Call();
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;

    private:
        bool m_isOutermost;
    };

private:
    void look(int limit, const std::function<void()>& overdue);

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_ended = false;
    std::thread m_thread;
};

} // namespace ostrand::spreadsheet::libreoffice
