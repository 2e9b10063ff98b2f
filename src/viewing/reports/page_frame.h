// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/description.h"
#include "viewing/reports/report_data.h"
#include "viewing/reports/revision_block.h"
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
    bool hasRevisions() const { return m_revisions.height() > 0; }
    QString headerText(const QString& field) const;

    const Description& m_report;
    const Typefaces& m_faces;
    QSize m_size;
    std::optional<Row> m_header;
    RevisionBlock m_revisions;
    QString m_logoFile;
    mutable std::optional<QImage> m_logo; ///< read when first shown
    QString m_date;
};

} // namespace ostrand::viewing::reports
