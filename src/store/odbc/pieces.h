// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace ostrand::store::odbc {

enum class PieceKind { Blank, Text, DoubleQuoted, Bracketed, Word, Date, Other };

/// A part of a statement, with all that belongs to it. The pieces of a statement joined give the
/// statement, so that what is not understood reaches the server as it stands.
struct Piece
{
    PieceKind kind = PieceKind::Other;
    QStringView written;

    bool isWord(QStringView word) const;
    bool isSymbol(QChar symbol) const;
    /// A name in brackets or a word.
    bool isName() const { return kind == PieceKind::Bracketed || kind == PieceKind::Word; }
    /// What stands between quotes, which are doubled within, or between brackets.
    QString content() const;
};

using Pieces = std::vector<Piece>;

/// The statement must outlive the pieces.
Pieces cut(QStringView statement);

} // namespace ostrand::store::odbc
