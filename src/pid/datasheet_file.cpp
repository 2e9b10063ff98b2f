// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/datasheet_file.h"

#include "spreadsheet/cell_reference.h"
#include "toolkit/paths.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using ostrand::spreadsheet::SaveChanges;

namespace ostrand::pid {
namespace {

void requireCell(const QString& cell)
{
    if (!spreadsheet::fileCellPlace(cell)) {
        throw spreadsheet::Error(
            spreadsheet::errors::applicationError,
            QCoreApplication::translate("spreadsheet", "There is no cell \"%1\".").arg(cell));
    }
}

} // namespace

DatasheetFile::DatasheetFile(spreadsheet::Application& application, const QString& path)
    : m_workbook(application.Open(toolkit::filePath(path)))
{
}

DatasheetFile::~DatasheetFile()
{
    if (!m_workbook)
        return;
    try {
        m_workbook->Close(SaveChanges::No);
    } catch (const std::exception&) { // it goes with its application
    }
}

spreadsheet::Worksheet* DatasheetFile::findSheet(const QString& name)
{
    if (m_sheets.empty()) {
        for (int i = 1; i <= m_workbook->SheetCount(); ++i) {
            auto sheet = m_workbook->Worksheets(i);
            m_sheets.emplace(sheet->Name(), std::move(sheet));
        }
    }
    const auto found = m_sheets.find(name);
    return found == m_sheets.end() ? nullptr : found->second.get();
}

QString DatasheetFile::DatasheetType()
{
    if (!m_type)
        m_type = m_workbook->CustomDocumentProperty(u"DatasheetType"_s);
    return *m_type;
}

spreadsheet::CellValue DatasheetFile::value(const QString& sheet, const QString& cell)
{
    requireCell(cell);
    return findSheet(sheet)->Range(cell)->Value();
}

/// Where a cell gets several values, the last one counts.
void DatasheetFile::put(const QString& sheet,
                        const QString& cell,
                        const spreadsheet::CellValue& value)
{
    requireCell(cell);
    m_pending[sheet].push_back({cell, value});
}

void DatasheetFile::saveAndClose()
{
    for (const auto& [name, cells] : m_pending)
        findSheet(name)->write(cells);
    m_pending.clear();
    m_workbook->Worksheets(1)->Activate();
    m_workbook->Save();
    m_workbook->Close(SaveChanges::No);
    m_workbook.reset();
}

} // namespace ostrand::pid
