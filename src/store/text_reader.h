// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QStringView>

#include <cstddef>
#include <string_view>

/// Readers that take a text apart into characters without a copy. They never read beyond their
/// view, whatever it holds.
namespace ostrand::store {

/// Reads UTF-8. A byte that belongs to no character counts as one behind all characters.
class Utf8Reader
{
public:
    explicit Utf8Reader(std::string_view text)
        : m_next(text.data()),
          m_end(text.data() + text.size())
    {
    }

    bool atEnd() const { return m_next == m_end; }

    char32_t next()
    {
        const char32_t first = byteAt(0);
        if (first < 0x80)
            return take(1, first);
        if (first >= 0xc2 && first < 0xe0 && trails(1))
            return take(2, (first & 0x1f) << 6 | trail(1));
        if (first >= 0xe0 && first < 0xf0 && trails(2))
            return takeIf(3, (first & 0x0f) << 12 | trail(1) << 6 | trail(2), 0x800, 0xffff);
        if (first >= 0xf0 && first < 0xf5 && trails(3)) {
            const char32_t value = (first & 0x07) << 18 | trail(1) << 12 | trail(2) << 6 | trail(3);
            return takeIf(4, value, 0x10000, 0x10ffff);
        }
        return take(1, strayByte + first);
    }

private:
    static constexpr char32_t strayByte = 0x110000;

    char32_t byteAt(std::ptrdiff_t offset) const
    {
        return static_cast<unsigned char>(m_next[offset]);
    }
    char32_t trail(std::ptrdiff_t offset) const { return byteAt(offset) & 0x3f; }

    bool trails(std::ptrdiff_t count) const
    {
        if (m_end - m_next <= count)
            return false;
        for (std::ptrdiff_t i = 1; i <= count; ++i) {
            if ((byteAt(i) & 0xc0) != 0x80)
                return false;
        }
        return true;
    }

    char32_t take(std::ptrdiff_t bytes, char32_t value)
    {
        m_next += bytes;
        return value;
    }

    char32_t takeIf(std::ptrdiff_t bytes, char32_t value, char32_t least, char32_t most)
    {
        const bool surrogate = value >= 0xd800 && value < 0xe000;
        if (value < least || value > most || surrogate)
            return take(1, strayByte + byteAt(0));
        return take(bytes, value);
    }

    const char* m_next;
    const char* m_end;
};

/// Reads UTF-16. A surrogate without its fellow counts as itself.
class Utf16Reader
{
public:
    explicit Utf16Reader(QStringView text)
        : m_text(text)
    {
    }

    bool atEnd() const { return m_position == m_text.size(); }

    char32_t next()
    {
        const char16_t first = m_text[m_position++].unicode();
        if (QChar::isHighSurrogate(first) && !atEnd() && m_text[m_position].isLowSurrogate())
            return QChar::surrogateToUcs4(first, m_text[m_position++].unicode());
        return first;
    }

private:
    QStringView m_text;
    qsizetype m_position = 0;
};

} // namespace ostrand::store
