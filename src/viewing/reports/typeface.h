// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QRawFont>
#include <QStringView>

#include <vector>

namespace ostrand::viewing::reports {

/// A font of the reports in one size. Its measures are whole units and know nothing of a device,
/// so that lines break alike everywhere.
class Typeface
{
public:
    Typeface(double points, bool bold);

    const QFont& font() const { return m_font; }
    /// How far below the upper edge of a line its letters stand.
    int baseline() const { return m_baseline; }
    int lineHeight() const { return m_lineHeight; }

    /// A character that stands by itself: its glyph, 0 for one that it lacks, and its width.
    struct Glyph
    {
        quint32 index = 0;
        int advance = 0;
    };
    /// Only for characters below `plainEnd`.
    const Glyph& glyph(char16_t character) const;
    static constexpr char16_t plainEnd = 0x2300;

    /// The text needs no shaping: a glyph stands for each character, from left to right.
    bool isPlain(QStringView text) const;
    /// The width of a plain text.
    int width(QStringView plain) const;

    /// A run of glyphs of this font, to be filled.
    QGlyphRun emptyRun() const;

private:
    struct Slot
    {
        Glyph glyph;
        bool known = false;
    };
    Glyph look(char16_t character) const;

    QFont m_font;
    QRawFont m_raw;
    int m_lineHeight;
    int m_baseline;
    mutable std::vector<Slot> m_slots; ///< filled as characters are asked for
};

/// The fonts of a report.
struct Typefaces
{
    Typeface body{7.5, false};
    Typeface bold{7.5, true};
    Typeface small{6.5, false};
    Typeface group{9, true};
    Typeface title{14, true};
    /// For what is too wide in bold letters of the usual size, the smallest last.
    std::vector<Typeface> smaller{{7, true}, {6.5, true}, {6, true}, {5.5, true}};
};

} // namespace ostrand::viewing::reports
