// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "maker/csv.h"

#include <QHash>
#include <QString>

#include <vector>

namespace ostrand::tests {

using DataRow = QHash<QString, QString>; ///< cells by the names of their columns

/// The rows of a file of the data folder.
inline std::vector<DataRow> dataRows(const std::string& file)
{
    const auto table = maker::CsvTable::read(std::string(OSTRAND_DATA_DIR "/") + file);
    std::vector<DataRow> rows;
    for (const maker::CsvTable::Row& row : table.rows()) {
        DataRow cells;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            cells.insert(QString::fromStdString(table.columns()[i]),
                         QString::fromStdString(row.cells[i]));
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

/// The rows of one datasheet type.
inline std::vector<DataRow> dataRows(const std::string& file, const QString& type)
{
    std::vector<DataRow> rows = dataRows(file);
    std::erase_if(rows,
                  [&](const DataRow& row) { return row[QStringLiteral("DatasheetType")] != type; });
    return rows;
}

} // namespace ostrand::tests
