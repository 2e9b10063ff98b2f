// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/form_page.h"
#include "template_maker/sheets.h"

using namespace Qt::StringLiterals;

namespace ostrand::template_maker {
namespace {

using spreadsheet::HorizontalAlign;

constexpr int headingRow = 13;

/// Which instrument the notes are about.
void drawSubject(const SheetPen& pen)
{
    for (const auto& place : {u"D11:H11"_s, u"D12:H12"_s})
        pen.merge(place);
    pen.rule(u"A11:H12"_s);
    pen.style(
        u"D11:H12"_s,
        {.bold = true, .horizontal = HorizontalAlign::Left, .shrinkToFit = true, .locked = false});
    pen.heading(u"A11:C11"_s, u"TAG NUMBER"_s);
    pen.heading(u"A12:C12"_s, u"SERVICE"_s);
    pen.frame(u"A11:H12"_s);
}

} // namespace

void drawNotes(spreadsheet::Worksheet& sheet, const Form& form)
{
    const SheetPen pen(sheet);
    drawPage(pen, form, 2, u"NOTES"_s);
    drawSubject(pen);
    const QString rows = block(u"A"_s, headingRow, u"H"_s, page::lastFormRow);
    pen.rule(rows);
    for (int row = headingRow + 1; row <= page::lastFormRow; ++row)
        pen.merge(block(u"B"_s, row, u"H"_s, row));
    const QString notes = block(u"A"_s, headingRow + 1, u"H"_s, page::lastFormRow);
    pen.style(notes, {.horizontal = HorizontalAlign::Left, .shrinkToFit = true, .locked = false});
    pen.style(block(u"A"_s, headingRow + 1, u"A"_s, page::lastFormRow),
              {.horizontal = HorizontalAlign::Centre});
    pen.heading(cell(u"A"_s, headingRow), u"NO"_s);
    pen.heading(block(u"B"_s, headingRow, u"H"_s, headingRow), u"NOTE"_s);
    pen.frame(block(u"A"_s, headingRow, u"H"_s, headingRow));
    framePage(pen);
}

} // namespace ostrand::template_maker
