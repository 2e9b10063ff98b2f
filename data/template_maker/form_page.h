// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "template_maker/form.h"
#include "template_maker/sheet_pen.h"

namespace ostrand::template_maker {

/// The page that the sheets of a form share: paper, columns, title block, frame and foot.
namespace page {
inline constexpr int sheets = 2;
inline constexpr int firstBodyRow = 11;
inline constexpr int lastFormRow = 70; ///< inside the frame
inline constexpr int footRow = 71;
} // namespace page

/// Sets up the page; the rows below the title block are empty.
void drawPage(const SheetPen& pen, const Form& form, int sheetNumber, const QString& title);
/// Draws the frame, over whatever stands on the page by then.
void framePage(const SheetPen& pen);

} // namespace ostrand::template_maker
