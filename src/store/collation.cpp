// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/collation.h"

#include "store/collation_table.h"
#include "store/error.h"
#include "store/folding.h"
#include "store/text_reader.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace ostrand::store {

namespace {

using collation::latinCodes;
using collation::latinMarks;

constexpr std::uint8_t noAccent = 2;
constexpr std::uint32_t beyondLatin = 0x10000; ///< above every code of the Latin-1 table

/// What one character brings to the order.
struct Weight
{
    std::uint32_t code = 0;   ///< 0: counts only when all else is equal, by its mark
    std::uint32_t second = 0; ///< a second letter's code, or 0
    std::uint8_t mark = noAccent;
};

Weight latinWeight(char32_t latin)
{
    return {latinCodes[latin], collation::secondCode(latin), latinMarks[latin]};
}

Weight weightOf(char32_t character)
{
    if (character <= 0xff)
        return latinWeight(character);
    const char32_t folded = foldCase(character);
    if (folded <= 0xff)
        return latinWeight(folded);
    return {beyondLatin + folded, 0, noAccent};
}

constexpr int sign(std::uint64_t a, std::uint64_t b)
{
    return a < b ? -1 : (a > b ? 1 : 0);
}

/// The codes of a text's letters, 0 at its end.
template <typename Reader>
class Codes
{
public:
    explicit Codes(Reader reader)
        : m_reader(reader)
    {
    }

    std::uint32_t next()
    {
        if (m_second != 0)
            return std::exchange(m_second, 0);
        while (!m_reader.atEnd()) {
            const Weight weight = weightOf(m_reader.next());
            if (weight.mark != noAccent || weight.code == 0)
                m_hasMarks = true;
            if (weight.code == 0)
                continue;
            if (weight.second != 0) {
                m_second = weight.second;
                m_hasMarks = true; // one character for two shifts the accents behind it
            }
            return weight.code;
        }
        return 0;
    }

    /// True when anything but letters without accents was read.
    bool hasMarks() const { return m_hasMarks; }

private:
    Reader m_reader;
    std::uint32_t m_second = 0;
    bool m_hasMarks = false;
};

/// The accents of a text's letters, one per character; behind its end there are none.
template <typename Reader>
class Accents
{
public:
    explicit Accents(Reader reader)
        : m_reader(reader)
    {
    }

    bool atEnd() const { return m_reader.atEnd(); }

    std::uint8_t next()
    {
        while (!m_reader.atEnd()) {
            const Weight weight = weightOf(m_reader.next());
            if (weight.code != 0)
                return weight.mark;
        }
        return noAccent;
    }

private:
    Reader m_reader;
};

/// The places and marks of the characters that count last, 0 at the end.
template <typename Reader>
class Ignored
{
public:
    explicit Ignored(Reader reader)
        : m_reader(reader)
    {
    }

