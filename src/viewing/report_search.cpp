// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/report_search.h"

#include <QElapsedTimer>

#include <algorithm>

namespace ostrand::viewing {
namespace {

constexpr int turnMs = 10;

} // namespace

ReportSearch::ReportSearch(QObject* parent)
    : QObject(parent)
{
    m_turns.setInterval(0);
    connect(&m_turns, &QTimer::timeout, this, &ReportSearch::turn);
}

void ReportSearch::setPages(const reports::Pages* pages)
{
    m_pages = pages;
    m_from = 0;
    startOver();
}

void ReportSearch::setText(const QString& text, int fromPage)
{
    m_text = text;
    m_from = fromPage;
    startOver();
}

void ReportSearch::startOver()
{
    m_turns.stop();
    m_hits.clear();
    m_current.reset();
    m_seek.reset();
    m_ahead = m_from;
    m_behind = 0;
    m_read = 0;
    m_count = 0;
    if (m_pages && !m_text.isEmpty()) {
        seekFrom(m_from, 1);
        wake();
    }
    Q_EMIT changed();
}

void ReportSearch::growPages()
{
    if (m_pages && !m_text.isEmpty())
        wake();
}

void ReportSearch::wake()
{
    m_turns.start();
}

int ReportSearch::pageCount() const
{
    return m_pages ? m_pages->count() : 0;
}

bool ReportSearch::complete() const
{
    return m_pages && m_pages->complete() && m_read == pageCount();
}

const std::vector<reports::Hit>& ReportSearch::on(int page) const
{
    static const std::vector<reports::Hit> none;
    const auto at = static_cast<std::size_t>(page);
    return at < m_hits.size() && m_hits[at] ? *m_hits[at] : none;
}

int ReportSearch::number() const
{
    if (!m_current)
        return 0;
    int before = 0;
    for (int page = 0; page < m_current->page; ++page)
        before += static_cast<int>(on(page).size());
    return before + m_current->index + 1;
}

// ---- going from place to place

void ReportSearch::goNext()
{
    if (!m_current) {
        seekFrom(m_from, 1);
    } else if (const int index = m_current->index + 1;
               index < static_cast<int>(on(m_current->page).size())) {
        arrive(m_current->page, index);
    } else {
        seekFrom(m_current->page + 1, 1);
    }
}

void ReportSearch::goPrevious()
{
    if (!m_current)
        seekFrom(m_from, -1);
    else if (m_current->index > 0)
        arrive(m_current->page, m_current->index - 1);
    else
        seekFrom(m_current->page - 1, -1);
}

void ReportSearch::seekFrom(int page, int step)
{
    if (!m_pages || m_text.isEmpty())
        return;
    m_seek = Seek{page, step};
    wake();
}

void ReportSearch::arrive(int page, int index)
{
    m_seek.reset();
    m_current = Hit{page, index};
    Q_EMIT arrived(*m_current);
    Q_EMIT changed();
}

// ---- looking through the pages

void ReportSearch::turn()
{
    m_hits.resize(static_cast<std::size_t>(pageCount()));
    QElapsedTimer clock;
    clock.start();
    bool more = true;
    while (more && clock.elapsed() < turnMs)
        more = workOn();
    if (!more)
        m_turns.stop();
    Q_EMIT changed();
}

/// False where nothing is left to be done before there are more pages.
bool ReportSearch::workOn()
{
    if (m_seek && seekOn())
        return true;
    const int page = nextUnread();
    if (page < 0)
        return false;
    readPage(page);
    return true;
}

/// One page of the way to the next place. False where the way is at its end, or waits for pages
/// that are not laid out yet: beyond them may be the place, and only then does it go round.
bool ReportSearch::seekOn()
{
    const int pages = pageCount();
    const bool isOutside = m_seek->page < 0 || m_seek->page >= pages;
    if (isOutside && !m_pages->complete())
        return false;
    if (isOutside)
        m_seek->page = m_seek->step > 0 ? 0 : pages - 1;
    readPage(m_seek->page);
    if (const auto& hits = on(m_seek->page); !hits.empty()) {
        arrive(m_seek->page, m_seek->step > 0 ? 0 : static_cast<int>(hits.size()) - 1);
    } else if (++m_seek->seen >= pages && m_pages->complete()) {
        m_seek.reset();
    } else {
        m_seek->page += m_seek->step;
    }
    return true;
}

int ReportSearch::nextUnread()
{
    const auto firstUnread = [this](int& from, int end) {
        while (from < end && m_hits[static_cast<std::size_t>(from)])
            ++from;
        return from < end;
    };
    if (firstUnread(m_ahead, pageCount()))
        return m_ahead;
    if (firstUnread(m_behind, std::min(m_from, pageCount())))
        return m_behind;
    return -1;
}

void ReportSearch::readPage(int page)
{
    auto& hits = m_hits[static_cast<std::size_t>(page)];
    if (hits)
        return;
    hits = m_pages->find(page, m_text);
    ++m_read;
    m_count += static_cast<int>(hits->size());
}

} // namespace ostrand::viewing
