// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "toolkit/record_header.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ostrand::toolkit {

namespace {

// The markers are drawn in a square from -1 to 1.

void drawTriangle(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{-0.45, -0.75}, {0.55, 0.0}, {-0.45, 0.75}}));
}

void drawPencil(QPainter& painter)
{
    painter.rotate(45.0);
    painter.drawPolygon(QPolygonF({{-0.3, -1.0}, {0.3, -1.0}, {0.3, -0.72}, {-0.3, -0.72}}));
    painter.drawPolygon(QPolygonF({{-0.3, -0.6}, {0.3, -0.6}, {0.3, 0.5}, {-0.3, 0.5}}));
    painter.drawPolygon(QPolygonF({{-0.3, 0.6}, {0.3, 0.6}, {0.0, 1.15}}));
}

void drawStar(QPainter& painter)
{
    constexpr int rays = 6;
    for (int i = 0; i < rays; ++i) {
        const double angle = std::numbers::pi * 2 * i / rays;
        painter.drawLine(QPointF(0, 0), QPointF(std::sin(angle), -std::cos(angle)) * 0.75);
    }
}

} // namespace

RecordHeader::RecordHeader(QWidget* parent, std::function<RecordMarker(int)> marker)
    : QHeaderView(Qt::Vertical, parent),
      m_marker(std::move(marker))
{
    setSectionsClickable(false);
    setHighlightSections(false);
    setResizeContentsPrecision(0);
    setSectionResizeMode(QHeaderView::Fixed);
}

QSize RecordHeader::sizeHint() const
{
    return {fontMetrics().height() + 10, 0};
}

void RecordHeader::paintSection(QPainter* painter, const QRect& rect, int row) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = row;
    option.text.clear();
    // Styles leave their clipping behind.
    painter->save();
    style()->drawControl(QStyle::CE_Header, &option, painter, this);
    painter->restore();

    const RecordMarker marker = m_marker(row);
    if (marker == RecordMarker::None)
        return;
    const double size = std::min(rect.height(), fontMetrics().height()) * 0.36;
    const QColor colour = palette().color(QPalette::ButtonText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center());
    painter->scale(size, size);
    painter->setBrush(colour);
    if (marker == RecordMarker::New) {
        painter->setPen(QPen(colour, 0.26, Qt::SolidLine, Qt::RoundCap));
        drawStar(*painter);
    } else {
        painter->setPen(Qt::NoPen);
        if (marker == RecordMarker::Edited)
            drawPencil(*painter);
        else
            drawTriangle(*painter);
    }
    painter->restore();
}

void RecordHeader::mousePressEvent(QMouseEvent* event)
{
    const int row = logicalIndexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || row < 0)
        return;
    m_dragging = true;
    Q_EMIT rowPressed(row, event->modifiers());
}

void RecordHeader::mouseMoveEvent(QMouseEvent* event)
{
    const int row = logicalIndexAt(event->position().toPoint());
    if (m_dragging && (event->buttons() & Qt::LeftButton) != 0 && row >= 0)
        Q_EMIT rowDraggedTo(row);
}

void RecordHeader::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    Q_EMIT released(event->button(), event->modifiers(), event->position().toPoint());
}

void RecordHeader::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

} // namespace ostrand::toolkit
