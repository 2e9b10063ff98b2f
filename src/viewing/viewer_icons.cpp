// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/viewer_icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace ostrand::viewing {
namespace {

/// The signs are drawn on a square of this side.
constexpr double side = 16;
constexpr double lineWidth = 1.4;

/// An angle that points to the right, mirrored for the left.
QPainterPath angle(double x, double direction)
{
    QPainterPath path(QPointF(x - 2.2 * direction, 3.5));
    path.lineTo(x + 2.2 * direction, 8);
    path.lineTo(x - 2.2 * direction, 12.5);
    return path;
}

QPainterPath bar(double x)
{
    QPainterPath path(QPointF(x, 3.5));
    path.lineTo(x, 12.5);
    return path;
}

QPainterPath standing(double direction)
{
    QPainterPath path(QPointF(3.5, 8 - 2.2 * direction));
    path.lineTo(8, 8 + 2.2 * direction);
    path.lineTo(12.5, 8 - 2.2 * direction);
    return path;
}

QPainterPath magnifier(bool plus)
{
    QPainterPath path;
    path.addEllipse(QPointF(6.8, 6.8), 4.8, 4.8);
    path.moveTo(10.4, 10.4);
    path.lineTo(14.5, 14.5);
    path.moveTo(4.6, 6.8);
    path.lineTo(9, 6.8);
    if (plus) {
        path.moveTo(6.8, 4.6);
        path.lineTo(6.8, 9);
    }
    return path;
}

QPainterPath printer()
{
    QPainterPath path(QPointF(4, 6.5));
    for (const QPointF point : {QPointF(4, 1.5), QPointF(12, 1.5), QPointF(12, 6.5)})
        path.lineTo(point);
    path.moveTo(4, 11.5);
    for (const QPointF point : {QPointF(1.5, 11.5),
                                QPointF(1.5, 6.5),
                                QPointF(14.5, 6.5),
                                QPointF(14.5, 11.5),
                                QPointF(12, 11.5)})
        path.lineTo(point);
    path.addRect(4, 9.5, 8, 5);
    return path;
}

/// A sheet with a folded corner, and an arrow down into it.
QPainterPath sheet()
{
    QPainterPath path(QPointF(9.5, 1.5));
    for (const QPointF point : {QPointF(3, 1.5),
                                QPointF(3, 14.5),
                                QPointF(13, 14.5),
                                QPointF(13, 5),
                                QPointF(9.5, 1.5),
                                QPointF(9.5, 5),
                                QPointF(13, 5)})
        path.lineTo(point);
    path.moveTo(8, 6.8);
    path.lineTo(8, 12);
    path.moveTo(5.8, 9.8);
    path.lineTo(8, 12);
    path.lineTo(10.2, 9.8);
    return path;
}

QPainterPath pathOf(Glyph glyph)
{
    switch (glyph) {
    case Glyph::Print:
        return printer();
    case Glyph::SavePdf:
        return sheet();
    case Glyph::First:
        return angle(9.5, -1) + bar(4.5);
    case Glyph::Previous:
        return angle(8, -1);
    case Glyph::Next:
        return angle(8, 1);
    case Glyph::Last:
        return angle(6.5, 1) + bar(11.5);
    case Glyph::ZoomOut:
        return magnifier(false);
    case Glyph::ZoomIn:
        return magnifier(true);
    case Glyph::Up:
        return standing(-1);
    case Glyph::Down:
        return standing(1);
    }
    return {};
}

/// Takes its colour from the palette each time that it is painted.
class LineEngine final : public QIconEngine
{
public:
    explicit LineEngine(Glyph glyph)
        : m_glyph(glyph)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / side, rect.height() / side);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText),
                             lineWidth,
                             Qt::SolidLine,
                             Qt::RoundCap,
                             Qt::RoundJoin));
        painter->drawPath(pathOf(m_glyph));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new LineEngine(m_glyph); }

private:
    Glyph m_glyph;
};

} // namespace

QIcon viewerIcon(Glyph glyph)
{
    return QIcon(new LineEngine(glyph));
}

} // namespace ostrand::viewing
