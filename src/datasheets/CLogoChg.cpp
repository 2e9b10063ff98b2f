// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "datasheets/CLogoChg.h"

#include "app/main_window.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "datasheets/logo_files.h"
#include "spreadsheet/host.h"
#include "spreadsheet/repaint.h"
#include "store/database.h"
#include "store/recordset.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <utility>

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;
using ostrand::spreadsheet::SaveChanges;

namespace ostrand::datasheets {
namespace {

/// The room for a logo on a sheet that does not tell it by merged cells, in points.
constexpr spreadsheet::Extent usualRoom{200, 40};

/// The logo's file is what is wrong.
struct LogoUnusable
{
};

QString pathOf(const QString& folder, const QString& file)
{
    const bool ends = folder.endsWith(u'\\') || folder.endsWith(u'/');
    return ends ? folder + file : toolkit::joinPath(folder, file);
}

LogoSheet sheetOf(const store::Recordset& row)
{
    return {.name = row.Field(u"WorkSheet"_s).text(),
            .anchor = row.Field(u"LogoAnchor"_s).text(),
            .left = static_cast<float>(row.Field(u"DeltaX"_s).number()),
            .top = static_cast<float>(row.Field(u"DeltaY"_s).number()),
            .defaultCell = row.Field(u"DefaultCell"_s).text(),
            .isDefault = row.Field(u"DefaultSheet"_s).flag()};
}

/// The words of a failure with the file that they are about: a run has hundreds.
QString wordsAbout(const QString& file, const QString& words)
{
    return words.contains(file) ? words : file + u": "_s + words;
}

/// The room at a cell, as far as the logo keeps the same distance from all sides of it.
spreadsheet::Extent roomAt(const spreadsheet::Range& anchor, const LogoSheet& row)
{
    const std::optional<spreadsheet::Extent> area = anchor.MergeArea();
    if (!area || area->width <= 2 * row.left || area->height <= 2 * row.top)
        return usualRoom;
    return {area->width - 2 * row.left, area->height - 2 * row.top};
}

} // namespace

CLogoChg::CLogoChg(Links links)
    : m_links(std::move(links))
{
}

CLogoChg::~CLogoChg()
{
    giveUp();
    quit();
}

void CLogoChg::ChangeLogo(const QString& file,
                          const QString& folder,
                          const QString& logoFile,
                          bool isTemplate,
                          int& cancelled)
{
    cancelled = 0;
    if (m_xlApp)
        return;
    const QString path = pathOf(folder, file);
    try {
        changeWorkbook(file, path, logoFile, isTemplate);
    } catch (const LogoUnusable&) {
        cancelled = askForLogo(isTemplate);
    } catch (...) {
        failed(file, path, currentFailure());
    }
}

void CLogoChg::changeWorkbook(const QString& file,
                              const QString& path,
                              const QString& logoFile,
                              bool isTemplate)
{
    const auto project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
    m_xlApp = &runningApplication();
    m_wrkBook = m_xlApp->Open(toolkit::filePath(path));
    QString type;
    const auto sheets = GetXlsDatasheetType(file, *m_wrkBook, type);
    m_xlApp->setVisible(true);
    spreadsheet::repaint();
    if (!sheets)
        throw store::Error(spreadsheet::errors::subscriptOutOfRange, tr("Subscript out of range"));
    std::shared_ptr<spreadsheet::Worksheet> front;
    for (const LogoSheet& row : *sheets) {
        changeSheet(row, toolkit::filePath(logoFile));
        if (row.isDefault)
            front = m_wrkSht;
    }
    (front ? front : m_wrkBook->Worksheets(1))->Activate();
    saveAndClose(path, isTemplate);
}

// ---- a sheet

void CLogoChg::changeSheet(const LogoSheet& row, const QString& logoFile)
{
    m_wrkSht = m_wrkBook->Worksheets(row.name);
    m_wrkSht->Activate();
    m_wrkSht->Unprotect();
    if (deleteLogo())
        insertLogo(row, logoFile);
    m_wrkSht->Range(row.defaultCell)->Activate();
    m_wrkSht->Protect();
}

/// The first one alone; false where the sheet has none.
bool CLogoChg::deleteLogo() const
{
    for (const auto& shape : m_wrkSht->Shapes()) {
        if (shape->Name().toUpper() == u"LOGO"_s) {
            shape->Delete();
            return true;
        }
    }
    return false;
}

void CLogoChg::insertLogo(const LogoSheet& row, const QString& logoFile)
{
    const auto anchor = m_wrkSht->Range(row.anchor);
    anchor->Select();
    const auto logo = insertPicture(logoFile);
    logo->setName(u"logo"_s);
    const spreadsheet::Extent size = logo->Size();
    const double scale = scaleToFit(size, roomAt(*anchor, row));
    if (scale < 1)
        logo->setSize({size.width * scale, size.height * scale});
    logo->setPosition(row.left, row.top);
}

std::unique_ptr<spreadsheet::Shape> CLogoChg::insertPicture(const QString& logoFile)
{
    try {
        m_picture.require(logoFile);
        return m_wrkSht->InsertPicture(logoFile);
    } catch (const spreadsheet::Error& error) {
        if (error.number() != spreadsheet::errors::applicationError)
            throw;
        throw LogoUnusable();
    }
}

// ---- the end of a workbook

void CLogoChg::saveAndClose(const QString& path, bool isTemplate)
{
    if (isTemplate)
        m_wrkBook->SaveAs(toolkit::filePath(path), spreadsheet::FileFormat::Template);
    else
        m_wrkBook->Save();
    giveUp();
}

/// What was not saved is lost with the workbook.
void CLogoChg::giveUp() noexcept
{
    m_wrkSht.reset();
    try {
        if (const auto workbook = std::exchange(m_wrkBook, {}))
            workbook->Close(SaveChanges::No);
    } catch (const std::exception&) { // it goes with its application
    }
    hide();
    m_xlApp = nullptr;
}

// ---- the application

spreadsheet::Application& CLogoChg::runningApplication()
{
    if (m_application && !m_application->isRunning())
        m_application.reset();
    if (!m_application) {
        m_application = spreadsheet::CreateObject();
        // The sheets are not protected meanwhile.
        m_application->refuseInput();
    }
    return *m_application;
}

void CLogoChg::hide() const noexcept
{
    try {
        if (m_application)
            m_application->setVisible(false);
    } catch (const std::exception&) { // it has no window any more
    }
}

void CLogoChg::quit() noexcept
{
    try {
        if (const auto application = std::exchange(m_application, {}))
            application->Quit();
    } catch (const std::exception&) { // it has ended
    }
}

// ---- what the project knows

std::optional<std::vector<LogoSheet>> CLogoChg::GetXlsDatasheetType(
    const QString& file, const spreadsheet::Workbook& workbook, QString& type) const
{
    try {
        const auto project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
        type = workbook.CustomDocumentProperty(u"DatasheetType"_s);
        const auto rows = project.OpenRecordset(
            u"SELECT DtShtWorksheets.DatasheetType, DtShtWorksheets.WorkSheet, "
            u"DtShtWorksheets.LogoAnchor, DtShtWorksheets.DeltaX, DtShtWorksheets.DeltaY, "
            u"DtShtWorksheets.DefaultCell, DtShtWorksheets.DefaultSheet From DtShtWorksheets "
            u"WHERE (((DtShtWorksheets.DatasheetType)=\""_s
            + QString(type).replace(u"\""_s, u"\"\""_s) + u"\"))"_s);
        std::vector<LogoSheet> sheets;
        for (; !rows->Eof(); rows->MoveNext())
            sheets.push_back(sheetOf(*rows));
        return sheets;
    } catch (...) {
        const store::Error error = currentFailure();
        if (error.number() == spreadsheet::errors::applicationError) {
            showOverMainWindow(
                {.text = tr("Error while trying to open datasheet ") + file
                         + tr(". File either doesn't exist or has been moved.") + u"\r\n\r\n"_s
                         + tr("Do you wish to locate datasheet?") + u"\r\n\r\n"_s
                         + tr("To create a new datasheet, delete the datasheet file name and "
                              "datasheet file path from tag record in the index."),
                 .icon = toolkit::BoxIcon::Question,
                 .buttons = toolkit::BoxButtons::YesNo});
        } else {
            showOverMainWindow(
                {.text = toolkit::formA(
                     tr("Error while opening Excel Spreadsheet ") + file + u"."_s, error)});
        }
        return std::nullopt;
    }
}

// ---- failures

/// The workbook goes first, so that its window does not hide the box.
void CLogoChg::failed(const QString& file, const QString& path, const store::Error& error)
{
    giveUp();
    switch (error.number()) {
    case spreadsheet::errors::serverGone:
        m_application.reset();
        showOverMainWindow(
            {.text = toolkit::formA(tr("Error while opening Excel Spreadsheet ") + path + u"."_s,
                                    error)});
        break;
    case spreadsheet::errors::subscriptOutOfRange:
        showOverMainWindow({.text = tr("Datasheet ") + file + tr(" is invalid datasheet")});
        break;
    default:
        showOverMainWindow({.text = QString::number(error.number()) + u"  "_s
                                    + wordsAbout(file, error.description())});
    }
}

/// 1 when the user ends the run.
int CLogoChg::askForLogo(bool isTemplate)
{
    hide();
    m_links.setHourglass(false);
    const toolkit::Answer answer = showOverMainWindow(
        {.text = tr("Datasheet logo file not found would you like to locate it now?"),
         .buttons = toolkit::BoxButtons::YesNoCancel});
    giveUp();
    switch (answer) {
    case toolkit::Answer::Yes:
        return changeFirstFile(isTemplate);
    case toolkit::Answer::Cancel:
        return 1;
    default:
        return 0;
    }
}

/// The workbook that failed is not tried again, unless it is the first.
int CLogoChg::changeFirstFile(bool isTemplate)
{
    m_links.ShowProjectInfo();
    m_links.setHourglass(true);
    const QString folder = logoFolder();
    const QStringList files = logoFiles(folder);
    int cancelled = 0;
    if (!files.isEmpty())
        ChangeLogo(files.front(), folder, mainWindow().DatasheetLogoFile(), isTemplate, cancelled);
    return cancelled;
}

} // namespace ostrand::datasheets
