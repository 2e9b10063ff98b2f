// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"
#include "viewing/reports/report_data.h"
#include "viewing/reports/typeface.h"

#include <QImage>

#include <optional>

namespace ostrand::viewing::reports {

class Sheet;

/// What stands around the body of every page: the header block above, the filter and the order
/// below, and on the first page the revision block.
class PageFrame
{
public:
    PageFrame(const Description& report, const ReportData& data, const Typefaces& faces);

    /// Where the body begins, and ends on the page.
    static int bodyTop();
    int bodyEnd(int page) const;

    /// `count` is missing until it is known.
    void showHeader(Sheet& sheet, int page, std::optional<int> count) const;
    void showFooter(Sheet& sheet, int page) const;

private:
    void showLogo(Sheet& sheet, QRect place) const;
    void showTitle(Sheet& sheet, QRect place) const;
    void showProject(Sheet& sheet, QRect place, int page, std::optional<int> count) const;
    void showRevisions(Sheet& sheet) const;
    int revisionsHeight() const;
    QString headerText(const QString& field) const;

    const Description& m_report;
    const Typefaces& m_faces;
    QSize m_size;
    std::optional<Row> m_header;
    std::vector<Row> m_revisions; ///< the last ones, the newest first
    int m_older = 0;              ///< revisions that are not shown
    QString m_logoFile;
    mutable std::optional<QImage> m_logo; ///< read when first shown
    QString m_date;
};

} // namespace ostrand::viewing::reports
