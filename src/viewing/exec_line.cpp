// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/exec_line.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace ostrand::viewing {
namespace {

/// Cuts a line into words at blanks that are not quoted.
class WordCutter
{
public:
    std::optional<QStringList> cut(const QString& line)
    {
        for (m_at = 0; m_at < line.size(); ++m_at)
            take(line);
        if (m_quote != u'\0' || m_incomplete)
            return std::nullopt;
        endWord();
        return m_words;
    }

private:
    void take(const QString& line)
    {
        const QChar letter = line[m_at];
        if (letter == u'\\' && m_quote != u'\'')
            takeEscaped(line);
        else if (m_quote != u'\0' && letter == m_quote)
            m_quote = u'\0';
        else if (m_quote == u'\0' && (letter == u'"' || letter == u'\''))
            openQuote(letter);
        else if (m_quote == u'\0' && (letter == u' ' || letter == u'\t'))
            endWord();
        else
            add(letter);
    }

    /// Inside quotes the backslash is itself in front of all but these four.
    void takeEscaped(const QString& line)
    {
        if (m_at + 1 == line.size()) {
            m_incomplete = true;
            return;
        }
        const QChar next = line[m_at + 1];
        if (m_quote != u'\0' && !u"\"`$\\"_s.contains(next)) {
            add(u'\\');
            return;
        }
        add(next);
        ++m_at;
    }

    void openQuote(QChar quote)
    {
        m_quote = quote;
        m_inWord = true;
    }

    void add(QChar letter)
    {
        m_word += letter;
        m_inWord = true;
    }

    void endWord()
    {
        if (m_inWord)
            m_words << m_word;
        m_word.clear();
        m_inWord = false;
    }

    QStringList m_words;
    QString m_word;
    qsizetype m_at = 0;
    QChar m_quote = u'\0';
    bool m_inWord = false;
    bool m_incomplete = false;
};

/// Puts the values of the field codes into the words. They are not looked at once more: whatever a
/// file is called, its name stays one argument, or a part of one.
class FieldFiller
{
public:
    explicit FieldFiller(const ExecFields& fields)
        : m_fields(fields)
    {
    }

    std::optional<QStringList> fill(const QStringList& words)
    {
        QStringList filled;
        for (const QString& word : words) {
            if (word == u"%i"_s) {
                if (!m_fields.icon.isEmpty())
                    filled << u"--icon"_s << m_fields.icon;
                continue;
            }
            const QString value = fillWord(word);
            if (m_invalid)
                return std::nullopt;
            // A word of codes that stand for nothing is no argument; one that was empty is.
            if (!value.isEmpty() || word.isEmpty())
                filled << value;
        }
        if (!m_hasFile)
            filled << m_fields.file;
        return filled;
    }

private:
    QString fillWord(const QString& word)
    {
        QString filled;
        for (qsizetype i = 0; i < word.size(); ++i) {
            if (word[i] != u'%')
                filled += word[i];
            else
                filled += valueOf(++i < word.size() ? word[i] : QChar(u'\0'));
        }
        return filled;
    }

    QString valueOf(QChar code)
    {
        switch (code.unicode()) {
        case u'f':
        case u'F':
            m_hasFile = true;
            return m_fields.file;
        case u'u':
        case u'U':
            m_hasFile = true;
            return QString::fromLatin1(QUrl::fromLocalFile(m_fields.file).toEncoded());
        case u'c':
            return m_fields.name;
        case u'k':
            return m_fields.entry;
        case u'%':
            return u"%"_s;
        case u'i':
        case u'd':
        case u'D':
        case u'n':
        case u'N':
        case u'v':
        case u'm':
            return {}; // of older entries
        default:
            m_invalid = true;
            return {};
        }
    }

    const ExecFields& m_fields;
    bool m_hasFile = false;
    bool m_invalid = false;
};

} // namespace

std::optional<QStringList> execWords(const QString& line, const ExecFields& fields)
{
    const auto words = WordCutter().cut(line);
    if (!words || words->isEmpty() || words->first().isEmpty())
        return std::nullopt;
    return FieldFiller(fields).fill(*words);
}

} // namespace ostrand::viewing
