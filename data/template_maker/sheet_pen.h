// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "spreadsheet/sheet_design.h"

namespace ostrand::template_maker {

/// The weights and colours that all sheets share.
namespace look {
inline constexpr double hair = 0.05; ///< points
inline constexpr double thin = 0.75;
inline constexpr double medium = 1.75;
inline constexpr int textGrey = 0x595959;
inline constexpr int bandGrey = 0xe4e7ea;
inline constexpr double textSize = 8; ///< points
inline constexpr double labelSize = 7.5;
inline constexpr double smallSize = 6.5;
} // namespace look

using Entries = std::vector<std::vector<spreadsheet::CellEntry>>;

/// Writes and draws on one sheet.
class SheetPen
{
public:
    explicit SheetPen(spreadsheet::Worksheet& sheet)
        : m_design(sheet.design())
    {
    }

    spreadsheet::SheetDesign& design() const { return m_design; }
    void text(const QString& cell, const QString& words) const { m_design.setText(cell, words); }
    void style(const QString& block, const spreadsheet::CellStyle& style) const
    {
        m_design.setStyle(block, style);
    }
    void merge(const QString& block) const { m_design.merge(block); }
    void unlock(const QString& block) const { m_design.setStyle(block, {.locked = false}); }
    /// Hairlines between the cells and around them.
    void rule(const QString& block) const;
    /// A line around a block alone.
    void frame(const QString& block, double weight = look::thin) const;
    /// Words in the first cell of a block that is merged, on the grey of headings.
    void heading(const QString& block, const QString& words) const;
    /// The name of rows, in a column that is merged and read from below.
    void sideHeading(const QString& block, const QString& words) const;

private:
    spreadsheet::SheetDesign& m_design;
};

/// "A" and 11 become "A11"; "B", 14, "H", 70 become "B14:H70".
QString cell(const QString& column, int row);
QString block(const QString& first, int top, const QString& last, int bottom);

} // namespace ostrand::template_maker
