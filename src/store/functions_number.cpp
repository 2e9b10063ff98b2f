// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "store/function_table.h"

#include <QRegularExpression>

#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ostrand::store::functions {

namespace {

constexpr double integerLimit = 9223372036854775808.0; ///< 2^63

/// A whole number where it fits, or else the real one.
Value whole(double number)
{
    if (std::isnan(number))
        return {};
    if (number >= -integerLimit && number < integerLimit)
        return static_cast<qint64>(number);
    return number;
}

Value finite(double number)
{
    return std::isfinite(number) ? Value(number) : Value();
}

Value sumOf(const Value& a, const Value& b)
{
    if (a.isText() && b.isText())
        return QString(a.text() + b.text());
    qint64 sum = 0;
    if (a.isInteger() && b.isInteger() && !__builtin_add_overflow(a.integer(), b.integer(), &sum))
        return sum;
    return finite(strictNumber(a) + strictNumber(b));
}

/// `+`: numbers are added, texts are joined.
Value add(Arguments arguments)
{
    Value result = arguments[0];
    for (const Value& value : arguments.subspan(1))
        result = sumOf(result, value);
    return result;
}

qint64 rounded(const Value& value)
{
    strictNumber(value);
    return value.integer();
}

/// `\`: both sides are rounded first; nothing is what a division by nought gives.
Value quotient(Arguments arguments)
{
    const qint64 dividend = rounded(arguments[0]);
    const qint64 divisor = rounded(arguments[1]);
    if (divisor == 0)
        return {};
    if (divisor == -1)
        return dividend == std::numeric_limits<qint64>::min() ? Value(integerLimit)
                                                              : Value(-dividend);
    return dividend / divisor;
}

Value modulo(Arguments arguments)
{
    const qint64 dividend = rounded(arguments[0]);
    const qint64 divisor = rounded(arguments[1]);
    if (divisor == 0)
        return {};
    return divisor == -1 ? qint64{0} : dividend % divisor;
}

Value power(Arguments arguments)
{
    return finite(std::pow(strictNumber(arguments[0]), strictNumber(arguments[1])));
}

/// The number that a text begins with, blanks left out; 0 for none.
Value val(Arguments arguments)
{
    static const QRegularExpression number(uR"(^[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?)"_s);
    QString text = arguments[0].text();
    text.remove(QRegularExpression(u"[ \\t\\r\\n]"_s));
    return finite(number.match(text).captured().toDouble());
}

Value clng(Arguments arguments)
{
    return rounded(arguments[0]);
}

Value cint(Arguments arguments)
{
    const qint64 number = rounded(arguments[0]);
    if (number < std::numeric_limits<qint16>::min() || number > std::numeric_limits<qint16>::max())
        refuseArgument("CInt");
    return number;
}

Value cdbl(Arguments arguments)
{
    return strictNumber(arguments[0]);
}

Value cbool(Arguments arguments)
{
    const QString word = arguments[0].isText() ? arguments[0].text().trimmed() : QString();
    if (word.compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(u"false", Qt::CaseInsensitive) == 0)
        return false;
    return strictNumber(arguments[0]) != 0.0;
}

Value floored(Arguments arguments)
{
    return arguments[0].isInteger() ? arguments[0] : whole(std::floor(strictNumber(arguments[0])));
}

Value truncated(Arguments arguments)
{
    return arguments[0].isInteger() ? arguments[0] : whole(std::trunc(strictNumber(arguments[0])));
}

Value absolute(Arguments arguments)
{
    const Value& value = arguments[0];
    if (!value.isInteger() || value.integer() == std::numeric_limits<qint64>::min())
        return std::abs(strictNumber(value));
    return std::abs(value.integer());
}

/// Halves go to the even neighbour.
Value round(Arguments arguments)
{
    const double number = strictNumber(arguments[0]);
    const qint64 digits = arguments.size() > 1 ? rounded(arguments[1]) : 0;
    if (digits < 0 || digits > 22)
        refuseArgument("Round");
    if (arguments[0].isInteger())
        return arguments[0];
    const double scale = std::pow(10.0, static_cast<double>(digits));
    const double scaled = number * scale;
    return std::isfinite(scaled) ? Value(std::nearbyint(scaled) / scale) : Value(number);
}

constexpr std::array entries{
    Entry{"ostrand_add", 1, -1, Nulls::Pass, add},
    Entry{"ostrand_quotient", 2, 2, Nulls::Pass, quotient},
    Entry{"ostrand_mod", 2, 2, Nulls::Pass, modulo},
    Entry{"ostrand_power", 2, 2, Nulls::Pass, power},
    Entry{"ostrand_val", 1, 1, Nulls::Pass, val},
    Entry{"ostrand_clng", 1, 1, Nulls::Pass, clng},
    Entry{"ostrand_cint", 1, 1, Nulls::Pass, cint},
    Entry{"ostrand_cdbl", 1, 1, Nulls::Pass, cdbl},
    Entry{"ostrand_cbool", 1, 1, Nulls::Pass, cbool},
    Entry{"ostrand_int", 1, 1, Nulls::Pass, floored},
    Entry{"ostrand_fix", 1, 1, Nulls::Pass, truncated},
    Entry{"ostrand_abs", 1, 1, Nulls::Pass, absolute},
    Entry{"ostrand_round", 1, 2, Nulls::Pass, round},
};

} // namespace

std::span<const Entry> numberFunctions()
{
    return entries;
}

} // namespace ostrand::store::functions
