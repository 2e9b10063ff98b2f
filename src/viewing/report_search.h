// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/pages.h"

#include <QObject>
#include <QTimer>

#include <optional>
#include <vector>

namespace ostrand::viewing {

/// Which of the hits of the text that is looked for.
struct Hit
{
    int page = 0;  ///< from 0
    int index = 0; ///< on its page, from 0
};

/// Looks through the pages of a report for a text, in short turns: first on from where the user is,
/// and then the rest, for the count.
class ReportSearch final : public QObject
{
    Q_OBJECT

public:
    explicit ReportSearch(QObject* parent = nullptr);

    /// Starts over on other pages; nullptr for none.
    void setPages(const reports::Pages* pages);
    bool hasPages() const { return m_pages != nullptr; }
    /// More pages of the same report are there.
    void growPages();

    /// Looks for another text, and goes to its first place from a page on; "" ends the search.
    void setText(const QString& text, int fromPage);
    const QString& text() const { return m_text; }
    /// Go to the place behind or before the current one, round the end.
    void goNext();
    void goPrevious();

    const std::vector<reports::Hit>& on(int page) const;
    const std::optional<Hit>& current() const { return m_current; }
    /// The number of the current place, from 1, and of all places, as far as they are known.
    int number() const;
    int count() const { return m_count; }
    /// All pages of the report have been looked through.
    bool complete() const;

Q_SIGNALS:
    /// The places, the current one or their number are others.
    void changed();
    /// The current place is another one.
    void arrived(const ostrand::viewing::Hit& hit);

private:
    /// Where the next place is looked for.
    struct Seek
    {
        int page;
        int step;     ///< 1 onwards, -1 backwards
        int seen = 0; ///< pages on the way
    };

    void startOver();
    void seekFrom(int page, int step);
    void wake();
    void turn();
    bool workOn();
    bool seekOn();
    int pageCount() const;
    int nextUnread();
    void readPage(int page);
    void arrive(int page, int index);

    const reports::Pages* m_pages = nullptr;
    QString m_text;
    int m_from = 0;
    int m_ahead = 0;  ///< no page from `m_from` on below this one is unread
    int m_behind = 0; ///< no page below this one is unread
    int m_read = 0;
    int m_count = 0;
    std::vector<std::optional<std::vector<reports::Hit>>>
        m_hits; ///< by page; none for an unread one
    std::optional<Hit> m_current;
    std::optional<Seek> m_seek;
    QTimer m_turns;
};

} // namespace ostrand::viewing
