// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/form_page.h"
#include "template_maker/sheets.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrand::template_maker {
namespace {

using spreadsheet::HorizontalAlign;

constexpr int lastLine = 56;
constexpr int mostFreeLines = 6;
constexpr int leastFreeLines = 4;

int rowOf(int line)
{
    return page::firstBodyRow - 1 + line;
}

/// Lines behind the form's own whose item the user names. The rest of the rows goes to the notes.
int freeLinesOf(const Form& form)
{
    const int room = lastLine - static_cast<int>(form.lines.size());
    return room < leastFreeLines ? 0 : std::min(room, mostFreeLines);
}

/// The cells of a line's values; several cells of a block are merged.
QStringList valueBlocks(int row, int valueCells)
{
    switch (valueCells) {
    case 1:
        return {block(u"D"_s, row, u"F"_s, row)};
    case 2:
        return {cell(u"D"_s, row), block(u"E"_s, row, u"F"_s, row)};
    default:
        return {cell(u"D"_s, row), cell(u"E"_s, row), cell(u"F"_s, row)};
    }
}

void mergeLine(const SheetPen& pen, const Line& line)
{
    const int row = rowOf(line.number);
    for (const QString& values : valueBlocks(row, line.valueCells)) {
        if (values.contains(u':'))
            pen.merge(values);
    }
    pen.merge(block(u"G"_s, row, u"H"_s, row));
}

void writeLines(const SheetPen& pen, const std::vector<Line>& lines)
{
    Entries items;
    Entries units;
    for (const Line& line : lines) {
        items.push_back({double(line.number), line.label});
        units.push_back({line.unit});
    }
    pen.design().setEntries(cell(u"B"_s, page::firstBodyRow), items);
    pen.design().setEntries(cell(u"G"_s, page::firstBodyRow), units);
}

/// What all lines have in common, before they are drawn one by one.
void styleLines(const SheetPen& pen, int lastRow)
{
    const auto column = [&](const QString& first, const QString& last) {
        return block(first, page::firstBodyRow, last, lastRow);
    };
    pen.rule(column(u"A"_s, u"H"_s));
    pen.style(column(u"B"_s, u"B"_s),
              {.fontSize = look::smallSize,
               .colour = look::textGrey,
               .horizontal = HorizontalAlign::Centre});
    pen.style(column(u"C"_s, u"C"_s), {.fontSize = look::labelSize});
    pen.style(column(u"D"_s, u"F"_s),
              {.horizontal = HorizontalAlign::Centre, .shrinkToFit = true, .locked = false});
    pen.style(column(u"G"_s, u"H"_s),
              {.fontSize = look::labelSize, .horizontal = HorizontalAlign::Centre});
}

/// A band of lines with its name at the left.
void drawSection(const SheetPen& pen, const QString& name, int firstRow, int lastRow)
{
    pen.sideHeading(block(u"A"_s, firstRow, u"A"_s, lastRow), name);
    pen.frame(block(u"A"_s, firstRow, u"A"_s, lastRow));
    pen.frame(block(u"A"_s, firstRow, u"H"_s, lastRow));
}

void drawSections(const SheetPen& pen, const std::vector<Line>& lines)
{
    for (auto first = lines.begin(); first != lines.end();) {
        const auto next = std::find_if(
            first, lines.end(), [&](const Line& line) { return line.section != first->section; });
        drawSection(pen, first->section, rowOf(first->number), rowOf(std::prev(next)->number));
        first = next;
    }
}

void drawFootNotes(const SheetPen& pen, int firstRow)
{
    const QString rows = block(u"B"_s, firstRow, u"H"_s, page::lastFormRow);
    pen.rule(rows);
    pen.style(rows, {.horizontal = HorizontalAlign::Left, .shrinkToFit = true, .locked = false});
    for (int row = firstRow; row <= page::lastFormRow; ++row)
        pen.merge(block(u"B"_s, row, u"H"_s, row));
    drawSection(pen, u"NOTES"_s, firstRow, page::lastFormRow);
}

} // namespace

void drawDatasheet(spreadsheet::Worksheet& sheet, const Form& form)
{
    const SheetPen pen(sheet);
    drawPage(pen, form, 1, u"DATASHEET"_s);
    pen.heading(u"G10"_s, u"UNIT"_s);

    std::vector<Line> lines = form.lines;
    const int given = static_cast<int>(lines.size());
    for (int i = 0; i < freeLinesOf(form); ++i)
        lines.push_back({u"FURTHER DATA"_s, given + i + 1, QString(), QString(), 1});
    const int lastRow = rowOf(lines.back().number);
    styleLines(pen, lastRow);
    writeLines(pen, lines);
    for (const Line& line : lines)
        mergeLine(pen, line);
    if (lines.back().number > given) {
        pen.unlock(block(u"C"_s, rowOf(given + 1), u"C"_s, lastRow));
        pen.unlock(block(u"G"_s, rowOf(given + 1), u"H"_s, lastRow));
    }
    drawSections(pen, lines);
    drawFootNotes(pen, lastRow + 1);
    framePage(pen);
}

} // namespace ostrand::template_maker
