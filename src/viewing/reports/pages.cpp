// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing/reports/pages.h"

#include "viewing/reports/geometry.h"
#include "viewing/reports/layout.h"
#include "viewing/reports/sheet.h"

#include <QElapsedTimer>
#include <QPainter>

#include <utility>

namespace ostrand::viewing::reports {

Pages::Pages(std::shared_ptr<const Description> report, ReportData data)
    : m_layout(std::make_unique<Layout>(std::move(report), std::move(data)))
{
}

Pages::~Pages() = default;

bool Pages::layOutMore(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        m_layout->step();
    } while (!m_layout->complete() && timer.elapsed() < milliseconds);
    return !m_layout->complete();
}

void Pages::layOutAll()
{
    while (!m_layout->complete())
        m_layout->step();
}

bool Pages::complete() const
{
    return m_layout->complete();
}

int Pages::count() const
{
    return m_layout->count();
}

QString Pages::title() const
{
    return m_layout->report().title;
}

QSizeF Pages::size() const
{
    return QSizeF(sheetSize(m_layout->report().paper)) / unitsPerPoint;
}

QPageLayout Pages::pageLayout() const
{
    const bool large = m_layout->report().paper == Paper::A3Landscape;
    return {QPageSize(large ? QPageSize::A3 : QPageSize::A4), QPageLayout::Landscape, {}};
}

void Pages::draw(QPainter& painter, int page) const
{
    if (page < 0 || page >= count())
        return;
    painter.save();
    painter.scale(1.0 / unitsPerPoint, 1.0 / unitsPerPoint);
    {
        PaintedSheet sheet(painter);
        m_layout->show(sheet, page);
    }
    painter.restore();
}

std::vector<Hit> Pages::find(int page, const QString& text) const
{
    if (page < 0 || page >= count())
        return {};
    SearchedSheet sheet(text);
    m_layout->show(sheet, page);
    return sheet.takeHits();
}

} // namespace ostrand::viewing::reports
