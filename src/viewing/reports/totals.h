// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/bands.h"
#include "viewing/reports/description.h"
#include "viewing/reports/report_data.h"
#include "viewing/reports/typeface.h"

#include <QSet>

namespace ostrand::viewing::reports {

/// The text of a group's heading for a row.
QString groupLabel(const Group& group, const Row& row);

/// The numbers that the last page gives: of each group and of all rows.
class Totals
{
public:
    Totals(const Description& report, const Typefaces& faces, int width);

    /// Counts a row whose groups begin anew from `level` on.
    void add(const Row& row, int level);
    /// The groups, and all rows last.
    int lineCount() const { return static_cast<int>(m_lines.size()) + 1; }
    Block heads(bool continued) const;
    Block line(int number) const;

private:
    struct Line
    {
        QString label;
        int level = 0;
        std::vector<qint64> numbers; ///< of rows, and of the description's totals
    };
    /// A group that is being counted.
    struct Count
    {
        std::size_t line;
        std::vector<QSet<QString>> seen;
    };
    void count(const Row& row, Line& line, std::vector<QSet<QString>>& seen) const;
    void addNumbers(Band& band, const std::vector<QString>& texts, const Typeface& face) const;
    Line emptyLine(const QString& label, int level) const;

    const Description& m_report;
    const Typefaces& m_faces;
    int m_labelWidth;
    int m_numberWidth;
    std::vector<Line> m_lines;
    std::vector<Count> m_open;
    Line m_all;
    std::vector<QSet<QString>> m_seen;
};

} // namespace ostrand::viewing::reports
