// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/page_flow.h"

#include "datasheets/failure.h"

namespace ostrand::viewing {
namespace {

constexpr int turnMs = 12;
/// Where the user waits for the end, fewer and longer turns are quicker.
constexpr int longTurnMs = 40;

} // namespace

PageFlow::PageFlow(QObject* parent)
    : QObject(parent)
{
    m_turns.setInterval(0);
    connect(&m_turns, &QTimer::timeout, this, &PageFlow::turn);
}

void PageFlow::start(std::unique_ptr<reports::Pages> pages)
{
    m_turns.stop();
    m_pages = std::move(pages);
    if (m_pages)
        m_turns.start();
}

int PageFlow::count() const
{
    return m_pages ? m_pages->count() : 0;
}

bool PageFlow::complete() const
{
    return m_pages && m_pages->complete();
}

void PageFlow::turn()
{
    try {
        layOut(turnMs);
    } catch (...) {
        m_turns.stop();
        Q_EMIT failed(datasheets::currentFailure());
    }
}

void PageFlow::layOut(int milliseconds)
{
    const int before = m_pages->count();
    m_pages->layOutMore(milliseconds);
    if (m_pages->complete())
        m_turns.stop();
    if (m_pages->complete() || m_pages->count() != before)
        Q_EMIT grown();
    if (m_pages->complete())
        Q_EMIT finished();
}

bool PageFlow::finish(const std::function<bool(int count)>& goOn)
{
    m_turns.stop();
    while (!m_pages->complete()) {
        if (!goOn(m_pages->count())) {
            m_turns.start();
            return false;
        }
        layOut(longTurnMs);
    }
    return true;
}

} // namespace ostrand::viewing
