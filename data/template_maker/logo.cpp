// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/logo.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace ostrand::template_maker {
namespace {

constexpr int pixelsPerPoint = 4;
constexpr double pointsPerInch = 72;
constexpr double inchesPerMetre = 1 / 0.0254;

constexpr double letterHeight = 15; // all in points
constexpr double letterWidth = 13;
constexpr double letterGap = 8.5;
constexpr double stroke = 2.6;
const QColor slate(0x24, 0x3b, 0x53);
const QColor steel(0x4f, 0x7c, 0xac);

/// A letter in a box of width and height 1.
using Letter = QPainterPath (*)();

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path(*points.begin());
    for (const QPointF& point : points)
        path.lineTo(point);
    return path;
}

QPainterPath letterO()
{
    QPainterPath path;
    path.addEllipse(QRectF(0, 0, 1, 1));
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

QPainterPath letterT()
{
    QPainterPath path = polyline({{0, 0}, {1, 0}});
    path.addPath(polyline({{0.5, 0}, {0.5, 1}}));
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

QPainterPath letterA()
{
    QPainterPath path = polyline({{0, 1}, {0.5, 0}, {1, 1}});
    path.addPath(polyline({{0.18, 0.66}, {0.82, 0.66}}));
    return path;
}

QPainterPath letterN()
{
    return polyline({{0.05, 1}, {0.05, 0}, {0.95, 1}, {0.95, 0}});
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

void drawWord(QPainter& painter, double left, double top)
{
    constexpr Letter word[] = {letterO, letterS, letterT, letterR, letterA, letterN, letterD};
    painter.setPen(QPen(slate, stroke, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    for (const Letter letter : word) {
        const QTransform place =
            QTransform::fromTranslate(left, top).scale(letterWidth, letterHeight);
        painter.drawPath(place.map(letter()));
        left += letterWidth + letterGap;
    }
}

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
    constexpr double middle = logoBoxHeight / 2;
    constexpr double radius = 13;
    constexpr double markCentre = 20;
    constexpr double wordLeft = 43;
    QImage image(static_cast<int>(logoBoxWidth) * pixelsPerPoint,
                 static_cast<int>(logoBoxHeight) * pixelsPerPoint,
                 QImage::Format_RGB32);
    const int dots = qRound(pixelsPerPoint * pointsPerInch * inchesPerMetre);
    image.setDotsPerMeterX(dots);
    image.setDotsPerMeterY(dots);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixelsPerPoint, pixelsPerPoint);
    drawMark(painter, {markCentre, middle}, radius);
    drawWord(painter, wordLeft, middle - letterHeight / 2);
    painter.end();
    return image.save(file);
}

} // namespace ostrand::template_maker
