// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/process_datasheet.h"

#include "datasheets/failure.h"
#include "datasheets/map_row.h"
#include "pid/CExportData.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;
using ostrand::datasheets::indexRecords;

namespace ostrand::pid {

void DatasheetRefresh::ProcessDatasheetProc(spreadsheet::Application& application,
                                            const QString& DatasheetToProcess,
                                            const QString& tag)
{
    std::shared_ptr<spreadsheet::Workbook> workbook;
    const auto giveUp = qScopeGuard([&workbook] {
        try {
            if (workbook)
                workbook->Close(spreadsheet::SaveChanges::No);
        } catch (const std::exception&) { // it goes with its application
        }
    });
    try {
        workbook = application.Open(toolkit::filePath(DatasheetToProcess));
        CExportData filling(workbook, DatasheetToProcess, tag, *this);
        filling.PopulateXlDatasheet();
        workbook->Save();
    } catch (...) {
        toolkit::showFailure(toolkit::procedureFailure(
            datasheets::currentFailure(), u"ProcessDatasheetProc"_s, u"frmIndex"_s));
    }
}

/// The index is walked once for all tags of a run. A place that is not the tag's any more has it
/// walked again.
void DatasheetRefresh::moveToTag(const QString& tag)
{
    const auto place = m_places.constFind(tag);
    if (place != m_places.cend() && *place < indexRecords().knownRows()) {
        indexRecords().SetAbsolutePosition(*place);
        if (standsOn(tag))
            return;
    }
    readPlaces();
    const auto found = m_places.constFind(tag);
    if (found != m_places.cend()) {
        indexRecords().SetAbsolutePosition(*found);
        return;
    }
    if (!indexRecords().Eof()) {
        indexRecords().MoveLast();
        indexRecords().MoveNext();
    }
}

bool DatasheetRefresh::standsOn(const QString& tag) const
{
    return !indexRecords().Eof() && indexRecords().Field(0).text() == tag;
}

void DatasheetRefresh::readPlaces()
{
    store::Recordset& index = indexRecords();
    index.readAllKeys();
    m_places.clear();
    m_places.reserve(index.knownRows());
    for (int i = 0; i < index.knownRows(); ++i) {
        const std::vector<store::Value>* row = index.row(i);
        if (!row)
            continue;
        const QString tag = row->front().text();
        if (!m_places.contains(tag))
            m_places.insert(tag, i);
    }
}

} // namespace ostrand::pid
