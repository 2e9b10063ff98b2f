// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "pid/CExportData.h"

#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "datasheets/filling.h"
#include "pid/process_datasheet.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <utility>

using namespace Qt::StringLiterals;
using ostrand::datasheets::currentFailure;
using ostrand::datasheets::Filling;

namespace ostrand::pid {
namespace {

const QString fileEnding = u".xls"_s;

} // namespace

CExportData::CExportData(std::shared_ptr<spreadsheet::Workbook> workbook,
                         QString DatasheetToProcess,
                         QString tag,
                         DatasheetRefresh& refresh)
    : m_wrkBook(std::move(workbook)),
      m_fileName(toolkit::fileTitle(DatasheetToProcess)),
      m_tag(std::move(tag)),
      m_refresh(refresh)
{
}

void CExportData::PopulateXlDatasheet()
{
    try {
        PopulateXlDatasheetProjInfo();
        PopulateXlDatasheetIndex();
        PopulateXlDatasheetDocument();
    } catch (...) {
        toolkit::showFailure(
            toolkit::formB(tr("Error while populating datasheet. "), currentFailure()));
    }
}

void CExportData::PopulateXlDatasheetProjInfo()
{
    pass(tr("Error while populating title information in Excel Spreadsheet "),
         [this] { Filling(m_wrkBook, xlsDatasheetType()).projectInfo(); });
}

void CExportData::PopulateXlDatasheetIndex()
{
    pass(tr("Error while populating index data into Excel Spreadsheet "), [this] {
        m_refresh.moveToTag(m_tag);
        // Behind the move, which has the main window show its place.
        app::mainWindow().setPanelText(1, tr("Please wait processing datasheet :-  ") + m_fileName);
        Filling(m_wrkBook, xlsDatasheetType()).index();
    });
}

void CExportData::PopulateXlDatasheetDocument()
{
    pass(tr("Error while populating document information in Excel Spreadsheet "), [this] {
        QString tag = m_fileName;
        if (tag.endsWith(fileEnding))
            tag.chop(fileEnding.size());
        Filling(m_wrkBook, xlsDatasheetType()).documents(tag);
    });
}

QString CExportData::xlsDatasheetType()
{
    try {
        return m_wrkBook->CustomDocumentProperty(u"DatasheetType"_s);
    } catch (...) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while getting datasheet type. "), currentFailure()));
        return {};
    }
}

void CExportData::pass(const QString& failure, const std::function<void()>& steps)
{
    try {
        steps();
    } catch (...) {
        datasheets::showFailure(toolkit::formA(failure + m_fileName + u"."_s, currentFailure()),
                                u"ERROR!"_s);
    }
}

} // namespace ostrand::pid
