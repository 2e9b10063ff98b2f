// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/odbc/server_text.h"

#include "store/error.h"
#include "store/odbc/pieces.h"
#include "store/sql/dates.h"

#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace ostrand::store::odbc {
namespace {

/// Words of a statement that are no names unless they stand in brackets.
bool isKeyword(QStringView word)
{
    static const QSet<QString> keywords = [] {
        QSet<QString> set;
        for (const QStringView text : std::to_array<QStringView>(
                 {u"ALL",    u"AND",  u"AS",       u"ASC",   u"BETWEEN", u"BY",     u"CASE",
                  u"DELETE", u"DESC", u"DISTINCT", u"ELSE",  u"END",     u"ESCAPE", u"EXISTS",
                  u"FALSE",  u"FROM", u"FULL",     u"GROUP", u"HAVING",  u"IN",     u"INNER",
                  u"INSERT", u"INTO", u"IS",       u"JOIN",  u"LEFT",    u"LIKE",   u"NOT",
                  u"NULL",   u"ON",   u"OR",       u"ORDER", u"OUTER",   u"RIGHT",  u"SELECT",
                  u"SET",    u"THEN", u"TOP",      u"TRUE",  u"UNION",   u"UPDATE", u"VALUES",
                  u"WHEN",   u"WHERE"}))
            set.insert(text.toString());
        return set;
    }();
    return keywords.contains(word.toString().toUpper());
}

/// Looks through the names of one statement: which stand for tables, and how all are spelled.
class Names
{
public:
    Names(const Pieces& pieces, const ServerDialect& dialect, NameBook& book)
        : m_pieces(pieces),
          m_dialect(dialect),
          m_book(book)
    {
        if (!dialect.keepsBrackets)
            findTables();
    }

    QString written(std::size_t index) const
    {
        const Piece& piece = m_pieces[index];
        if (m_dialect.keepsBrackets || !isName(index))
            return piece.written.toString();
        if (const auto spelling = spelled(index))
            return quoted(*spelling);
        return piece.kind == PieceKind::Bracketed ? quoted(piece.content())
                                                  : piece.written.toString();
    }

private:
    const Piece* neighbour(std::size_t index, int step) const
    {
        const auto size = static_cast<std::ptrdiff_t>(m_pieces.size());
        for (auto i = static_cast<std::ptrdiff_t>(index) + step; i >= 0 && i < size; i += step) {
            const Piece& piece = m_pieces[static_cast<std::size_t>(i)];
            if (piece.kind != PieceKind::Blank)
                return &piece;
        }
        return nullptr;
    }

    bool isNextTo(std::size_t index, int step, QChar symbol) const
    {
        const Piece* piece = neighbour(index, step);
        return piece != nullptr && piece->isSymbol(symbol);
    }

    /// A word in front of a bracket is a function, and one behind AS is a name of the statement's
    /// own.
    bool isName(std::size_t index) const
    {
        const Piece& piece = m_pieces[index];
        if (piece.kind != PieceKind::Word)
            return piece.kind == PieceKind::Bracketed;
        const Piece* before = neighbour(index, -1);
        return !isKeyword(piece.written) && !(before != nullptr && before->isWord(u"AS"))
               && (!isNextTo(index, 1, u'(') || followsInto(index));
    }

    /// The table of an insert, whose columns stand in brackets behind it.
    bool followsInto(std::size_t index) const
    {
        const Piece* before = neighbour(index, -1);
        return before != nullptr && before->isWord(u"INTO");
    }

    void findTables()
    {
        bool expected = false; // a table's name comes next
        bool listed = false;   // a comma brings another one
        for (std::size_t i = 0; i < m_pieces.size(); ++i) {
            const Piece& piece = m_pieces[i];
            if (piece.kind == PieceKind::Blank || isNextTo(i, 1, u'.') || piece.isSymbol(u'.'))
                continue; // in front of a full stop stands a schema
            if (piece.isWord(u"FROM") || piece.isWord(u"JOIN") || piece.isWord(u"UPDATE")) {
                expected = listed = true;
            } else if (piece.isWord(u"INTO")) {
                expected = true;
            } else if (piece.kind == PieceKind::Word && isKeyword(piece.written)) {
                expected = false;
                listed = listed && (piece.isWord(u"AS") || piece.isWord(u"INNER"));
            } else if (piece.isSymbol(u',')) {
                expected = listed;
            } else if (expected && piece.isName()) {
                addTable(i);
                expected = false;
            }
        }
    }

