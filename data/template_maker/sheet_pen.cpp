// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/sheet_pen.h"

namespace ostrand::template_maker {

using spreadsheet::Borders;
using spreadsheet::HorizontalAlign;

void SheetPen::rule(const QString& block) const
{
    style(block, {.borders = Borders{.outer = look::hair, .inner = look::hair}});
}

void SheetPen::frame(const QString& block, double weight) const
{
    style(block, {.borders = Borders{.outer = weight}});
}

void SheetPen::heading(const QString& block, const QString& words) const
{
    if (block.contains(u':'))
        merge(block);
    style(block,
          {.fontSize = look::smallSize,
           .bold = true,
           .background = look::bandGrey,
           .horizontal = HorizontalAlign::Centre});
    text(block.section(u':', 0, 0), words);
}

void SheetPen::sideHeading(const QString& block, const QString& words) const
{
    heading(block, words);
    style(block, {.wrap = true, .rotation = 90});
}

QString cell(const QString& column, int row)
{
    return column + QString::number(row);
}

QString block(const QString& first, int top, const QString& last, int bottom)
{
    return cell(first, top) + u':' + cell(last, bottom);
}

} // namespace ostrand::template_maker
