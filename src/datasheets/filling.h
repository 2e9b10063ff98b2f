// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "datasheets/map_row.h"
#include "spreadsheet/application.h"
#include "store/value.h"

#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace ostrand::store {
class Database;
} // namespace ostrand::store

namespace ostrand::datasheets {

/// Fills the mapped cells of a workbook with the values of the project, in three passes. The cells
/// of a pass are written together; where the pass fails, those before the failure are written.
/// Every pass raises what it fails with.
class Filling
{
public:
    /// `type` is the workbook's datasheet type, which tells the rows of the Map.
    Filling(std::shared_ptr<spreadsheet::Workbook> workbook, QString type);

    /// The project's attributes.
    void projectInfo();
    /// The fields of the main window's current record.
    void index();
    /// The numbers of a tag's documents.
    void documents(const QString& tag);

private:
    using ValueOf = std::function<store::Value(const MapRow&)>;

    void pass(const std::function<void(const store::Database&)>& steps);
    void fillRows(const store::Database& database,
                  const QString& field,
                  const QString& table,
                  const QString& source,
                  const ValueOf& value);
    void put(const MapRow& row, const QString& value, const QString& source);
    void flush();

    Sheets m_sheets;
    QString m_type;
    std::map<QString, std::vector<spreadsheet::CellWrite>> m_pending; ///< by sheet
};

} // namespace ostrand::datasheets
