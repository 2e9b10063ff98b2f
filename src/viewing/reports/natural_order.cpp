// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/natural_order.h"

#include "store/collation.h"

namespace ostrand::viewing::reports {
namespace {

enum class Kind { Mark, Digit, Letter };

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

Kind kindOf(QChar character)
{
    if (isDigit(character))
        return Kind::Digit;
    return character.isLetter() ? Kind::Letter : Kind::Mark;
}

int compareCharacters(QChar a, QChar b)
{
    if (a == b)
        return 0;
    const Kind kind = kindOf(a);
    if (kind != kindOf(b))
        return kind < kindOf(b) ? -1 : 1;
    if (kind == Kind::Letter)
        return store::compareText(QStringView(&a, 1), QStringView(&b, 1));
    return a < b ? -1 : 1;
}

/// The end of the digits from a place on.
qsizetype pastDigits(QStringView text, qsizetype at)
{
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at;
}

qsizetype pastZeros(QStringView text, qsizetype at, qsizetype end)
{
    while (at < end && text[at] == u'0')
        ++at;
    return at;
}

/// Whole numbers of any length.
int compareDigits(QStringView a, QStringView b)
{
    a = a.mid(pastZeros(a, 0, a.size()));
    b = b.mid(pastZeros(b, 0, b.size()));
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    return a.compare(b);
}

} // namespace

int compareNatural(QStringView a, QStringView b)
{
    qsizetype left = 0;
    qsizetype right = 0;
    while (left < a.size() && right < b.size()) {
        int order = 0;
        if (isDigit(a[left]) && isDigit(b[right])) {
            const qsizetype leftEnd = pastDigits(a, left);
            const qsizetype rightEnd = pastDigits(b, right);
            order =
                compareDigits(a.sliced(left, leftEnd - left), b.sliced(right, rightEnd - right));
            left = leftEnd;
            right = rightEnd;
        } else {
            order = compareCharacters(a[left++], b[right++]);
        }
        if (order != 0)
            return order;
    }
    if (left < a.size())
        return 1;
    return right < b.size() ? -1 : 0;
}

} // namespace ostrand::viewing::reports
