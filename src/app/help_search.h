// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace ostrand::app {

/// A stretch of a text.
struct TextRange
{
    qsizetype start = 0;
    qsizetype length = 0;

    friend bool operator==(const TextRange&, const TextRange&) = default;
};

/// The words of a query, without case and diacritics; each counts once.
QStringList searchWords(const QString& query);

/// Where words of the text begin with one of the search words, in order.
std::vector<TextRange> findWords(const QString& text, const QStringList& words);

/// A page that a search found.
struct HelpHit
{
    QString page;
    QString title;
    QString excerpt; ///< the surroundings of the first hit
    int weight = 0;  ///< hits in the text, those in the title counting many times
};

/// The full text of a help file's pages.
class HelpSearch
{
public:
    void addPage(const QString& page, const QString& title, const QString& text);
    /// The pages that hold all words of the query, the best first; none for an empty query.
    std::vector<HelpHit> find(const QString& query) const;

private:
    struct Page
    {
        QString page;
        QString title;
        QString text;
    };

    std::vector<Page> m_pages;
};

} // namespace ostrand::app
