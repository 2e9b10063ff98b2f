// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/form_page.h"

using namespace Qt::StringLiterals;

namespace ostrand::template_maker {
namespace {

using spreadsheet::CellStyle;
using spreadsheet::HorizontalAlign;
using spreadsheet::VerticalAlign;

struct Column
{
    char16_t letter;
    double width; ///< digits
};

constexpr Column columns[] = {{u'A', 3.3},
                              {u'B', 4.3},
                              {u'C', 31},
                              {u'D', 12},
                              {u'E', 12},
                              {u'F', 12},
                              {u'G', 7},
                              {u'H', 15}};
constexpr double rowHeight = 11; // points
constexpr double titleSize = 11;
constexpr double subtitleSize = 7.5; // two lines within two rows

void setPaper(const SheetPen& pen)
{
    spreadsheet::SheetDesign& design = pen.design();
    for (const Column& column : columns)
        design.setColumnWidth(QString(QChar(column.letter)), column.width);
    design.setRowHeight(1, page::footRow, rowHeight);
    design.setPage({.margin = 0.35, .printArea = u"A1:H71"_s});
    design.setGridLines(false);
    pen.style(
        u"A1:H71"_s,
        {.fontName = u"Arial"_s, .fontSize = look::textSize, .vertical = VerticalAlign::Centre});
}

void drawTitle(const SheetPen& pen, const Form& form, const QString& title)
{
    for (const auto& place : {u"A1:C4"_s, u"D1:F2"_s, u"D3:F4"_s}) {
        pen.merge(place);
        pen.frame(place);
    }
    const CellStyle centred{.bold = true, .horizontal = HorizontalAlign::Centre};
    pen.style(u"D1:F4"_s, centred);
    pen.style(u"D1:F2"_s, {.fontSize = titleSize, .shrinkToFit = true, .locked = false});
    pen.style(u"D3:F4"_s, {.fontSize = subtitleSize, .wrap = true});
    pen.text(u"D3"_s, form.type + u'\n' + title);
}

/// The references of the sheet, at the right.
void drawReferences(const SheetPen& pen, int sheetNumber)
{
    const QString labels[] = {u"SHEET"_s,
                              u"SPEC NO"_s,
                              u"REV"_s,
                              u"DATE"_s,
                              u"CONTRACT"_s,
                              u"REQ NO"_s,
                              u"P.O. NO"_s,
                              u"BY / CHK"_s,
                              u"OP. UNIT"_s};
    int row = 0;
    for (const QString& label : labels)
        pen.text(cell(u"G"_s, ++row), label);
    pen.rule(block(u"G"_s, 1, u"H"_s, row));
    pen.style(block(u"G"_s, 1, u"G"_s, row),
              {.fontSize = look::smallSize, .background = look::bandGrey});
    pen.style(block(u"H"_s, 1, u"H"_s, row),
              {.horizontal = HorizontalAlign::Centre, .shrinkToFit = true, .locked = false});
    pen.text(u"H1"_s, u"%1 OF %2"_s.arg(sheetNumber).arg(page::sheets));
    pen.frame(u"G1:H4"_s);
    pen.frame(u"G5:H8"_s);
}

void drawRevisions(const SheetPen& pen)
{
    constexpr int headingRow = 5;
    constexpr int lastRow = 8;
    for (int row = headingRow + 1; row <= lastRow; ++row)
        pen.merge(block(u"A"_s, row, u"B"_s, row));
    pen.rule(u"A5:F8"_s);
    pen.style(u"A6:F8"_s,
              {.horizontal = HorizontalAlign::Centre, .shrinkToFit = true, .locked = false});
    pen.style(u"C6:C8"_s, {.horizontal = HorizontalAlign::Left});
    pen.heading(u"A5:B5"_s, u"NO"_s);
    pen.heading(u"C5"_s, u"REVISION"_s);
    pen.heading(u"D5"_s, u"BY"_s);
    pen.heading(u"E5"_s, u"DATE"_s);
    pen.heading(u"F5"_s, u"APPR"_s);
    pen.frame(u"A5:F8"_s);
}

void drawPlace(const SheetPen& pen)
{
    for (const auto& place : {u"D9:F9"_s, u"D10:F10"_s, u"G10:H10"_s})
        pen.merge(place);
    pen.rule(u"A9:H10"_s);
    pen.style(u"D9:F10"_s,
              {.horizontal = HorizontalAlign::Centre, .shrinkToFit = true, .locked = false});
    pen.heading(u"A9:C9"_s, u"PLANT"_s);
    pen.heading(u"A10:C10"_s, u"LOCATION"_s);
    pen.frame(u"A9:F10"_s);
    pen.frame(u"A9:H10"_s);
}

void drawFoot(const SheetPen& pen, const Form& form)
{
    pen.merge(u"A71:F71"_s);
    pen.merge(u"G71:H71"_s);
    pen.style(u"A71:H71"_s, {.fontSize = look::smallSize, .colour = look::textGrey});
    pen.style(u"G71:H71"_s, {.horizontal = HorizontalAlign::Right});
    pen.text(u"A71"_s, u"Form ID-%1 issue 1"_s.arg(form.number, 2, 10, QChar(u'0')));
    pen.text(u"G71"_s, form.fileName);
}

} // namespace

void drawPage(const SheetPen& pen, const Form& form, int sheetNumber, const QString& title)
{
    setPaper(pen);
    drawReferences(pen, sheetNumber);
    drawRevisions(pen);
    drawPlace(pen);
    drawTitle(pen, form, title);
    drawFoot(pen, form);
}

void framePage(const SheetPen& pen)
{
    pen.frame(u"A1:H10"_s, look::medium);
    pen.frame(block(u"A"_s, page::firstBodyRow, u"H"_s, page::lastFormRow), look::medium);
}

} // namespace ostrand::template_maker
