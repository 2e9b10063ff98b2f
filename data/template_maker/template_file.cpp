// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "template_maker/template_file.h"

#include "spreadsheet/sheet_design.h"
#include "template_maker/logo.h"
#include "template_maker/sheets.h"

using namespace Qt::StringLiterals;

namespace ostrand::template_maker {
namespace {

using spreadsheet::Workbook;
using spreadsheet::Worksheet;

/// Puts the logo where the form wants it, as large as its box allows.
void placeLogo(Worksheet& sheet, const LogoSheet& place, const QString& logo)
{
    const auto shape = sheet.InsertPicture(logo);
    const spreadsheet::Extent size = shape->Size();
    const double scale = std::min(logoBoxWidth / size.width, logoBoxHeight / size.height);
    shape->setName(u"LOGO"_s);
    shape->setSize({size.width * scale, size.height * scale});
    shape->setPosition(place.deltaX, place.deltaY);
}

/// Ties the places that only show a value to the cell where it is entered.
void showEchoes(Workbook& workbook, const Form& form)
{
    for (const Echo& echo : form.echoes) {
        const auto sheet = workbook.Worksheets(echo.place.worksheet);
        const QString source = u"$%1.%2"_s.arg(echo.source.worksheet, echo.source.cell);
        sheet->design().setFormula(echo.place.cell, u"=IF(%1=\"\";\"\";%1)"_s.arg(source));
        sheet->design().setStyle(echo.place.cell, {.locked = true});
    }
}

/// The logos, the current cells and the sheet in front.
void finishSheets(Workbook& workbook, const Form& form, const QString& logo)
{
    QString front = QString::fromUtf16(sheet_name::datasheet);
    for (const LogoSheet& place : form.logoSheets) {
        const auto sheet = workbook.Worksheets(place.worksheet);
        sheet->Activate();
        sheet->Range(place.anchor)->Select();
        placeLogo(*sheet, place, logo);
        sheet->Range(place.defaultCell)->Select();
        if (place.isDefault)
            front = place.worksheet;
    }
    workbook.Worksheets(front)->Activate();
}

} // namespace

void makeTemplate(spreadsheet::Application& application,
                  const Form& form,
                  const QString& logo,
                  const QString& path)
{
    const auto workbook = application.Add();
    workbook->setCustomDocumentProperty(u"DatasheetType"_s, form.type);
    const auto datasheet = workbook->Worksheets(1);
    datasheet->design().setName(QString::fromUtf16(sheet_name::datasheet));
    drawDatasheet(*datasheet, form);
    drawNotes(*workbook->AddSheet(QString::fromUtf16(sheet_name::notes)), form);
    drawPidMap(*workbook->AddSheet(QString::fromUtf16(sheet_name::pidMap)), form);
    showEchoes(*workbook, form);
    finishSheets(*workbook, form, logo);
    for (int i = 1; i <= workbook->SheetCount(); ++i)
        workbook->Worksheets(i)->Protect();
    workbook->SaveAs(path, spreadsheet::FileFormat::Template);
    workbook->Close(spreadsheet::SaveChanges::No);
}

} // namespace ostrand::template_maker
