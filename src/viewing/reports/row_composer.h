// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/bands.h"
#include "viewing/reports/description.h"
#include "viewing/reports/report_data.h"
#include "viewing/reports/typeface.h"

#include <optional>

namespace ostrand::viewing::reports {

/// Makes what is printed of the rows of a report.
class RowComposer
{
public:
    /// Columns are fitted into a body of `width`.
    RowComposer(const Description& report,
                const ReportData& data,
                const Typefaces& faces,
                int width);

    Block compose(const Row& row) const;
    /// The captions of the columns.
    Block heads() const;
    /// Edges of the columns, from the body's left to its right one; none where no rules stand
    /// between columns.
    const std::vector<int>& edges() const { return m_edges; }
    /// What stands in a column.
    QString text(const Column& column, const Row& row) const;
    /// By what a row is known that goes on on another page.
    QString name(const Row& row) const;

private:
    /// A line that joined texts share for as long as they fit.
    struct Flow
    {
        int start;
        int x = start;
        std::optional<Band> band = {};
    };

    Block table(const Row& row) const;
    Block card(const Row& row) const;
    void addUnder(Block& block, const Row& row, int indent) const;
    QString joinedText(const Under& under, const Row& row) const;
    void addJoined(Block& block, Flow& flow, const Under& under, const QString& text) const;
    static void endFlow(Block& block, Flow& flow);
    void addLines(Block& block, const Under& under, const Row& row, int indent) const;
    void addItems(Block& block, const Row& row) const;
    void addForm(Block& block) const;
    Cell cell(const Column& column, const Row& row, int x, int width) const;
    Cell caption(const QString& text, int x, int width) const;
    Band band(int above, int below) const;

    const Description& m_report;
    const ReportData& m_data;
    const Typefaces& m_faces;
    int m_width;
    std::vector<int> m_places; ///< where the columns begin, and where the last one ends
    std::vector<int> m_edges;
    bool m_framed = false; ///< each row has rules of its own between its columns
};

} // namespace ostrand::viewing::reports
