// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// Filling the workbook from the database.
#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/failure.h"
#include "datasheets/filling.h"
#include "toolkit/prompts.h"

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;

namespace ostrand::datasheets {
namespace {

const QString errorTitle = u"ERROR!"_s;

} // namespace

void cXlHndlr::PopulateXl()
{
    try {
        PopulateXlProjInfo();
        PopulateXlIndex();
        PopulateXlDocument();
    } catch (...) {
        showFailure(toolkit::formB(tr("Error while populating datasheet. "), currentFailure()),
                    tr("Error"));
    }
}

void cXlHndlr::PopulateXlIndex()
{
    try {
        Filling(openWorkbook(), DatasheetType()).index();
    } catch (...) {
        showFailure(toolkit::formA(tr("Error while populating index data into Excel Spreadsheet ")
                                       + filename() + u"."_s,
                                   currentFailure()),
                    errorTitle);
    }
}

void cXlHndlr::PopulateXlProjInfo()
{
    try {
        Filling(openWorkbook(), DatasheetType()).projectInfo();
    } catch (...) {
        showFailure(
            toolkit::formA(tr("Error while populating title information in Excel Spreadsheet ")
                               + filename() + u"."_s,
                           currentFailure()),
            errorTitle);
    }
}

void cXlHndlr::PopulateXlDocument()
{
    try {
        Filling(openWorkbook(), DatasheetType()).documents(mainWindow().ActiveTag());
    } catch (...) {
        showFailure(
            toolkit::formA(tr("Error while populating document information in Excel Spreadsheet ")
                               + filename() + u"."_s,
                           currentFailure()),
            errorTitle);
    }
}

QString cXlHndlr::StartCell(const store::Value& reference)
{
    try {
        if (reference.isNull())
            throw store::Error(errors::invalidUseOfNull, tr("Invalid use of Null"));
        const QString text = reference.text();
        const qsizetype colon = text.indexOf(u':');
        return colon > 0 ? text.left(colon) : text;
    } catch (const store::Error& error) {
        showFailure(tr("Error in StartCell(). ") + QString::number(error.number()) + u" : "_s
                        + error.description(),
                    tr("Error!"));
        return {};
    }
}

} // namespace ostrand::datasheets
