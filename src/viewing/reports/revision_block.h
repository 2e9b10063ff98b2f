// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/bands.h"
#include "viewing/reports/report_data.h"
#include "viewing/reports/typeface.h"

namespace ostrand::viewing::reports {

class Sheet;

/// The last revisions of a project as a table, the newest first.
class RevisionBlock
{
public:
    /// The faces must outlive the block.
    RevisionBlock(const std::vector<Row>& revisions, const Typefaces& faces, int width);

    /// 0 without revisions.
    int height() const { return m_table.height() + m_older.height(); }
    void show(Sheet& sheet, QPoint at) const;

private:
    Block m_table;
    TextBlock m_older; ///< says how many are not shown
    int m_width;
};

} // namespace ostrand::viewing::reports
