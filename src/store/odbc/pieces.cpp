// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/pieces.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {
namespace {

bool isOfName(QChar c)
{
    return c.isLetterOrNumber() || c.isMark() || c.isSurrogate() || c == u'_' || c == u'$';
}

/// The length of the run that starts at the front and holds characters of one sort.
template <typename Sort>
qsizetype run(QStringView rest, Sort belongs)
{
    const auto end = std::find_if_not(rest.begin(), rest.end(), belongs);
    return end - rest.begin();
}

/// The length up to and with the closing sign; a doubled one stands for itself.
qsizetype closed(QStringView rest, QChar close, bool canBeDoubled)
{
    for (qsizetype i = 1; i < rest.size(); ++i) {
        if (rest[i] != close)
            continue;
        if (!canBeDoubled || i + 1 >= rest.size() || rest[i + 1] != close)
            return i + 1;
        ++i;
    }
    return rest.size();
}

/// A # stands for a date only where another one ends it.
bool startsDate(QStringView rest)
{
    return rest.front() == u'#' && rest.indexOf(u'#', 1) > 0;
}

Piece first(QStringView rest)
{
    const QChar c = rest.front();
    if (c.isSpace())
        return {PieceKind::Blank, rest.first(run(rest, [](QChar d) { return d.isSpace(); }))};
    if (c == u'\'')
        return {PieceKind::Text, rest.first(closed(rest, c, true))};
    if (c == u'"')
        return {PieceKind::DoubleQuoted, rest.first(closed(rest, c, true))};
    if (c == u'[')
        return {PieceKind::Bracketed, rest.first(closed(rest, u']', false))};
    if (startsDate(rest))
        return {PieceKind::Date, rest.first(closed(rest, c, false))};
    if (c.isDigit())
        return {PieceKind::Other, rest.first(run(rest, isOfName))};
    if (isOfName(c))
        return {PieceKind::Word, rest.first(run(rest, isOfName))};
    return {PieceKind::Other, rest.first(1)};
}

} // namespace

bool Piece::isWord(QStringView word) const
{
    return kind == PieceKind::Word && written.compare(word, Qt::CaseInsensitive) == 0;
}

bool Piece::isSymbol(QChar symbol) const
{
    return kind == PieceKind::Other && written.size() == 1 && written.front() == symbol;
}

QString Piece::content() const
{
    if (kind == PieceKind::Word || written.size() < 2)
        return written.toString();
    QString inner = written.sliced(1, written.size() - 2).toString();
    if (kind == PieceKind::Text || kind == PieceKind::DoubleQuoted) {
        const QString quote(written.front());
        inner.replace(quote + quote, quote);
    }
    return inner;
}

Pieces cut(QStringView statement)
{
    Pieces pieces;
    while (!statement.isEmpty()) {
        pieces.push_back(first(statement));
        statement = statement.sliced(pieces.back().written.size());
    }
    return pieces;
}

} // namespace ostrand::store::odbc
