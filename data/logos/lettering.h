// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QSizeF>

#include <string_view>

class QPainter;

/// Letters drawn by strokes, so that a logo is the same on every machine, whatever fonts it has.
namespace ostrand::logos {

/// The letters of a word, each in a box of one size.
struct Lettering
{
    QSizeF letter;
    double gap; ///< between letters
};

/// Draws a word with the painter's pen. Letters that no logo has so far are left blank.
void drawWord(QPainter& painter,
              std::string_view word,
              const QPointF& topLeft,
              const Lettering& lettering);

/// How wide a word is.
double wordWidth(std::string_view word, const Lettering& lettering);

} // namespace ostrand::logos
