// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/sql/dates.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

using namespace Qt::StringLiterals;

namespace ostrand::store::sql {

namespace {

int fullYear(QStringView digits)
{
    const int year = digits.toInt();
    if (digits.size() > 2)
        return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

QDate slashedDate(const QRegularExpressionMatch& match)
{
    const int year = fullYear(match.capturedView(3));
    const int first = match.capturedView(1).toInt();
    const int second = match.capturedView(2).toInt();
    const QDate monthFirst(year, first, second);
    return monthFirst.isValid() ? monthFirst : QDate(year, second, first);
}

std::optional<QDate> parseDate(const QString& text)
{
    static const QRegularExpression slashed(uR"(^(\d{1,2})[/-](\d{1,2})[/-](\d{2}|\d{4})$)"_s);
    static const QRegularExpression yearFirst(uR"(^(\d{4})[/-](\d{1,2})[/-](\d{1,2})$)"_s);

    QDate date;
    if (const auto match = yearFirst.match(text); match.hasMatch()) {
        date = QDate(match.capturedView(1).toInt(),
                     match.capturedView(2).toInt(),
                     match.capturedView(3).toInt());
    } else if (const auto other = slashed.match(text); other.hasMatch()) {
        date = slashedDate(other);
    }
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> parseTime(const QString& text)
{
    static const QRegularExpression clock(
        uR"(^(\d{1,2}):(\d{2})(?::(\d{2}))?(?:\s*([AaPp])[Mm])?$)"_s);
    const auto match = clock.match(text);
    if (!match.hasMatch())
        return {};
    int hour = match.capturedView(1).toInt();
    const QString half = match.captured(4).toLower();
    if (!half.isEmpty()) {
        if (hour < 1 || hour > 12)
            return {};
        hour = hour % 12 + (half == u"p" ? 12 : 0);
    }
    const QTime time(hour, match.capturedView(2).toInt(), match.capturedView(3).toInt());
    return time.isValid() ? std::optional(time) : std::nullopt;
}

QString stored(QDate date, QTime time)
{
    QString day = date.toString(u"yyyy-MM-dd");
    if (time == QTime(0, 0))
        return day;
    return day + u' ' + time.toString(u"HH:mm:ss");
}

} // namespace

std::optional<QString> dateLiteral(QStringView literal)
{
    const QString text = literal.toString().simplified();
    const qsizetype gap = text.indexOf(u' ');
    if (!text.contains(u'/') && !text.contains(u'-')) {
        const auto time = parseTime(text);
        return time ? std::optional(stored(QDate(1899, 12, 30), *time)) : std::nullopt;
    }
    const auto date = parseDate(gap < 0 ? text : text.left(gap));
    const auto time = gap < 0 ? std::optional(QTime(0, 0)) : parseTime(text.mid(gap + 1));
    if (!date || !time)
        return {};
    return stored(*date, *time);
}

} // namespace ostrand::store::sql
