// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/application.h"
#include "store/error.h"
#include "store/recordset.h"

#include <QHash>
#include <QString>

#include <functional>
#include <memory>

/// The rows of the Map, each of which ties one place in a workbook to one value of the database.
namespace ostrand::datasheets {

struct MapRow
{
    QString worksheet;
    QString object; ///< a cell reference, or the name of an embedded control
    QString field;
    /// What `object` names. The Map keeps no column for it: all its rows are cells.
    QString objectType;

    /// False for a row that shows nothing.
    bool isComplete() const;
    bool isCell() const;
};

/// The current row of a Map recordset. Raises 94 where `Worksheet` or `object` is Null.
MapRow readMapRow(const store::Recordset& map);

/// Runs `action` for the current row and those behind it.
void forEachMapRow(store::Recordset& map, const std::function<void(const MapRow&)>& action);

/// 20001: a row names an object of a type that the operation `source` does not know.
class ObjectTypeError final : public store::Error
{
public:
    explicit ObjectTypeError(QString source);
    const QString& source() const { return m_source; }

private:
    QString m_source;
};

/// Raises ObjectTypeError for a row that is no cell.
void requireCell(const MapRow& row, const QString& source);

/// Writes a value to the row's place: a text, or for a check box whether the value is X, Y or V.
/// Raises ObjectTypeError, and what the place is refused for.
void writeValue(spreadsheet::Worksheet& sheet,
                const MapRow& row,
                const QString& value,
                const QString& source);

/// Reads the value at the row's place. Raises as `writeValue` does.
spreadsheet::CellValue
readValue(spreadsheet::Worksheet& sheet, const MapRow& row, const QString& source);

/// The recordset of the main window's index. It is replaced when a session ends, which a message
/// or a call into the application may bring about: nobody keeps it.
store::Recordset& indexRecords();

/// The sheets of a workbook by name, each fetched once.
class Sheets
{
public:
    explicit Sheets(std::shared_ptr<spreadsheet::Workbook> workbook);
    /// Raises 9 where the workbook has no such sheet.
    spreadsheet::Worksheet& sheet(const QString& name);

private:
    std::shared_ptr<spreadsheet::Workbook> m_workbook;
    QHash<QString, std::shared_ptr<spreadsheet::Worksheet>> m_sheets;
};

} // namespace ostrand::datasheets
