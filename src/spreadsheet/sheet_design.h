// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace ostrand::spreadsheet {

enum class HorizontalAlign { Left, Centre, Right };
enum class VerticalAlign { Top, Centre, Bottom };

/// Lines around the cells of a block. Weights are points; 0 is no line, and a side without a weight
/// keeps the line that it has. Workbook files know hairlines and thin, medium and thick lines
/// alone.
struct Borders
{
    std::optional<double> outer = {}; ///< around the block
    std::optional<double> inner = {}; ///< between its cells
    int colour = 0;                   ///< 0xRRGGBB
    bool operator==(const Borders&) const = default;
};

/// What is set is given to the cells, and the rest of their style stays. Colours are 0xRRGGBB.
struct CellStyle
{
    std::optional<QString> fontName = {};
    std::optional<double> fontSize = {}; ///< points
    std::optional<bool> bold = {};
    std::optional<bool> italic = {};
    std::optional<int> colour = {};
    std::optional<int> background = {};
    std::optional<HorizontalAlign> horizontal = {};
    std::optional<VerticalAlign> vertical = {};
    std::optional<bool> wrap = {};
    std::optional<bool> shrinkToFit = {};
    std::optional<int> rotation = {}; ///< degrees, counter-clockwise
    std::optional<bool> locked = {};  ///< takes effect while the sheet is protected
    std::optional<Borders> borders = {};
    bool operator==(const CellStyle&) const = default;
};

/// What a cell holds: a text letter for letter, "" for nothing, or a number.
using CellEntry = std::variant<QString, double>;

/// Margins are inches. A sheet larger than its pages is made smaller, never larger.
struct PageSetup
{
    bool landscape = false;
    double margin = 0.35;
    QString printArea = {};
    int pagesWide = 1;
    int pagesHigh = 1;
    bool centred = true; ///< between the left and the right margin
    bool operator==(const PageSetup&) const = default;
};

/// The look of a sheet, for who makes workbooks. References are those of `Worksheet::Range`.
class SheetDesign
{
public:
    virtual ~SheetDesign() = default;

    virtual void setName(const QString& name) = 0;
    /// A label. The text goes in letter for letter.
    virtual void setText(const QString& cell, const QString& text) = 0;
    /// Fills a block whose upper left cell is `first`, row by row, in one call. All rows are of one
    /// length. Raises 5 for others.
    virtual void setEntries(const QString& first,
                            const std::vector<std::vector<CellEntry>>& rows) = 0;
    /// A value that follows other cells. The formula begins with "=" and is spelled with English
    /// names, ";" between arguments and "." behind a sheet, as in `=IF(Sheet1.A1="";"";Sheet1.A1)`.
    /// The cell shows an error where the formula has one.
    virtual void setFormula(const QString& cell, const QString& formula) = 0;
    virtual void setStyle(const QString& reference, const CellStyle& style) = 0;
    virtual void merge(const QString& reference) = 0;
    /// Width in digits of a 10 point font (7 pixels of 1/96 inch each, and 5 beside them), column
    /// by its letters.
    virtual void setColumnWidth(const QString& column, double characters) = 0;
    /// Rows are counted from 1, both ends included; heights are points.
    virtual void setRowHeight(int first, int last, double points) = 0;
    /// A4 paper, without the application's own headers and footers.
    virtual void setPage(const PageSetup& page) = 0;
    virtual void setGridLines(bool shown) = 0;
};

} // namespace ostrand::spreadsheet
