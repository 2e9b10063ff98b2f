// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/cell_value.h"

#include <QMap>
#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace ostrand::tests {

/// What a workbook of the memory application holds, and how it lies on disk.
struct SheetContent
{
    QString name;
    std::map<QString, spreadsheet::CellValue> cells = {};    ///< by reference in capitals
    std::map<QString, spreadsheet::CellValue> controls = {}; ///< by name: a text or a bool
};

struct WorkbookContent
{
    QMap<QString, QString> properties;
    std::vector<SheetContent> sheets;
};

/// Reads a workbook; nothing when the file is none. The file is there and readable.
std::optional<WorkbookContent> readWorkbook(const QString& path);

/// Writes a workbook over what is there. Raises 70 for a read-only file, 76 for a missing folder,
/// 1004 for what else refuses it.
void writeWorkbook(const QString& path, const WorkbookContent& content);

} // namespace ostrand::tests
