// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_page.h"

#include <QStringDecoder>
#include <QStringList>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

// The time that a layout takes grows with the square of a word's length and doubles with each table
// in a table.
constexpr qsizetype largestPage = 512 * 1024;
constexpr qsizetype longestWord = 10000;
constexpr int deepestTable = 8;
constexpr int deepestElement = 1000;

/// A document that loads nothing of what its text names.
class BareDocument final : public QTextDocument
{
public:
    explicit BareDocument(const QString& html) { setHtml(html); }

protected:
    QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return {}; }
};

/// Follows how deep the elements of a page stand within each other.
class Nesting
{
public:
    /// False when an element stands too deep.
    bool meet(const QString& name, bool isEnd)
    {
        static const QStringList withoutEnd{u"br"_s,
                                            u"dd"_s,
                                            u"dt"_s,
                                            u"hr"_s,
                                            u"img"_s,
                                            u"li"_s,
                                            u"link"_s,
                                            u"meta"_s,
                                            u"p"_s,
                                            u"td"_s,
                                            u"th"_s,
                                            u"tr"_s};
        const int step = isEnd ? -1 : 1;
        if (name == "table"_L1)
            m_tables += step;
        if (!withoutEnd.contains(name))
            m_elements += step;
        return m_tables <= deepestTable && m_elements <= deepestElement;
    }

private:
    int m_tables = 0;
    int m_elements = 0;
};

QString elementName(const QString& html, qsizetype at)
{
    qsizetype end = at;
    while (end < html.size() && html.at(end).isLetterOrNumber())
        ++end;
    return html.mid(at, end - at).toLower();
}

} // namespace

QString decodeHelpPage(const QByteArray& bytes)
{
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    return decoder.decode(bytes);
}

QString helpPageTitle(const QString& html)
{
    return BareDocument(html).metaInformation(QTextDocument::DocumentTitle).simplified();
}

QString helpPageText(const QString& html)
{
    return BareDocument(html).toPlainText().remove(QChar::ObjectReplacementCharacter);
}

bool isShowablePage(const QString& html)
{
    if (html.size() > largestPage)
        return false;
    Nesting nesting;
    qsizetype wordStart = 0;
    for (qsizetype at = 0; at < html.size(); ++at) {
        const QChar letter = html.at(at);
        if (letter != u'<' && !letter.isSpace()) {
            if (at - wordStart >= longestWord)
                return false;
            continue;
        }
        wordStart = at + 1;
        if (letter != u'<')
            continue;
        const bool isEnd = html.mid(at + 1, 1) == "/"_L1;
        const QString name = elementName(html, at + (isEnd ? 2 : 1));
        if (!name.isEmpty() && !nesting.meet(name, isEnd))
            return false;
    }
    return true;
}

} // namespace ostrand::app
