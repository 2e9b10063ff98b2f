// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/error.h"
#include "store/folding.h"
#include "store/function_table.h"
#include "store/text_reader.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string_view>
#include <vector>

namespace ostrand::store::functions {

namespace {

constexpr std::size_t longestPattern = 8192; ///< bytes; bounds the time of one comparison

/// Folded characters first ... last.
struct CharacterRange
{
    char32_t first;
    char32_t last;
};

struct PatternPiece
{
    enum class Kind { Character, Any, Digit, Many, Class };

    Kind kind = Kind::Character;
    char32_t character = 0; ///< folded
    bool negated = false;   ///< a class that names what must not stand there
    std::vector<CharacterRange> ranges;
};

using Kind = PatternPiece::Kind;

/// A pattern taken apart: * any text, ? one character, # one digit, [a-z] one of these, [!a-z]
/// none of these. A bracket that does not end stands for itself.
class Pattern
{
public:
    explicit Pattern(std::string_view text)
    {
        Utf8Reader reader(text);
        while (!reader.atEnd())
            m_characters.push_back(reader.next());
        std::size_t place = 0;
        while (place < m_characters.size())
            place = readPiece(place);
    }

    /// Steps back no further than to the last *, so the time is at most text times pattern.
    bool matches(std::string_view text) const
    {
        Utf8Reader reader(text);
        Utf8Reader resumed = reader;
        std::size_t piece = 0;
        std::size_t behindMany = 0; // 0: no * so far
        while (!reader.atEnd()) {
            if (piece < m_pieces.size() && m_pieces[piece].kind == Kind::Many) {
                behindMany = ++piece;
                resumed = reader;
            } else if (piece < m_pieces.size() && fits(m_pieces[piece], reader)) {
                ++piece;
            } else if (behindMany != 0) {
                resumed.next();
                reader = resumed;
                piece = behindMany;
            } else {
                return false;
            }
        }
        return std::all_of(m_pieces.begin() + static_cast<std::ptrdiff_t>(piece),
                           m_pieces.end(),
                           [](const PatternPiece& left) { return left.kind == Kind::Many; });
    }

private:
    static bool fits(const PatternPiece& piece, Utf8Reader& reader)
    {
        const char32_t character = foldCase(reader.next());
        switch (piece.kind) {
        case Kind::Character:
            return character == piece.character;
        case Kind::Any:
            return true;
        case Kind::Digit:
            return character >= U'0' && character <= U'9';
        case Kind::Class:
            return isIn(piece.ranges, character) != piece.negated;
        case Kind::Many:
            break;
        }
        return false;
    }

    static bool isIn(const std::vector<CharacterRange>& ranges, char32_t character)
    {
        return std::any_of(ranges.begin(), ranges.end(), [character](CharacterRange range) {
            return character >= range.first && character <= range.last;
        });
    }

    /// Reads the piece at `place` and returns the place behind it.
    std::size_t readPiece(std::size_t place)
    {
        const char32_t character = m_characters[place];
        PatternPiece piece;
        switch (character) {
        case U'*':
            piece.kind = Kind::Many;
            break;
        case U'?':
            piece.kind = Kind::Any;
            break;
        case U'#':
            piece.kind = Kind::Digit;
            break;
        case U'[':
            if (const std::size_t end = classEnd(place); end != 0) {
                readClass(place + 1, end);
                return end + 1;
            }
            [[fallthrough]];
        default:
            piece.character = foldCase(character);
        }
        m_pieces.push_back(std::move(piece));
        return place + 1;
    }

    /// The place of the bracket that ends a class, or 0.
    std::size_t classEnd(std::size_t place) const
    {
        const auto from = m_characters.begin() + static_cast<std::ptrdiff_t>(place);
        const auto end = std::find(from, m_characters.end(), U']');
        return end == m_characters.end() ? 0 : static_cast<std::size_t>(end - m_characters.begin());
    }

    void readClass(std::size_t begin, std::size_t end)
    {
        if (begin == end)
            return; // [] stands for nothing at all
        PatternPiece piece;
        piece.kind = Kind::Class;
        if (m_characters[begin] == U'!' && begin + 1 < end) {
            piece.negated = true;
            ++begin;
        }
        while (begin < end) {
            const char32_t first = foldCase(m_characters[begin]);
            const bool isRange = begin + 2 < end && m_characters[begin + 1] == U'-';
            const char32_t last = isRange ? foldCase(m_characters[begin + 2]) : first;
            piece.ranges.push_back({std::min(first, last), std::max(first, last)});
            begin += isRange ? 3 : 1;
        }
        m_pieces.push_back(std::move(piece));
    }

    std::vector<char32_t> m_characters;
    std::vector<PatternPiece> m_pieces;
};

std::string_view textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text, text == nullptr ? 0 : static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void deletePattern(void* pattern)
{
    delete static_cast<Pattern*>(pattern);
}

/// A pattern that stays the same for all rows is taken apart once and kept by SQLite.
bool matchesCached(sqlite3_context* context, sqlite3_value* pattern, std::string_view text)
{
    if (const auto* kept = static_cast<const Pattern*>(sqlite3_get_auxdata(context, 0)))
        return kept->matches(text);
    auto made = std::make_unique<Pattern>(textOf(pattern));
    const bool result = made->matches(text);
    sqlite3_set_auxdata(context, 0, made.release(), deletePattern);
    return result;
}

/// `text LIKE pattern` calls like(pattern, text).
void like(sqlite3_context* context, int, sqlite3_value** values)
{
    const bool hasNull = sqlite3_value_type(values[0]) == SQLITE_NULL
                         || sqlite3_value_type(values[1]) == SQLITE_NULL;
    if (hasNull)
        return;
    if (textOf(values[0]).size() > longestPattern) {
        sqlite3_result_error(context, "The pattern of LIKE is too long.", -1);
        return;
    }
    try {
        sqlite3_result_int(context, matchesCached(context, values[0], textOf(values[1])) ? 1 : 0);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

} // namespace

void registerLike(sqlite3* connection)
{
    const int code =
        sqlite3_create_function_v2(connection,
                                   "like",
                                   2,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                   nullptr,
                                   like,
                                   nullptr,
                                   nullptr,
                                   nullptr);
    if (code != SQLITE_OK)
        throw Error(errors::diskError, QString::fromUtf8(sqlite3_errmsg(connection)));
}

} // namespace ostrand::store::functions
