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

/// A picture on a sheet. Measures are points.
struct PictureContent
{
    QString name;
    QString file = {};   ///< that it was read from
    QString anchor = {}; ///< cell that was selected when it was inserted
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// What a workbook of the memory application holds, and how it lies on disk.
struct SheetContent
{
    QString name;
    std::map<QString, spreadsheet::CellValue> cells = {};    ///< by reference in capitals
    std::map<QString, spreadsheet::CellValue> controls = {}; ///< by name: a text or a bool
    std::vector<PictureContent> pictures = {};
    bool isProtected = false;
    QString password = {}; ///< of the protection
    QString currentCell = {};
};

struct WorkbookContent
{
    QMap<QString, QString> properties;
    std::vector<SheetContent> sheets;
    int active = 0; ///< the sheet in front, counted from 0
    bool isTemplate = false;
};

/// Reads a workbook; nothing when the file is none. The file is there and readable.
std::optional<WorkbookContent> readWorkbook(const QString& path);

/// Writes a workbook over what is there. Raises 70 for a read-only file, 76 for a missing folder,
/// 1004 for what else refuses it.
void writeWorkbook(const QString& path, const WorkbookContent& content);

} // namespace ostrand::tests
