// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/memory_desk.h"

using namespace Qt::StringLiterals;

namespace ostrand::tests {
namespace {

/// What typing makes of a text, formulas by their results.
spreadsheet::CellValue typed(const QString& text)
{
    if (text.isEmpty())
        return {};
    if (text == u"TRUE"_s || text == u"FALSE"_s)
        return text == u"TRUE"_s;
    if (text == u"=NA()"_s)
        return spreadsheet::CellError{u"#N/A"_s};
    if (text == u"=6*2"_s)
        return 12.0;
    if (const QDate date = QDate::fromString(text, Qt::ISODate); date.isValid())
        return QDateTime(date, QTime(0, 0));
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    if (isNumber)
        return number;
    return text;
}

} // namespace

void MemoryDesk::typeIn(const QString& sheet, const QString& cell, const QString& text)
{
    office.typeIn(sheet, cell, typed(text));
}

} // namespace ostrand::tests
