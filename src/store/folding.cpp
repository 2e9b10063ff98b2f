// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "store/folding.h"

#include "store/collation_table.h"

#include <algorithm>

namespace ostrand::store {

namespace {

char32_t foldLatin(char32_t character)
{
    const bool upper = (character >= U'A' && character <= U'Z')
                       || (character >= 0xc0 && character <= 0xde && character != 0xd7);
    return upper ? character + 0x20 : character;
}

} // namespace

char32_t foldCase(char32_t character)
{
    if (character <= 0xff)
        return foldLatin(character);
    const auto& ranges = collation::foldRanges;
    const auto range = std::lower_bound(
        ranges.begin(), ranges.end(), character, [](const auto& candidate, char32_t wanted) {
            return candidate.last < wanted;
        });
    if (range == ranges.end() || character < range->first)
        return character;
    if ((character - range->first) % static_cast<char32_t>(range->step) != 0)
        return character;
    return static_cast<char32_t>(static_cast<std::int32_t>(character) + range->delta);
}

QString foldCase(QStringView text)
{
    QString folded = text.toString();
    for (qsizetype i = 0; i < folded.size(); ++i) {
        const char16_t unit = folded.at(i).unicode();
        if (unit < 0x80) {
            folded[i] = QChar(static_cast<char16_t>(foldLatin(unit)));
        } else if (QChar::isHighSurrogate(unit) && i + 1 < folded.size()
                   && folded.at(i + 1).isLowSurrogate()) {
            const char32_t pair =
                foldCase(QChar::surrogateToUcs4(unit, folded.at(i + 1).unicode()));
            folded[i] = QChar(QChar::highSurrogate(pair));
            folded[++i] = QChar(QChar::lowSurrogate(pair));
        } else {
            folded[i] = QChar(static_cast<char16_t>(foldCase(char32_t{unit})));
        }
    }
    return folded;
}

} // namespace ostrand::store
