// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace ostrand::pid {

/// A datasheet's workbook, opened out of the user's sight. One that was neither saved nor closed is
/// given up when the object ends. All raise `spreadsheet::Error`.
class DatasheetFile
{
public:
    DatasheetFile(spreadsheet::Application& application, const QString& path);
    ~DatasheetFile();
    DatasheetFile(const DatasheetFile&) = delete;
    DatasheetFile& operator=(const DatasheetFile&) = delete;

    spreadsheet::Workbook& workbook() const { return *m_workbook; }
    const std::shared_ptr<spreadsheet::Workbook>& shared() const { return m_workbook; }

    /// The sheet whose name is the same in every letter; nullptr for none.
    spreadsheet::Worksheet* findSheet(const QString& name);
    /// The workbook's datasheet type. Raises 5 where it has none.
    QString DatasheetType();

    /// A cell's value. Raises 1004 for what is no single cell.
    spreadsheet::CellValue value(const QString& sheet, const QString& cell);
    /// Puts a value into a cell at the next `save`. Raises 1004 for what is no single cell.
    void put(const QString& sheet, const QString& cell, const spreadsheet::CellValue& value);
    /// Writes what was put, brings the first sheet to the front, saves and closes.
    void saveAndClose();

private:
    std::shared_ptr<spreadsheet::Workbook> m_workbook;
    std::map<QString, std::shared_ptr<spreadsheet::Worksheet>> m_sheets; ///< filled at first use
    std::map<QString, std::vector<spreadsheet::CellWrite>> m_pending;    ///< by sheet
    std::optional<QString> m_type;
};

} // namespace ostrand::pid