    std::uint64_t next()
    {
        while (!m_reader.atEnd()) {
            const Weight weight = weightOf(m_reader.next());
            if (weight.code == 0)
                return (m_place << 8) | weight.mark;
            ++m_place;
        }
        return 0;
    }

private:
    Reader m_reader;
    std::uint64_t m_place = 0;
};

/// Equal so far: all letters before `a` and `b` are the same and bear no mark.
template <typename Reader>
int compareFrom(Reader a, Reader b)
{
    Codes<Reader> codesA(a);
    Codes<Reader> codesB(b);
    for (;;) {
        const std::uint32_t codeA = codesA.next();
        const std::uint32_t codeB = codesB.next();
        if (codeA != codeB)
            return sign(codeA, codeB);
        if (codeA == 0)
            break;
    }
    if (!codesA.hasMarks() && !codesB.hasMarks())
        return 0;

    Accents<Reader> accentsA(a);
    Accents<Reader> accentsB(b);
    while (!accentsA.atEnd() || !accentsB.atEnd()) {
        if (const int order = sign(accentsA.next(), accentsB.next()); order != 0)
            return order;
    }

    Ignored<Reader> ignoredA(a);
    Ignored<Reader> ignoredB(b);
    for (;;) {
        const std::uint64_t markA = ignoredA.next();
        const std::uint64_t markB = ignoredB.next();
        if (markA != markB)
            return sign(markA, markB);
        if (markA == 0)
            return 0;
    }
}

/// The codes of the characters that are one unit in UTF-8 and bear no mark; 0 for all others.
constexpr std::array<std::uint16_t, 256> makePlainCodes()
{
    std::array<std::uint16_t, 256> codes{};
    for (std::size_t i = 0; i < 0x80; ++i)
        codes[i] = latinCodes[i];
    return codes;
}
constexpr std::array<std::uint16_t, 256> plainCodes = makePlainCodes();

constexpr std::uint16_t plainCode(char unit)
{
    return plainCodes[static_cast<unsigned char>(unit)];
}
constexpr std::uint16_t plainCode(QChar unit)
{
    return unit.unicode() < 0x80 ? plainCodes[unit.unicode()] : std::uint16_t{0};
}

template <typename View, typename Unit>
View withoutBlanksAtEnd(View text, Unit blank)
{
    auto size = text.size();
    while (size > 0 && text[size - 1] == blank)
        --size;
    return text.substr(0, size);
}

/// True for a unit that goes on with a character that began before it.
constexpr bool continues(char unit)
{
    return (static_cast<unsigned char>(unit) & 0xc0) == 0x80;
}
constexpr bool continues(QChar unit)
{
    return unit.isLowSurrogate();
}

/// Walks along both texts as long as they hold the same units or letters that differ in case only,
/// which settles nearly every comparison. What is left goes the long way, from the character that
/// the walk stopped in: all before it weighs the same in both texts.
template <typename Reader, typename View>
int compareTrimmed(View a, View b)
{
    const auto common = std::min(a.size(), b.size());
    decltype(a.size()) place = 0;
    for (; place < common; ++place) {
        if (a[place] == b[place])
            continue;
        const std::uint16_t codeA = plainCode(a[place]);
        const std::uint16_t codeB = plainCode(b[place]);
        if (codeA == 0 || codeB == 0)
            break;
        if (codeA != codeB)
            return codeA < codeB ? -1 : 1;
    }
    if (a.size() == b.size() && place == common)
        return 0;
    const auto isInside = [](View text, auto at) {
        return at < text.size() && continues(text[at]);
    };
    while (place > 0 && (isInside(a, place) || isInside(b, place)))
        --place;
    return compareFrom(Reader(a.substr(place)), Reader(b.substr(place)));
}

/// QStringView with the one member that the comparison calls by another name.
struct Utf16View : QStringView
{
    Utf16View(QStringView text)
        : QStringView(text)
    {
    }
    Utf16View substr(qsizetype from) const { return sliced(from); }
    Utf16View substr(qsizetype from, qsizetype length) const { return sliced(from, length); }
};

int compareUtf8(void*, int sizeA, const void* a, int sizeB, const void* b)
{
    const std::string_view textA(static_cast<const char*>(a), static_cast<std::size_t>(sizeA));
    const std::string_view textB(static_cast<const char*>(b), static_cast<std::size_t>(sizeB));
    return compareTrimmed<Utf8Reader>(withoutBlanksAtEnd(textA, ' '),
                                      withoutBlanksAtEnd(textB, ' '));
}

} // namespace

int compareText(QStringView a, QStringView b)
{
    return compareTrimmed<Utf16Reader>(withoutBlanksAtEnd(Utf16View(a), u' '),
                                       withoutBlanksAtEnd(Utf16View(b), u' '));
}

void registerCollation(sqlite3* connection)
{
    const int result =
        sqlite3_create_collation(connection, "JET", SQLITE_UTF8, nullptr, compareUtf8);
    if (result != SQLITE_OK)
        throw Error(errors::diskError, QString::fromUtf8(sqlite3_errmsg(connection)));
}

} // namespace ostrand::store
