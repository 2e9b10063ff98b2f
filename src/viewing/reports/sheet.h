// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/hit.h"
#include "viewing/reports/text_block.h"

#include <QImage>
#include <QLine>

#include <vector>

namespace ostrand::viewing::reports {

enum class Rule { Hair, Frame };
enum class Shade { Light, Medium };

/// What a page is shown on. A page is told to any of them in reading order and in units.
class Sheet
{
public:
    virtual ~Sheet() = default;
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    /// The lines of a text from `first` to before `end`.
    virtual void text(const TextBlock& block, QPoint at, int first, int end) = 0;
    void text(const TextBlock& block, QPoint at) { text(block, at, 0, block.lineCount()); }
    virtual void rule(QLine /*line*/, Rule /*rule*/) {}
    virtual void fill(QRect /*place*/, Shade /*shade*/) {}
    virtual void picture(QRect /*place*/, const QImage& /*picture*/) {}
    /// A triangle around the exclamation mark that a text brings.
    virtual void warning(QRect /*place*/) {}

    void frame(QRect place, Rule kind)
    {
        const QPoint corner(place.x() + place.width(), place.y() + place.height());
        rule({place.topLeft(), {corner.x(), place.y()}}, kind);
        rule({{place.x(), corner.y()}, corner}, kind);
        rule({place.topLeft(), {place.x(), corner.y()}}, kind);
        rule({{corner.x(), place.y()}, corner}, kind);
    }

protected:
    Sheet() = default;
};

/// Paints in black on white whatever the desktop's colours are.
class PaintedSheet final : public Sheet
{
public:
    explicit PaintedSheet(QPainter& painter);
    /// Rules come last, and all at once.
    ~PaintedSheet() override;

    using Sheet::text;
    void text(const TextBlock& block, QPoint at, int first, int end) override;
    void rule(QLine line, Rule rule) override;
    void fill(QRect place, Shade shade) override;
    void picture(QRect place, const QImage& picture) override;
    void warning(QRect place) override;

private:
    QPainter& m_painter;
    std::vector<QLine> m_hairs;
    std::vector<QLine> m_frames;
};

/// Looks for a text in any case, also where it goes over several lines of a cell.
class SearchedSheet final : public Sheet
{
public:
    explicit SearchedSheet(const QString& wanted);

    using Sheet::text;
    void text(const TextBlock& block, QPoint at, int first, int end) override;

    std::vector<Hit> takeHits() { return std::move(m_hits); }

private:
    QString m_wanted;
    std::vector<Hit> m_hits;
};

} // namespace ostrand::viewing::reports