    void addTable(std::size_t index)
    {
        const auto spelling = m_book.table(m_pieces[index].content());
        if (!spelling)
            return;
        m_tablePlaces.push_back(index);
        if (!m_tables.contains(*spelling)) {
            m_tables << *spelling;
            m_columns << m_book.columns(*spelling);
        }
    }

    std::optional<QString> spelled(std::size_t index) const
    {
        const QString name = m_pieces[index].content();
        const bool isTable =
            std::find(m_tablePlaces.begin(), m_tablePlaces.end(), index) != m_tablePlaces.end()
            || isNextTo(index, 1, u'.');
        return spellingIn(isTable ? m_tables : m_columns, name);
    }

    QString quoted(const QString& name) const
    {
        const QString& quote = m_dialect.quote;
        if (quote.isEmpty())
            return name;
        return quote + QString(name).replace(quote, quote + quote) + quote;
    }

    const Pieces& m_pieces;
    const ServerDialect& m_dialect;
    NameBook& m_book;
    std::vector<std::size_t> m_tablePlaces;
    QStringList m_tables;
    QStringList m_columns;
};

QString textLiteral(const QString& value)
{
    return u'\'' + QString(value).replace(u'\'', "''"_L1) + u'\'';
}

QString dateText(const Piece& piece)
{
    const auto date = sql::dateLiteral(piece.content());
    if (!date) {
        throw Error(errors::invalidExpression, u"%1 is not a date."_s.arg(piece.written));
    }
    return textLiteral(*date);
}

bool isText(const Piece& piece)
{
    return piece.kind == PieceKind::Text || piece.kind == PieceKind::DoubleQuoted;
}

/// The place of the pattern behind LIKE, when it is one text.
std::optional<std::size_t> patternBehind(const Pieces& pieces, std::size_t like)
{
    std::size_t place = like + 1;
    while (place < pieces.size() && pieces[place].kind == PieceKind::Blank)
        ++place;
    const bool found = place < pieces.size() && isText(pieces[place]);
    return found ? std::optional(place) : std::nullopt;
}

/// Not every server takes the sign that ends a statement.
QStringView withoutEnd(QStringView statement)
{
    statement = statement.trimmed();
    while (statement.endsWith(u';'))
        statement = statement.chopped(1).trimmed();
    return statement;
}

} // namespace

std::optional<QString> spellingIn(const QStringList& list, const QString& name)
{
    if (list.contains(name))
        return name;
    const auto found = std::find_if(list.begin(), list.end(), [&name](const QString& other) {
        return other.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == list.end() ? std::nullopt : std::optional(*found);
}

QString serverText(QStringView statement, const ServerDialect& dialect, NameBook& book)
{
    const Pieces pieces = cut(withoutEnd(statement));
    const Names names(pieces, dialect, book);
    QString text;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const Piece& piece = pieces[i];
        const auto pattern =
            piece.isWord(u"LIKE") ? patternBehind(pieces, i) : std::optional<std::size_t>();
        if (pattern) {
            text += likeClause(pieces[*pattern].content(), dialect.patterns);
            i = *pattern;
        } else if (isText(piece)) {
            text += textLiteral(piece.content());
        } else if (piece.kind == PieceKind::Date) {
            text += dateText(piece);
        } else if (piece.isSymbol(u'&')) {
            text += dialect.joiner;
        } else {
            text += names.written(i);
        }
    }
    return text;
}

QString passThroughText(QStringView statement, const ServerDialect& dialect, NameBook& book)
{
    const Pieces pieces = cut(statement);
    const Names names(pieces, dialect, book);
    QString text;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        text += names.written(i);
    return text;
}

} // namespace ostrand::store::odbc
