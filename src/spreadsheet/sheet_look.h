// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/sheet_design.h"

#include <QString>

namespace ostrand::spreadsheet {

/// Reads the look of a sheet back. The designs of the real application are of this kind too.
class SheetLook
{
public:
    virtual ~SheetLook() = default;

    /// The style of a single cell, with everything set; its borders are its own four sides, as
    /// `outer`, when these are alike.
    virtual CellStyle style(const QString& cell) const = 0;
    /// The code of a cell's number format, such as "General".
    virtual QString numberFormat(const QString& cell) const = 0;
    /// The merged block that a cell belongs to, such as "D11:F11"; the cell itself when it stands
    /// alone.
    virtual QString mergedBlock(const QString& cell) const = 0;
    /// Digits of a 10 point font, as `SheetDesign::setColumnWidth` takes them.
    virtual double columnWidth(const QString& column) const = 0;
    /// Points; rows are counted from 1.
    virtual double rowHeight(int row) const = 0;
    virtual PageSetup page() const = 0;
    virtual bool hasGridLines() const = 0;
    virtual bool isProtected() const = 0;
    /// The current cell of the sheet in front.
    virtual QString currentCell() const = 0;
};

} // namespace ostrand::spreadsheet
