// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/cell_value_of.h"

#include "store/recordset.h"

namespace ostrand::pid {
namespace {

/// Dates are kept as texts.
spreadsheet::CellValue momentOf(const QString& text)
{
    const QDateTime moment = QDateTime::fromString(QString(text).replace(u' ', u'T'), Qt::ISODate);
    if (moment.isValid())
        return moment;
    return text;
}

} // namespace

spreadsheet::CellValue cellValueOf(const store::Recordset& row, int field)
{
    const store::Value value = row.Field(field);
    if (value.isNull())
        return std::monostate{};
    switch (row.FieldMeaning(field)) {
    case store::Meaning::Date:
        return momentOf(value.text());
    case store::Meaning::Flag:
        return value.flag();
    case store::Meaning::Plain:
        break;
    }
    if (value.isText())
        return value.text();
    return value.number();
}

} // namespace ostrand::pid
