// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "logos/lettering.h"

#include <QPainter>
#include <QPainterPath>

namespace ostrand::logos {
namespace {

// Each letter fills a box of width and height 1.

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
    return path;
}

QPainterPath both(QPainterPath path, const QPainterPath& more)
{
    path.addPath(more);
    return path;
}

QPainterPath letterB()
{
    QPainterPath path(QPointF(0.05, 0));
    path.lineTo(0.55, 0);
    path.cubicTo(0.95, 0, 0.95, 0.47, 0.55, 0.47);
    path.lineTo(0.05, 0.47);
    path.moveTo(0.55, 0.47);
    path.cubicTo(1.08, 0.47, 1.08, 1, 0.55, 1);
    path.lineTo(0.05, 1);
    path.lineTo(0.05, 0);
    return path;
}

QPainterPath letterC()
{
    QPainterPath path;
    path.arcMoveTo(QRectF(0, 0, 1, 1), 45);
    path.arcTo(QRectF(0, 0, 1, 1), 45, 270);
    return path;
}

QPainterPath letterD()
{
    QPainterPath path(QPointF(0.05, 0));
    path.lineTo(0.42, 0);
    path.cubicTo(1.14, 0, 1.14, 1, 0.42, 1);
    path.lineTo(0.05, 1);
    path.closeSubpath();
    return path;
}

QPainterPath letterG()
{
    QPainterPath path;
    path.arcMoveTo(QRectF(0, 0, 1, 1), 45);
    path.arcTo(QRectF(0, 0, 1, 1), 45, 315);
    path.lineTo(0.55, 0.5);
    return path;
}

QPainterPath letterO()
{
    QPainterPath path;
    path.addEllipse(QRectF(0, 0, 1, 1));
    return path;
}

QPainterPath letterR()
{
    QPainterPath path(QPointF(0.05, 1));
    path.lineTo(0.05, 0);
    path.lineTo(0.55, 0);
    path.cubicTo(1.05, 0, 1.05, 0.56, 0.55, 0.56);
    path.lineTo(0.05, 0.56);
    path.moveTo(0.5, 0.56);
    path.lineTo(0.95, 1);
    return path;
}

QPainterPath letterS()
{
    QPainterPath path(QPointF(0.95, 0.14));
    path.cubicTo(0.72, -0.06, 0.08, -0.06, 0.08, 0.26);
    path.cubicTo(0.08, 0.56, 0.92, 0.42, 0.92, 0.74);
    path.cubicTo(0.92, 1.06, 0.28, 1.06, 0.05, 0.86);
    return path;
}

QPainterPath letterPath(char letter)
{
    switch (letter) {
    case 'A':
        return both(polyline({{0, 1}, {0.5, 0}, {1, 1}}), polyline({{0.18, 0.66}, {0.82, 0.66}}));
    case 'B':
        return letterB();
    case 'C':
        return letterC();
    case 'D':
        return letterD();
    case 'E':
        return both(polyline({{0.95, 0}, {0.1, 0}, {0.1, 1}, {0.95, 1}}),
                    polyline({{0.1, 0.48}, {0.85, 0.48}}));
    case 'G':
        return letterG();
    case 'M':
        return polyline({{0, 1}, {0.05, 0}, {0.5, 0.7}, {0.95, 0}, {1, 1}});
    case 'N':
        return polyline({{0.05, 1}, {0.05, 0}, {0.95, 1}, {0.95, 0}});
    case 'O':
        return letterO();
    case 'R':
        return letterR();
    case 'S':
        return letterS();
    case 'T':
        return both(polyline({{0, 0}, {1, 0}}), polyline({{0.5, 0}, {0.5, 1}}));
    case 'W':
        return polyline({{-0.05, 0}, {0.22, 1}, {0.5, 0.2}, {0.78, 1}, {1.05, 0}});
    case 'X':
        return both(polyline({{0, 0}, {1, 1}}), polyline({{1, 0}, {0, 1}}));
    case 'Y':
        return both(polyline({{0, 0}, {0.5, 0.5}, {1, 0}}), polyline({{0.5, 0.5}, {0.5, 1}}));
    default:
        return {};
    }
}

} // namespace

void drawWord(QPainter& painter,
              std::string_view word,
              const QPointF& topLeft,
              const Lettering& lettering)
{
    double left = topLeft.x();
    for (const char letter : word) {
        const QTransform place = QTransform::fromTranslate(left, topLeft.y())
                                     .scale(lettering.letter.width(), lettering.letter.height());
        painter.drawPath(place.map(letterPath(letter)));
        left += lettering.letter.width() + lettering.gap;
    }
}

double wordWidth(std::string_view word, const Lettering& lettering)
{
    const double count = static_cast<double>(word.size());
    return count * (lettering.letter.width() + lettering.gap) - lettering.gap;
}

} // namespace ostrand::logos
