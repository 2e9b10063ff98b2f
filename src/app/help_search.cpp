// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_search.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

constexpr int titleWeight = 50;

/// A text without case and diacritics, and for each of its letters the one that it comes from.
struct Folded
{
    QString text;
    std::vector<qsizetype> origins;
};

Folded fold(const QString& text)
{
    Folded folded;
    folded.text.reserve(text.size());
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype length = text.at(at).isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
        const QString letter = text.mid(at, length);
        const QString parts = letter.at(0).unicode() < 0x80
                                  ? letter.toLower()
                                  : letter.normalized(QString::NormalizationForm_KD).toCaseFolded();
        for (const QChar part : parts) {
            if (part.isMark())
                continue;
            folded.text += part;
            folded.origins.push_back(at);
        }
        at += length;
    }
    folded.origins.push_back(text.size());
    return folded;
}

bool isWordStart(const QString& text, qsizetype at)
{
    return at == 0 || !text.at(at - 1).isLetterOrNumber() || !text.at(at).isLetterOrNumber();
}

std::vector<TextRange> findFolded(const Folded& folded, const QString& word)
{
    std::vector<TextRange> ranges;
    for (qsizetype at = folded.text.indexOf(word); at >= 0;
         at = folded.text.indexOf(word, at + word.size())) {
        if (!isWordStart(folded.text, at))
            continue;
        const qsizetype start = folded.origins[static_cast<std::size_t>(at)];
        const qsizetype end = folded.origins[static_cast<std::size_t>(at + word.size())];
        ranges.push_back({start, std::max<qsizetype>(1, end - start)});
    }
    return ranges;
}

QString excerptAround(const QString& text, qsizetype at)
{
    constexpr qsizetype before = 30;
    constexpr qsizetype whole = 100;
    qsizetype start = std::max<qsizetype>(0, at - before);
    while (start > 0 && start < at && !text.at(start - 1).isSpace())
        ++start;
    qsizetype end = std::min(start + whole, text.size());
    while (end < text.size() && end > at + before && !text.at(end).isSpace())
        --end;
    QString excerpt = text.mid(start, end - start).simplified();
    if (start > 0)
        excerpt.prepend(u"… "_s);
    if (end < text.size())
        excerpt += u" …"_s;
    return excerpt;
}

} // namespace

QStringList searchWords(const QString& query)
{
    QStringList words = fold(query).text.simplified().split(u' ', Qt::SkipEmptyParts);
    words.removeDuplicates();
    return words;
}

std::vector<TextRange> findWords(const QString& text, const QStringList& words)
{
    const Folded folded = fold(text);
    std::vector<TextRange> ranges;
    for (const QString& word : words) {
        const auto found = findFolded(folded, word);
        ranges.insert(ranges.end(), found.begin(), found.end());
    }
    std::sort(ranges.begin(), ranges.end(), [](const TextRange& one, const TextRange& other) {
        return one.start < other.start;
    });
    return ranges;
}

void HelpSearch::addPage(const QString& page, const QString& title, const QString& text)
{
    m_pages.push_back({page, title, text});
}

std::vector<HelpHit> HelpSearch::find(const QString& query) const
{
    const QStringList words = searchWords(query);
    std::vector<HelpHit> hits;
    if (words.isEmpty())
        return hits;
    for (const Page& page : m_pages) {
        int weight = 0;
        const bool hasAll = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            const auto inTitle = static_cast<int>(findWords(page.title, {word}).size());
            const auto inText = static_cast<int>(findWords(page.text, {word}).size());
            weight += inTitle * titleWeight + inText;
            return inTitle + inText > 0;
        });
        if (!hasAll)
            continue;
        const auto ranges = findWords(page.text, words);
        const qsizetype first = ranges.empty() ? 0 : ranges.front().start;
        hits.push_back({page.page, page.title, excerptAround(page.text, first), weight});
    }
    std::stable_sort(hits.begin(), hits.end(), [](const HelpHit& one, const HelpHit& other) {
        return one.weight > other.weight;
    });
    return hits;
}

} // namespace ostrand::app
