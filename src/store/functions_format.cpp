// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/function_table.h"
#include "store/moment.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrand::store::functions {

namespace {

bool isDateLetter(QChar c)
{
    return QStringView(u"ymdhnsYMDHNS").contains(c);
}

/// A pattern cut into runs of one letter, and literal text.
struct PatternPart
{
    QString text;
    bool literal = false;
};

std::vector<PatternPart> partsOf(const QString& pattern)
{
    std::vector<PatternPart> parts;
    for (qsizetype i = 0; i < pattern.size();) {
        const QChar c = pattern[i];
        if (c == u'"') {
            qsizetype end = pattern.indexOf(u'"', i + 1);
            end = end < 0 ? pattern.size() : end;
            parts.push_back({pattern.mid(i + 1, end - i - 1), true});
            i = end + 1;
        } else if (c == u'\\') {
            parts.push_back({pattern.mid(i + 1, 1), true});
            i += 2;
        } else if (pattern.mid(i, 5).compare(u"AM/PM", Qt::CaseInsensitive) == 0) {
            parts.push_back({pattern.mid(i, 5), false});
            i += 5;
        } else {
            qsizetype end = i + 1;
            while (end < pattern.size() && pattern[end].toLower() == c.toLower())
                ++end;
            parts.push_back({pattern.mid(i, end - i), !isDateLetter(c)});
            i = end;
        }
    }
    return parts;
}

QString padded(int number, qsizetype width)
{
    return QString::number(number).rightJustified(width, u'0');
}

/// `minutes` tells what an m means: behind hours it counts minutes.
QString datePart(const QString& part, const QDateTime& moment, bool minutes, bool twelveHours)
{
    const QDate date = moment.date();
    const QTime time = moment.time();
    const qsizetype width = part.size();
    const QLocale names = QLocale::c();
    switch (part[0].toLower().unicode()) {
    case u'y':
        if (width == 1)
            return QString::number(date.dayOfYear());
        return width == 2 ? padded(date.year() % 100, 2) : padded(date.year(), 4);
    case u'm':
        if (minutes)
            return padded(time.minute(), width);
        if (width <= 2)
            return padded(date.month(), width);
        return names.monthName(date.month(),
                               width == 3 ? QLocale::ShortFormat : QLocale::LongFormat);
    case u'd':
        if (width <= 2)
            return padded(date.day(), width);
        return names.dayName(date.dayOfWeek(),
                             width == 3 ? QLocale::ShortFormat : QLocale::LongFormat);
    case u'h':
        return padded(twelveHours ? (time.hour() + 11) % 12 + 1 : time.hour(),
                      std::min<qsizetype>(width, 2));
    case u'n':
        return padded(time.minute(), std::min<qsizetype>(width, 2));
    case u's':
        return padded(time.second(), std::min<qsizetype>(width, 2));
    default:
        return {};
    }
}

QString formatMoment(const QDateTime& moment, const QString& pattern)
{
    const std::vector<PatternPart> parts = partsOf(pattern);
    const auto isHalfDay = [](const PatternPart& part) {
        return !part.literal && part.text.size() == 5 && part.text[2] == u'/';
    };
    const bool twelveHours = std::any_of(parts.begin(), parts.end(), isHalfDay);
    QString result;
    bool behindHours = false;
    for (const PatternPart& part : parts) {
        if (part.literal) {
            result += part.text;
        } else if (isHalfDay(part)) {
            const QString half = moment.time().hour() < 12 ? u"AM"_s : u"PM"_s;
            result += part.text[0].isLower() ? half.toLower() : half;
        } else {
            result += datePart(part.text, moment, behindHours, twelveHours);
            behindHours = part.text[0].toLower() == u'h';
        }
    }
    return result;
}

QString grouped(QString digits)
{
    for (qsizetype i = digits.size() - 3; i > 0; i -= 3)
        digits.insert(i, u',');
    return digits;
}

/// One section of a number pattern: what stands before and behind the digits, and how many digits
/// there are.
struct NumberLayout
{
    QString before;
    QString behind;
    qsizetype leastWhole = 0;
    int leastDecimals = 0;
    int mostDecimals = 0;
    bool groups = false;
    bool percent = false;
    bool hasDigits = false;
};

NumberLayout layoutOf(const QString& section)
{
    NumberLayout layout;
    bool inDigits = false;
    bool inDecimals = false;
    for (const PatternPart& part : partsOf(section)) {
        const QChar c = part.text.isEmpty() ? QChar() : part.text[0];
        const bool isDigits = c == u'0' || c == u'#';
        if (isDigits && inDecimals) {
            layout.mostDecimals += static_cast<int>(part.text.size());
            layout.leastDecimals = c == u'0' ? layout.mostDecimals : layout.leastDecimals;
        } else if (isDigits) {
            layout.leastWhole += c == u'0' ? part.text.size() : 0;
        } else if (c == u'.' && part.text.size() == 1) {
            inDecimals = true;
        } else if (c == u',' && inDigits) {
            layout.groups = true;
        } else {
            layout.percent = layout.percent || c == u'%';
            (inDigits ? layout.behind : layout.before) += part.text;
        }
        inDigits = inDigits || isDigits || inDecimals;
    }
    layout.hasDigits = inDigits;
    layout.mostDecimals = std::min(layout.mostDecimals, 30);
    layout.leastDecimals = std::min(layout.leastDecimals, layout.mostDecimals);
    return layout;
}

QString formatSection(double number, const QString& section)
{
    const NumberLayout layout = layoutOf(section);
    if (!layout.hasDigits)
        return layout.before;
    const double shown = std::abs(layout.percent ? number * 100 : number);
    QString digits = QString::number(shown, 'f', layout.mostDecimals);
    const qsizetype point = digits.indexOf(u'.');
    QString whole = point < 0 ? digits : digits.left(point);
    QString decimals = point < 0 ? QString() : digits.mid(point + 1);
    while (decimals.size() > layout.leastDecimals && decimals.endsWith(u'0'))
        decimals.chop(1);
    if (whole == u"0" && layout.leastWhole == 0)
        whole.clear();
    whole = whole.rightJustified(layout.leastWhole, u'0');
    if (layout.groups)
        whole = grouped(whole);
    if (layout.mostDecimals > 0 && !(decimals.isEmpty() && layout.leastDecimals == 0))
        whole += u'.' + decimals;
    return layout.before + whole + layout.behind;
}

/// Sections parted by semicolons hold for positive numbers, negative ones and nought.
QString formatNumber(double number, const QString& pattern)
{
    if (!std::isfinite(number))
        return {};
    const QStringList sections = pattern.split(u';');
    if (number == 0.0 && sections.size() > 2 && !sections[2].isEmpty())
        return formatSection(number, sections[2]);
    if (number >= 0)
        return formatSection(number, sections[0]);
    if (sections.size() > 1 && !sections[1].isEmpty())
        return formatSection(number, sections[1]);
    return u'-' + formatSection(number, sections[0]);
}

/// What a named format stands for; other patterns stay.
QString patternOf(const QString& name)
{
    static const std::pair<QStringView, QStringView> named[] = {
        {u"general date", u"yyyy-mm-dd hh:nn:ss"},
        {u"short date", u"yyyy-mm-dd"},
        {u"medium date", u"dd-mmm-yy"},
        {u"long date", u"dddd, mmmm d, yyyy"},
        {u"short time", u"hh:nn"},
        {u"medium time", u"hh:nn AM/PM"},
        {u"long time", u"hh:nn:ss"},
        {u"fixed", u"0.00"},
        {u"standard", u"#,##0.00"},
        {u"currency", u"#,##0.00"},
        {u"percent", u"0.00%"},
        {u"yes/no", u"\"Yes\";\"Yes\";\"No\""},
        {u"true/false", u"\"True\";\"True\";\"False\""},
        {u"on/off", u"\"On\";\"On\";\"Off\""},
    };
    const QString wanted = name.toLower();
    for (const auto& [known, pattern] : named) {
        if (wanted == known)
            return pattern.toString();
    }
    return name;
}

bool holdsDigits(const QString& pattern)
{
    return pattern.contains(u'0') || pattern.contains(u'#');
}

bool holdsDateLetters(const QString& pattern)
{
    const auto parts = partsOf(pattern);
    return std::any_of(
        parts.begin(), parts.end(), [](const PatternPart& part) { return !part.literal; });
}

QString formatText(const QString& text, const QString& pattern)
{
    if (pattern == u">")
        return text.toUpper();
    if (pattern == u"<")
        return text.toLower();
    if (pattern.contains(u'@'))
        return text.rightJustified(pattern.count(u'@'));
    return text;
}

} // namespace

Value formatted(Arguments arguments)
{
    const Value& value = arguments[0];
    const QString pattern = arguments.size() > 1 ? patternOf(arguments[1].text()) : QString();
    if (value.isNull())
        return QString();
    if (pattern.isEmpty())
        return value.text();
    if (const auto moment = value.isText() ? momentOfText(value.text()) : std::nullopt)
        return holdsDateLetters(pattern) ? formatMoment(*moment, pattern) : value.text();

    bool isNumber = !value.isText();
    if (value.isText())
        value.text().trimmed().toDouble(&isNumber);
    if (!isNumber)
        return formatText(value.text(), pattern);
    const bool asDate = holdsDateLetters(pattern) && !holdsDigits(pattern);
    if (const auto moment = asDate ? momentOf(value.number()) : std::nullopt)
        return formatMoment(*moment, pattern);
    if (holdsDigits(pattern) || pattern.contains(u';'))
        return formatNumber(value.number(), pattern);
    return formatText(value.text(), pattern);
}

} // namespace ostrand::store::functions
