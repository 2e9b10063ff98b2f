// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/libreoffice/object_keeper.h"

#include <QDateTime>

#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>
#include <map>
#include <memory>

namespace ostrand::spreadsheet::libreoffice {

/// What the numbers of a document stand for. The application keeps dates and truth values as
/// numbers and tells them by the cell's format alone.
class NumberFormats
{
public:
    enum class Meaning { Number, Date, Flag };

    NumberFormats(
        const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument>& document,
        std::shared_ptr<ObjectKeeper> keeper);

    Meaning meaningOf(sal_Int32 format);
    /// The moment of a number of days since the document's day 0.
    QDateTime moment(double days) const;
    /// The number of a moment, which the document takes for the moment's own clock.
    double daysOf(const QDateTime& moment) const;
    /// The document's own format for values of a meaning.
    sal_Int32 standardFormat(Meaning meaning, bool withTime) const;

private:
    std::shared_ptr<ObjectKeeper> m_keeper;
    com::sun::star::uno::Reference<com::sun::star::util::XNumberFormats> m_formats;
    std::map<sal_Int32, Meaning> m_meanings;
    QDate m_dayZero;
};

} // namespace ostrand::spreadsheet::libreoffice
