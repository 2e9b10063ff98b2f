// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"
#include "viewing/reports/hit.h"
#include "viewing/reports/report_data.h"

#include <QPageLayout>

#include <memory>

class QPainter;

namespace ostrand::viewing::reports {

class Layout;

/// A report broken into pages, for the preview, the printer and a PDF alike. Pages come one after
/// the other, so that the first can be shown while the rest is still to be laid out; all measures
/// are points (1/72 inch) from the upper left corner of the sheet, and the same on every device.
class Pages
{
public:
    Pages(std::shared_ptr<const Description> report, ReportData data);
    ~Pages();
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    /// Lays out as much as `milliseconds` allow, at least one row. False once all pages are there.
    bool layOutMore(int milliseconds);
    void layOutAll();
    bool complete() const;

    /// Pages that are laid out to their end. An empty report has one page that says so.
    int count() const;
    QString title() const;
    QSizeF size() const;
    QPageLayout pageLayout() const;

    /// Paints a page, counted from 0. "Page n of m" lacks its m until all pages are there.
    void draw(QPainter& painter, int page) const;

    /// Where a text stands on a page in reading order, in any case; "" is nowhere.
    std::vector<Hit> find(int page, const QString& text) const;

private:
    std::unique_ptr<Layout> m_layout;
};

} // namespace ostrand::viewing::reports
