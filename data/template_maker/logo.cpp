// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/logo.h"

#include "logos/canvas.h"
#include "logos/lettering.h"

#include <QPainter>

namespace ostrand::template_maker {
namespace {

constexpr double stroke = 2.6; // all in points
const logos::Lettering lettering{{13, 15}, 8.5};
const QColor slate(0x24, 0x3b, 0x53);
const QColor steel(0x4f, 0x7c, 0xac);

/// A round instrument with its needle.
void drawMark(QPainter& painter, const QPointF& centre, double radius)
{
    constexpr double needleWidth = 2.4;
    constexpr double hub = 2.6;
    constexpr double reach = 0.62;
    painter.setPen(QPen(slate, stroke));
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(QPen(steel, needleWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre, centre + QPointF(reach, -reach) * radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(slate);
    painter.drawEllipse(centre, hub, hub);
    painter.setBrush(Qt::NoBrush);
}

} // namespace

bool writeLogo(const QString& file)
{
    return logos::writePicture(file, {logoBoxWidth, logoBoxHeight}, [](QPainter& painter) {
        constexpr double middle = logoBoxHeight / 2;
        constexpr double radius = 13;
        constexpr double markCentre = 20;
        constexpr double wordLeft = 43;
        drawMark(painter, {markCentre, middle}, radius);
        painter.setPen(QPen(slate, stroke, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
        const QPointF corner(wordLeft, middle - lettering.letter.height() / 2);
        logos::drawWord(painter, "OSTRAND", corner, lettering);
    });
}

} // namespace ostrand::template_maker
