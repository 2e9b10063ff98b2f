// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/sheet.h"

#include "viewing/reports/measures.h"

#include <QPainter>

#include <utility>

namespace ostrand::viewing::reports {
namespace {

constexpr double hairPoints = 0.25;
constexpr double framePoints = 0.6;
const QColor hairColour(0x9a, 0x9a, 0x9a);
const QColor lightColour(0xf0, 0xf0, 0xf0);
const QColor mediumColour(0xdc, 0xdc, 0xdc);

/// A line break and a blank that keeps words together are found as blanks.
QString blanksOnly(QString text)
{
    text.replace(u'\n', u' ');
    text.replace(QChar::Nbsp, u' ');
    return text;
}

QPen penOf(const QColor& colour, double points)
{
    return {colour, points * unitsPerPoint, Qt::SolidLine, Qt::FlatCap};
}

} // namespace

PaintedSheet::PaintedSheet(QPainter& painter)
    : m_painter(painter)
{
    m_painter.setPen(Qt::black);
    m_painter.setBrush(Qt::NoBrush);
}

PaintedSheet::~PaintedSheet()
{
    m_painter.setPen(penOf(hairColour, hairPoints));
    m_painter.drawLines(m_hairs.data(), static_cast<int>(m_hairs.size()));
    m_painter.setPen(penOf(Qt::black, framePoints));
    m_painter.drawLines(m_frames.data(), static_cast<int>(m_frames.size()));
}

void PaintedSheet::text(const TextBlock& block, QPoint at, int first, int end)
{
    block.paint(m_painter, at, first, end);
}

void PaintedSheet::rule(QLine line, Rule rule)
{
    (rule == Rule::Hair ? m_hairs : m_frames).push_back(line);
}

void PaintedSheet::fill(QRect place, Shade shade)
{
    m_painter.fillRect(place, shade == Shade::Light ? lightColour : mediumColour);
}

void PaintedSheet::picture(QRect place, const QImage& picture)
{
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
    m_painter.drawImage(place, picture);
}

void PaintedSheet::warning(QRect place)
{
    m_painter.setPen(penOf(Qt::black, framePoints));
    const QPoint corners[] = {{place.center().x(), place.top()},
                              {place.left(), place.bottom()},
                              {place.right(), place.bottom()}};
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.drawPolygon(corners, 3);
    m_painter.setPen(Qt::black);
}

SearchedSheet::SearchedSheet(const QString& wanted)
    : m_wanted(blanksOnly(wanted))
{
}

void SearchedSheet::text(const TextBlock& block, QPoint at, int first, int end)
{
    if (m_wanted.isEmpty())
        return;
    const QString all = blanksOnly(block.text());
    qsizetype start = all.indexOf(m_wanted, 0, Qt::CaseInsensitive);
    while (start >= 0) {
        Hit hit;
        for (const QRect& line : block.places(start, m_wanted.size(), first, end)) {
            const QRect place = line.translated(at);
            if (place.isEmpty())
                continue;
            hit.places.emplace_back(QPointF(place.topLeft()) / unitsPerPoint,
                                    QSizeF(place.size()) / unitsPerPoint);
        }
        if (!hit.places.empty())
            m_hits.push_back(std::move(hit));
        start = all.indexOf(m_wanted, start + m_wanted.size(), Qt::CaseInsensitive);
    }
}

} // namespace ostrand::viewing::reports
