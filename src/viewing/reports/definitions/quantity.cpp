// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/definitions/quantity.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

bool isSign(QChar c)
{
    return c == u'-' || c == u'+' || c == u'\u2212';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Reads a text from left to right.
class Reader
{
public:
    explicit Reader(QStringView text)
        : m_text(text)
    {
    }

    QStringView rest() const { return m_text.mid(m_at); }
    qsizetype position() const { return m_at; }

    /// The number at this place, ahead of which blanks may stand.
    std::optional<double> number()
    {
        while (peek().isSpace())
            ++m_at;
        QString digits;
        if (isSign(peek()))
            digits += take() == u'+' ? u""_s : u"-"_s;
        const qsizetype start = m_at;
        while (isDigit(peek()) || ((peek() == u'.' || peek() == u',') && isDigit(peek(1))))
            ++m_at;
        const std::optional<QString> plain = plainDigits(m_text.mid(start, m_at - start));
        if (!plain)
            return std::nullopt;
        digits += *plain + exponent();
        bool valid = false;
        const double value = digits.toDouble(&valid);
        return valid ? std::optional(value) : std::nullopt;
    }

private:
    QChar peek(qsizetype ahead = 0) const
    {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : QChar();
    }
    QChar take() { return m_text[m_at++]; }

    /// With a point for the decimal mark. A comma ahead of three digits may part thousands as well
    /// as decimals, unless a lone 0 stands in front of it.
    static std::optional<QString> plainDigits(QStringView digits)
    {
        const auto isMark = [](QChar c) { return !isDigit(c); };
        const auto mark = std::find_if(digits.begin(), digits.end(), isMark);
        if (std::count_if(digits.begin(), digits.end(), isMark) > 1)
            return std::nullopt;
        if (mark == digits.end() || *mark == u'.')
            return digits.toString();
        const bool ambiguous = digits.end() - mark == 4 && mark - digits.begin() <= 3
                               && mark != digits.begin() && digits.front() != u'0';
        return ambiguous ? std::nullopt : std::optional(digits.toString().replace(u',', u'.'));
    }

    QString exponent()
    {
        if (peek().toLower() != u'e')
            return {};
        const qsizetype sign = isSign(peek(1)) ? 1 : 0;
        if (!isDigit(peek(1 + sign)))
            return {};
        QString text = u"e"_s;
        ++m_at;
        if (sign == 1)
            text += take() == u'+' ? u"+"_s : u"-"_s;
        while (isDigit(peek()))
            text += take();
        return text;
    }

    QStringView m_text;
    qsizetype m_at = 0;
};

/// Nothing for words that are no unit. A number behind a blank or a bracket is one of those: the
/// value goes on ("12 500") or a second one follows ("4 mA (0 %)").
std::optional<QString> unitOf(QStringView text)
{
    constexpr qsizetype longest = 16;
    QString unit = text.trimmed().toString();
    for (const QString& direction : {u"rising"_s, u"falling"_s}) {
        if (unit.endsWith(direction, Qt::CaseInsensitive))
            unit = unit.chopped(direction.size()).trimmed();
    }
    QChar previous = u' ';
    for (const QChar c : std::as_const(unit)) {
        if (isDigit(c) && (previous.isSpace() || previous == u'(' || previous == u'['))
            return std::nullopt;
        previous = c;
    }
    if (unit.size() > longest)
        return std::nullopt;
    const auto filler = [](QChar c) { return c.isSpace() || u"()[]"_s.contains(c); };
    unit.removeIf(filler);
    unit.replace(u'\u00ba', u'\u00b0').replace(u"\u2103"_s, u"\u00b0C"_s);
    unit.replace(u"deg"_s, u"\u00b0"_s, Qt::CaseInsensitive);
    // Milli and mega are told apart by the case of their letter alone.
    const bool mega = unit.startsWith(u'M');
    return mega ? u'M' + unit.mid(1).toLower() : unit.toLower();
}

/// How long the mark between the ends of a range is that stands here; 0 for none.
qsizetype separatorAt(QStringView text, qsizetype at)
{
    const QChar c = text[at];
    if (c == u'-' || c == u'\u2013' || c == u'\u2014' || c == u'\u2026')
        return 1;
    if (c == u'.') {
        qsizetype end = at;
        while (end < text.size() && text[end] == u'.')
            ++end;
        return end - at > 1 ? end - at : 0;
    }
    const bool isWord = text.mid(at, 2).compare(u"to", Qt::CaseInsensitive) == 0
                        && (at == 0 || !text[at - 1].isLetter())
                        && (at + 2 >= text.size() || !text[at + 2].isLetter());
    return isWord ? 2 : 0;
}

} // namespace

bool isSameUnit(const QString& one, const QString& other)
{
    return one.isEmpty() || other.isEmpty() || one == other;
}

std::optional<Quantity> quantityOf(QStringView text)
{
    Reader reader(text);
    const auto value = reader.number();
    const auto unit = unitOf(reader.rest());
    if (!value || !unit)
        return std::nullopt;
    return Quantity{*value, *unit};
}

std::optional<Span> spanOf(QStringView text)
{
    Reader reader(text);
    const auto first = reader.number();
    if (!first)
        return std::nullopt;
    for (qsizetype at = reader.position(); at < text.size(); ++at) {
        const qsizetype length = separatorAt(text, at);
        if (length == 0)
            continue;
        const auto inner = unitOf(text.mid(reader.position(), at - reader.position()));
        const auto second = quantityOf(text.mid(at + length));
        if (inner && second && isSameUnit(*inner, second->unit)) {
            return Span{std::min(*first, second->value),
                        std::max(*first, second->value),
                        second->unit.isEmpty() ? *inner : second->unit};
        }
    }
    return std::nullopt;
}

} // namespace ostrand::viewing::reports
