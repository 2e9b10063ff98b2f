// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/event_queue.h"

#include "spreadsheet/error.h"

#include <vector>

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// Handlers tell their failures themselves. What is left over is a call to an application that has
/// ended meanwhile, which comes as an event of its own; nothing must cross the event loop.
void run(const EventQueue::Event& event)
{
    try {
        event();
    } catch (const Error&) {
        return;
    }
}

} // namespace

EventQueue::Hold::Hold(EventQueue& queue)
    : m_queue(queue)
{
    ++m_queue.m_holds;
}

EventQueue::Hold::~Hold()
{
    if (--m_queue.m_holds == 0)
        m_queue.wake();
}

void EventQueue::post(Kind kind, Event event)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_events.push_back({kind, std::move(event)});
    }
    wake();
}

void EventQueue::wake()
{
    QMetaObject::invokeMethod(this, &EventQueue::handle, Qt::QueuedConnection);
}

bool EventQueue::takeNext(Event& event)
{
    const std::scoped_lock lock(m_mutex);
    if (m_events.empty())
        return false;
    event = std::move(m_events.front().event);
    m_events.pop_front();
    return true;
}

void EventQueue::handle()
{
    Event event;
    while (m_holds == 0 && takeNext(event)) {
        const Hold hold(*this);
        run(event);
    }
}

void EventQueue::handleNews()
{
    std::vector<Event> news;
    {
        const std::scoped_lock lock(m_mutex);
        for (Posted& posted : m_events) {
            if (posted.kind == Kind::News)
                news.push_back(std::move(posted.event));
        }
        std::erase_if(m_events, [](const Posted& posted) { return posted.kind == Kind::News; });
    }
    const Hold hold(*this);
    for (const Event& event : news)
        run(event);
}

} // namespace ostrand::spreadsheet::libreoffice
