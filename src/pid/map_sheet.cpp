// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/map_sheet.h"

#include "datasheets/cell_text.h"

using namespace Qt::StringLiterals;
using ostrand::datasheets::textOf;

namespace ostrand::pid {

MapRows readMapRows(spreadsheet::Worksheet& sheet)
{
    constexpr int blockRows = 256;
    constexpr int headingRows = 1;
    MapRows rows;
    for (int first = headingRows + 1;; first += blockRows) {
        const QString block =
            u"A"_s + QString::number(first) + u":E"_s + QString::number(first + blockRows - 1);
        for (const std::vector<spreadsheet::CellValue>& cells : sheet.Values(block)) {
            const QString table = textOf(cells[0]);
            if (table.isEmpty())
                return rows;
            rows.push_back({.table = table,
                            .field = textOf(cells[1]),
                            .worksheet = textOf(cells[2]),
                            .column = textOf(cells[3]),
                            .row = textOf(cells[4])});
        }
    }
}

} // namespace ostrand::pid
