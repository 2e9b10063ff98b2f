// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/event_queue.h"

namespace ostrand::spreadsheet::libreoffice {

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

void EventQueue::post(Event event)
{
    {
        const std::scoped_lock lock(m_mutex);
        m_events.push_back(std::move(event));
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
    event = std::move(m_events.front());
    m_events.pop_front();
    return true;
}

void EventQueue::handle()
{
    Event event;
    while (m_holds == 0 && takeNext(event)) {
        const Hold hold(*this);
        event();
    }
}

} // namespace ostrand::spreadsheet::libreoffice
