// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/collation.h"
#include "store/error.h"
#include "store/folding.h"
#include "store/function_table.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ostrand::store::functions {

namespace {

constexpr qint64 longestText = 50'000'000; ///< units; more is a runaway statement

qint64 lengthArgument(const Value& value, const char* function)
{
    strictNumber(value);
    const qint64 length = value.integer();
    if (length < 0)
        refuseArgument(function);
    return length;
}

/// A place counted from 1.
qint64 placeArgument(const Value& value, const char* function)
{
    const qint64 place = lengthArgument(value, function);
    if (place < 1)
        refuseArgument(function);
    return place;
}

/// Mode 0 tells case apart; without a mode, texts compare as everywhere in statements.
bool tellsCase(Arguments arguments, std::size_t index)
{
    return arguments.size() > index && arguments[index].integer() == 0;
}

Value join(Arguments arguments)
{
    const bool allNull = std::all_of(
        arguments.begin(), arguments.end(), [](const Value& value) { return value.isNull(); });
    if (allNull)
        return {};
    QString text;
    for (const Value& value : arguments)
        text += value.text();
    return text;
}

Value len(Arguments arguments)
{
    return qint64{arguments[0].text().size()};
}

Value left(Arguments arguments)
{
    const QString text = arguments[0].text();
    return text.left(std::min<qint64>(lengthArgument(arguments[1], "Left"), text.size()));
}

Value right(Arguments arguments)
{
    const QString text = arguments[0].text();
    return text.right(std::min<qint64>(lengthArgument(arguments[1], "Right"), text.size()));
}

Value mid(Arguments arguments)
{
    const QString text = arguments[0].text();
    const qint64 place = placeArgument(arguments[1], "Mid");
    const qint64 length =
        arguments.size() > 2 ? lengthArgument(arguments[2], "Mid") : qint64{text.size()};
    if (place > text.size())
        return QString();
    return text.mid(place - 1, std::min<qint64>(length, text.size()));
}

Value ucase(Arguments arguments)
{
    return arguments[0].text().toUpper();
}

Value lcase(Arguments arguments)
{
    return arguments[0].text().toLower();
}

/// Only blanks are trimmed, no other white space.
QString withoutBlanks(const QString& text, bool front, bool back)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (back && end > 0 && text[end - 1] == u' ')
        --end;
    while (front && begin < end && text[begin] == u' ')
        ++begin;
    return text.mid(begin, end - begin);
}

Value trim(Arguments arguments)
{
    return withoutBlanks(arguments[0].text(), true, true);
}

Value ltrim(Arguments arguments)
{
    return withoutBlanks(arguments[0].text(), true, false);
}

Value rtrim(Arguments arguments)
{
    return withoutBlanks(arguments[0].text(), false, true);
}

/// InStr([start,] text, part [, mode]): a place counted from 1, or 0.
Value instr(Arguments arguments)
{
    const bool hasStart = arguments.size() > 2;
    const qint64 start = hasStart ? placeArgument(arguments[0], "InStr") : 1;
    QString text = arguments[hasStart ? 1 : 0].text();
    QString part = arguments[hasStart ? 2 : 1].text();
    if (start > text.size())
        return qint64{0};
    if (!tellsCase(arguments, 3)) {
        text = foldCase(text);
        part = foldCase(part);
    }
    return qint64{text.indexOf(part, start - 1) + 1};
}

/// Replace(text, part, by [, start [, count [, mode]]]): the text from `start` on, with at most
/// `count` replacements.
Value replace(Arguments arguments)
{
    const qint64 start = arguments.size() > 3 ? placeArgument(arguments[3], "Replace") : 1;
    const QString whole = arguments[0].text();
    if (start > whole.size())
        return QString();
    const QString text = whole.mid(start - 1);
    const QString part = arguments[1].text();
    const QString by = arguments[2].text();
    qint64 count = arguments.size() > 4 ? arguments[4].integer() : -1;
    if (part.isEmpty())
        return text;

    const bool exact = tellsCase(arguments, 5);
    const QString searched = exact ? text : foldCase(text);
    const QString wanted = exact ? part : foldCase(part);
    QString result;
    qsizetype from = 0;
    for (; count != 0; --count) {
        const qsizetype place = searched.indexOf(wanted, from);
        if (place < 0)
            break;
        result += QStringView(text).sliced(from, place - from);
        result += by;
        from = place + wanted.size();
        if (result.size() > longestText)
            refuseArgument("Replace");
    }
    return QString(result + QStringView(text).sliced(from));
}

Value strcomp(Arguments arguments)
{
    const QString a = arguments[0].text();
    const QString b = arguments[1].text();
    const int order = tellsCase(arguments, 2) ? a.compare(b) : compareText(a, b);
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

Value asc(Arguments arguments)
{
    const QString text = arguments[0].text();
    if (text.isEmpty())
        refuseArgument("Asc");
    return int{text[0].unicode()};
}

Value chr(Arguments arguments)
{
    const qint64 code = lengthArgument(arguments[0], "Chr");
    if (code > 255)
        refuseArgument("Chr");
    return QString(QChar(static_cast<char16_t>(code)));
}

Value cstr(Arguments arguments)
{
    return arguments[0].text();
}

constexpr std::array entries{
    Entry{"ostrand_join", 1, -1, Nulls::Take, join},
    Entry{"ostrand_len", 1, 1, Nulls::Pass, len},
    Entry{"ostrand_left", 2, 2, Nulls::Pass, left},
    Entry{"ostrand_right", 2, 2, Nulls::Pass, right},
    Entry{"ostrand_mid", 2, 3, Nulls::Pass, mid},
    Entry{"ostrand_ucase", 1, 1, Nulls::Pass, ucase},
    Entry{"ostrand_lcase", 1, 1, Nulls::Pass, lcase},
    Entry{"ostrand_trim", 1, 1, Nulls::Pass, trim},
    Entry{"ostrand_ltrim", 1, 1, Nulls::Pass, ltrim},
    Entry{"ostrand_rtrim", 1, 1, Nulls::Pass, rtrim},
    Entry{"ostrand_instr", 2, 4, Nulls::Pass, instr},
    Entry{"ostrand_replace", 3, 6, Nulls::Pass, replace},
    Entry{"ostrand_strcomp", 2, 3, Nulls::Pass, strcomp},
    Entry{"ostrand_asc", 1, 1, Nulls::Pass, asc},
    Entry{"ostrand_chr", 1, 1, Nulls::Pass, chr},
    Entry{"ostrand_cstr", 1, 1, Nulls::Pass, cstr},
    Entry{"ostrand_format", 1, 2, Nulls::Take, formatted},
};

} // namespace

std::span<const Entry> textFunctions()
{
    return entries;
}

} // namespace ostrand::store::functions
