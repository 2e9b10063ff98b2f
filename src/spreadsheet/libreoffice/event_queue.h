// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace ostrand::spreadsheet::libreoffice {

/// Brings what the application tells to the main thread. It tells on threads of its own and holds
/// its global lock meanwhile, so whoever is told must return at once: the event is queued here, and
/// the main thread handles it when its event loop turns. Events are handled one after another; one
/// that arrives while a handler has a message box open waits for the end of that handler.
class EventQueue : public QObject
{
    Q_OBJECT

public:
    using Event = std::function<void()>;

    /// News of what has happened, and commands that wait for our leave.
    enum class Kind { News, Command };

    /// From any thread.
    void post(Kind kind, Event event);
    /// Handles the news that wait, on the main thread and although events are held up. For who has
    /// just made the application tell something that he needs to know.
    void handleNews();

    /// While one stands, events wait.
    class Hold
    {
    public:
        explicit Hold(EventQueue& queue);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        EventQueue& m_queue;
    };

private:
    void handle();
    bool takeNext(Event& event);
    void wake();

    std::mutex m_mutex;
    struct Posted
    {
        Kind kind;
        Event event;
    };
    std::deque<Posted> m_events;
    int m_holds = 0; ///< of the main thread alone
};

} // namespace ostrand::spreadsheet::libreoffice
