// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/map_row.h"

#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "toolkit/data_control.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace ostrand::datasheets {
namespace {

const QString typeCell = u"cell"_s;
const QString typeTextBox = u"textbox"_s;
const QString typeCheckBox = u"checkbox"_s;

QString requiredText(const store::Recordset& map, const QString& field)
{
    const store::Value value = map.Field(field);
    if (value.isNull()) {
        throw store::Error(errors::invalidUseOfNull,
                           QCoreApplication::translate("cXlHndlr", "Invalid use of Null"));
    }
    return value.text();
}

bool isTick(const QString& value)
{
    const QString mark = value.toUpper();
    return mark == "X"_L1 || mark == "Y"_L1 || mark == "V"_L1;
}

} // namespace

bool MapRow::isComplete() const
{
    return !worksheet.isEmpty() && !objectType.isEmpty() && !object.isEmpty();
}

bool MapRow::isCell() const
{
    return objectType == typeCell;
}

MapRow readMapRow(const store::Recordset& map)
{
    return {.worksheet = requiredText(map, u"Worksheet"_s),
            .object = requiredText(map, u"object"_s),
            .field = map.Field(u"Field"_s).text(),
            .objectType = typeCell};
}

void forEachMapRow(store::Recordset& map, const std::function<void(const MapRow&)>& action)
{
    for (; !map.Eof(); map.MoveNext())
        action(readMapRow(map));
}

ObjectTypeError::ObjectTypeError(QString source)
    : Error(errors::unrecognizedObjectType,
            QCoreApplication::translate("cXlHndlr", "Unrecognize object type!")),
      m_source(std::move(source))
{
}

void requireCell(const MapRow& row, const QString& source)
{
    if (!row.isCell())
        throw ObjectTypeError(source);
}

void writeValue(spreadsheet::Worksheet& sheet,
                const MapRow& row,
                const QString& value,
                const QString& source)
{
    if (row.objectType == typeTextBox) {
        sheet.OLEObjects(row.object)->setValue(value);
    } else if (row.objectType == typeCheckBox) {
        sheet.OLEObjects(row.object)->setValue(isTick(value));
    } else {
        requireCell(row, source);
        sheet.Range(row.object)->setValue(value);
    }
}

spreadsheet::CellValue
readValue(spreadsheet::Worksheet& sheet, const MapRow& row, const QString& source)
{
    if (row.objectType == typeTextBox || row.objectType == typeCheckBox)
        return sheet.OLEObjects(row.object)->Value();
    requireCell(row, source);
    return sheet.Range(row.object)->Value();
}

store::Recordset& indexRecords()
{
    return app::mainWindow().dbIndex().Recordset();
}

Sheets::Sheets(std::shared_ptr<spreadsheet::Workbook> workbook)
    : m_workbook(std::move(workbook))
{
}

spreadsheet::Worksheet& Sheets::sheet(const QString& name)
{
    auto& sheet = m_sheets[name];
    if (!sheet)
        sheet = m_workbook->Worksheets(name);
    return *sheet;
}

} // namespace ostrand::datasheets
