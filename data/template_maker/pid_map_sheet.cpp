// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/sheet_pen.h"
#include "template_maker/sheets.h"

using namespace Qt::StringLiterals;

namespace ostrand::template_maker {
namespace {

using spreadsheet::HorizontalAlign;

struct Column
{
    char16_t letter;
    double width; ///< digits
    const char16_t* heading;
};

constexpr Column columns[] = {{u'A', 30, u"P&ID table"},
                              {u'B', 24, u"P&ID field"},
                              {u'C', 20, u"Worksheet"},
                              {u'D', 10, u"Column"},
                              {u'E', 10, u"Row"}};
constexpr double rowHeight = 13; // points
constexpr double headingSize = 8;

void writeRows(const SheetPen& pen, const std::vector<PidRow>& rows)
{
    Entries entries;
    for (const PidRow& row : rows)
        entries.push_back({row.table, row.field, row.worksheet, row.column, double(row.row)});
    pen.design().setEntries(u"A2"_s, entries);
}

} // namespace

void drawPidMap(spreadsheet::Worksheet& sheet, const Form& form)
{
    const SheetPen pen(sheet);
    const int last = 1 + static_cast<int>(form.pidRows.size());
    const QString table = block(u"A"_s, 1, u"E"_s, last);
    pen.design().setRowHeight(1, last, rowHeight);
    pen.design().setPage({.margin = 0.75, .printArea = table});
    pen.design().setGridLines(false);
    pen.style(table,
              {.fontName = u"Arial"_s,
               .fontSize = look::textSize,
               .vertical = spreadsheet::VerticalAlign::Centre});
    pen.rule(table);
    for (const Column& column : columns) {
        const QString letter = QString(QChar(column.letter));
        pen.design().setColumnWidth(letter, column.width);
        pen.heading(cell(letter, 1), QString::fromUtf16(column.heading));
    }
    pen.style(u"A1:E1"_s, {.fontSize = headingSize});
    pen.style(block(u"D"_s, 2, u"E"_s, last), {.horizontal = HorizontalAlign::Centre});
    writeRows(pen, form.pidRows);
    pen.frame(u"A1:E1"_s);
    pen.frame(table, look::medium);
}

} // namespace ostrand::template_maker
