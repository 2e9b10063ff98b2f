// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetricsF>
#include <QWidget>

#include <algorithm>

/// Design measures are twips, 1440 to the inch, made for a font of 13 pixels at 96 dpi.
namespace ostrand::toolkit {

inline constexpr int twipsPerPixel = 15;
inline constexpr double designFontHeight = 13.0;

/// How much larger than in the design windows come out with a font; never smaller.
inline double fontScale(const QFont& font)
{
    return std::max(1.0, QFontMetricsF(font).height() / designFontHeight);
}

/// Pixels of a design measure with a font, or with the font of a widget.
inline int px(int twips, const QFont& font)
{
    return qRound(twips * fontScale(font) / twipsPerPixel);
}

inline int px(int twips, const QWidget* widget)
{
    return px(twips, widget->font());
}

} // namespace ostrand::toolkit
