// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/typeface.h"

#include "viewing/reports/measures.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::viewing::reports {
namespace {

constexpr double lineSpacing = 1.2;

QFont makeFont(double points, bool bold)
{
    QFont font;
    font.setFamilies({u"Liberation Sans"_s, u"Arial"_s, u"Helvetica"_s, u"sans-serif"_s});
    font.setPixelSize(fromPoints(points));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    // Any letter spacing keeps ligatures away, which a search in a PDF would not find.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.01);
    return font;
}

/// Latin, Greek, Cyrillic and the signs between them, without what joins or turns its neighbours.
bool standsAlone(char16_t code)
{
    const QChar character(code);
    if (code < u' ' || code >= Typeface::plainEnd || character.isMark())
        return false;
    switch (character.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
        return false;
    default:
        return character.category() != QChar::Other_Format
               && character.category() != QChar::Other_Control
               && character.category() != QChar::Other_NotAssigned;
    }
}

} // namespace

Typeface::Typeface(double points, bool bold)
    : m_font(makeFont(points, bold)),
      m_raw(QRawFont::fromFont(m_font)),
      m_lineHeight(fromPoints(points * lineSpacing)),
      m_baseline(qRound((m_lineHeight + m_raw.ascent() - m_raw.descent()) / 2)),
      m_slots(plainEnd)
{
}

Typeface::Glyph Typeface::look(char16_t character) const
{
    if (!standsAlone(character))
        return {};
    const QChar text(character);
    quint32 index = 0;
    int count = 1;
    if (!m_raw.glyphIndexesForChars(&text, 1, &index, &count) || index == 0)
        return {};
    QPointF advance;
    m_raw.advancesForGlyphIndexes(&index, &advance, 1, QRawFont::UseDesignMetrics);
    return {index, qRound(advance.x())};
}

const Typeface::Glyph& Typeface::glyph(char16_t character) const
{
    Slot& slot = m_slots[character];
    if (!slot.known)
        slot = {look(character), true};
    return slot.glyph;
}

bool Typeface::isPlain(QStringView text) const
{
    return std::all_of(text.utf16(), text.utf16() + text.size(), [this](char16_t character) {
        return character < plainEnd && glyph(character).index != 0;
    });
}

int Typeface::width(QStringView plain) const
{
    int width = 0;
    for (const QChar character : plain)
        width += glyph(character.unicode()).advance;
    return width;
}

QGlyphRun Typeface::emptyRun() const
{
    QGlyphRun run;
    run.setRawFont(m_raw);
    return run;
}

} // namespace ostrand::viewing::reports
