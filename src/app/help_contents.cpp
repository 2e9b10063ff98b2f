// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_contents.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

constexpr std::size_t mostTopics = 5000;
constexpr int deepestLevel = 15;
constexpr qsizetype longestText = 500;

/// The value of an attribute within a tag, with its character references resolved.
QString attribute(const QString& tag, const QString& name)
{
    const QRegularExpression pattern(u"\\b%1\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')"_s.arg(name),
                                     QRegularExpression::CaseInsensitiveOption);
    const auto match = pattern.match(tag);
    const QString value = match.captured(1) + match.captured(2);
    if (!value.contains(u'&'))
        return value.left(longestText);
    return QTextDocumentFragment::fromHtml(value.left(longestText).replace(u'<', u"&lt;"_s))
        .toPlainText();
}

class ContentsReader
{
public:
    void meet(const QString& tag)
    {
        const auto is = [&tag](QLatin1StringView start) {
            return tag.startsWith(start, Qt::CaseInsensitive);
        };
        if (is("<ul"_L1))
            ++m_depth;
        else if (is("</ul"_L1))
            m_depth = std::max(0, m_depth - 1);
        else if (is("<object"_L1))
            m_topic = {};
        else if (is("<param"_L1))
            takeParameter(attribute(tag, u"name"_s), attribute(tag, u"value"_s));
        else if (is("</object"_L1))
            finishTopic();
    }

    std::vector<HelpTopic> topics;

private:
    /// An entry may have several names and pages; the first ones are its own.
    void takeParameter(const QString& name, const QString& value)
    {
        if (m_topic.title.isEmpty() && name.compare("Name"_L1, Qt::CaseInsensitive) == 0)
            m_topic.title = value.simplified();
        else if (m_topic.page.isEmpty() && name.compare("Local"_L1, Qt::CaseInsensitive) == 0)
            m_topic.page = value.trimmed();
    }

    void finishTopic()
    {
        // The settings of the whole file have no name.
        if (m_topic.title.isEmpty())
            return;
        const int deepest = topics.empty() ? 0 : topics.back().level + 1;
        m_topic.level = std::clamp(m_depth - 1, 0, std::min(deepest, deepestLevel));
        topics.push_back(m_topic);
        m_topic = {};
    }

    int m_depth = 0;
    HelpTopic m_topic;
};

} // namespace

std::vector<HelpTopic> readHelpContents(const QString& text)
{
    ContentsReader reader;
    qsizetype at = 0;
    while (reader.topics.size() < mostTopics && (at = text.indexOf(u'<', at)) >= 0) {
        const qsizetype end = text.indexOf(u'>', at);
        if (end < 0)
            break;
        // Quoted values may hold the sign themselves, but sitemaps write it as a reference.
        reader.meet(text.mid(at, std::min(end + 1 - at, 4 * longestText)));
        at = end + 1;
    }
    return reader.topics;
}

} // namespace ostrand::app
