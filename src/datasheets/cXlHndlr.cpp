// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// The life of the datasheet session. What its events do stands in session_events.cpp, what moves
// between workbook and database in population.cpp, differences.cpp and write_back.cpp.
#include "datasheets/cXlHndlr.h"

#include "app/main_window.h"
#include "app/modCheckImpExp.h"
#include "app/state.h"
#include "datasheets/failure.h"
#include "spreadsheet/host.h"
#include "toolkit/data_control.h"
#include "toolkit/paths.h"
#include "toolkit/prompts.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;
using ostrand::app::mainWindow;
using ostrand::spreadsheet::SaveChanges;

namespace ostrand::datasheets {

std::unique_ptr<cXlHndlr> g_objXlHndlr;

namespace {

[[noreturn]] void raiseNotSet()
{
    throw store::Error(store::errors::objectNotSet, u"Object variable not set"_s);
}

QString numberAndWords(const store::Error& error)
{
    return QString::number(error.number()) + u" : "_s + error.description();
}

/// A template is written back by its use, so that it takes on the application's present form. One
/// that cannot be written is as good as before.
void writeBack(spreadsheet::Workbook& workbook) noexcept
{
    for (const auto changes : {SaveChanges::Yes, SaveChanges::No}) {
        try {
            workbook.Close(changes);
            return;
        } catch (const std::exception&) {
            continue;
        }
    }
}

} // namespace

cXlHndlr& xlHndlr()
{
    if (!g_objXlHndlr)
        raiseNotSet();
    return *g_objXlHndlr;
}

cXlHndlr::~cXlHndlr()
{
    Class_Terminate();
}

// ---- templates

/// Uses an application of its own where no session has one; a session's stays as it is.
void cXlHndlr::useTemplate(const QString& templateName,
                           const std::function<void(spreadsheet::Workbook&)>& action)
{
    const auto application = m_xlApp ? m_xlApp : spreadsheet::CreateObject();
    const auto workbook = application->Open(
        toolkit::filePath(toolkit::joinPath(mainWindow().FolderTemplates(), templateName)));
    const auto close = qScopeGuard([&workbook] { writeBack(*workbook); });
    action(*workbook);
}

bool cXlHndlr::CkTemplateExists(const QString& templateName)
{
    try {
        useTemplate(templateName, [](spreadsheet::Workbook&) {});
        return true;
    } catch (...) {
        const store::Error error = currentFailure();
        if (error.number() == spreadsheet::errors::applicationError) {
            toolkit::promptHost().messageBox(
                {.text = tr("Brevane Datasheet Excel Template ") + templateName
                         + tr(" does not exist in template directory."),
                 .icon = toolkit::BoxIcon::None});
        } else {
            toolkit::showFailure(tr("Error while checking for template existance. ") + templateName
                                 + u"."_s + numberAndWords(error));
        }
        return false;
    }
}

bool cXlHndlr::CopySprSht(const QString& templateName, const QString& datasheet)
{
    try {
        useTemplate(templateName, [&datasheet](spreadsheet::Workbook& workbook) {
            workbook.SaveCopyAs(toolkit::filePath(datasheet));
        });
        return true;
    } catch (...) {
        toolkit::showFailure(tr("Error while copying template to datasheet ") + templateName
                             + u"."_s + numberAndWords(currentFailure()));
        return false;
    }
}

// ---- opening

bool cXlHndlr::OpenXl(const QString& path)
{
    if (XlAlreadyOpen())
        return false;
    try {
        openSession(path);
    } catch (...) {
        openFailed(path, currentFailure());
    }
    return false;
}

void cXlHndlr::openSession(const QString& path)
{
    m_xlApp = spreadsheet::CreateObject();
    m_wrkBook = m_xlApp->Open(toolkit::filePath(path));
    m_openedName = m_wrkBook->Name();
    m_standingError.reset();
    m_wrkBook->subscribe(events());
    followSheet(m_wrkBook->Worksheets(1));
    m_wrkBook->Application().setVisible(true);
    PopulateXl();
    // While a message of the population stood, the datasheet may have been closed already: nothing
    // would give the main window back then.
    if (m_wrkBook)
        takeMainWindow();
}

void cXlHndlr::openFailed(const QString& path, const store::Error& error)
{
    forgetWorkbook();
    if (error.number() != spreadsheet::errors::applicationError) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while opening Excel Spreadsheet ") + path + u"."_s, error));
        return;
    }
    const bool locate = toolkit::askYesNo(
        tr("Error while trying to open file ") + path
        + tr(". File either doesn't exist or has been moved.") + u"\r\n\r\n"_s
        + tr("Do you wish to locate datasheet?") + u"\r\n\r\n"_s
        + tr("To create a new datasheet delete datasheet file name and datasheet file path from "
             "tag record in the index."));
    if (locate && app::g_frmIndex)
        app::g_frmIndex->FindDatasheet();
}

void cXlHndlr::takeMainWindow()
{
    app::MainWindow& window = mainWindow();
    window.ableFileMenu(false);
    window.AbleForm(false);
    app::g_blnPidLinked = false;
    window.ableButton(false);
}

// ---- the workbook held

std::shared_ptr<spreadsheet::Workbook> cXlHndlr::openWorkbook() const
{
    if (!m_wrkBook)
        raiseNotSet();
    return m_wrkBook;
}

QString cXlHndlr::filename() const
{
    const auto workbook = m_wrkBook;
    if (!workbook)
        return {};
    try {
        return workbook->Name();
    } catch (const spreadsheet::Error&) {
        return m_openedName;
    }
}

QString cXlHndlr::DatasheetType() const
{
    const auto workbook = m_wrkBook;
    if (!workbook)
        return {};
    try {
        return workbook->CustomDocumentProperty(u"DatasheetType"_s);
    } catch (...) {
        toolkit::showFailure(
            toolkit::formA(tr("Error while getting datasheet type. "), currentFailure()));
        return {};
    }
}

QString cXlHndlr::WorksheetName() const
{
    const auto sheet = m_wrkSht;
    if (!sheet)
        raiseNotSet();
    return sheet->Name();
}

/// A window that cannot be hidden lies in front of a prompt at worst.
void cXlHndlr::setVisible(bool visible)
{
    const auto application = m_xlApp;
    if (!application)
        return;
    try {
        application->setVisible(visible);
    } catch (const spreadsheet::Error&) {
        return;
    }
}

/// Changes are heard of on the current sheet only.
void cXlHndlr::followSheet(std::shared_ptr<spreadsheet::Worksheet> sheet)
{
    if (sheet == m_wrkSht)
        return;
    if (m_wrkSht)
        m_wrkSht->subscribe({});
    m_wrkSht = std::move(sheet);
    if (m_wrkSht)
        m_wrkSht->subscribe([this] { m_wrkSht_Change(); });
}

// ---- the end of a session

void cXlHndlr::forgetWorkbook()
{
    m_wrkSht.reset();
    m_wrkBook.reset();
    m_xlApp.reset();
}

void cXlHndlr::giveBackMainWindow()
{
    if (!app::g_frmIndex)
        return;
    app::MainWindow& window = *app::g_frmIndex;
    window.ableFileMenu(true);
    window.AbleForm(true);
    app::CheckImpExp();
    window.ableButton(app::g_blnPidLinked);
    RefreshIndexDb();
}

void cXlHndlr::endSession()
{
    forgetWorkbook();
    giveBackMainWindow();
}

void cXlHndlr::RefreshIndexDb()
{
    try {
        app::MainWindow& window = mainWindow();
        const QString tag = window.ActiveTag();
        window.dbIndex().Refresh();
        window.dbIndex().Recordset().FindFirst(u"[Tag] = '"_s + tag + u"'"_s);
    } catch (const store::Error& error) {
        toolkit::showFailure(toolkit::formB(tr("Error while refreshing index database "), error));
    }
}

bool cXlHndlr::CloseOpenDatasheet()
{
    const auto workbook = m_wrkBook;
    if (!workbook)
        return true;
    // The user is being asked about it already.
    if (m_handling > 0)
        return false;
    try {
        workbook->Close(SaveChanges::Ask);
        return !XlAlreadyOpen();
    } catch (...) {
        const store::Error error = currentFailure();
        if (error.number() == spreadsheet::errors::serverGone) {
            m_wrkBook_Lost();
            return true;
        }
        toolkit::showFailure(tr("Error while closing. ") + QString::number(error.number()) + u" "_s
                             + error.description());
        // No later attempt would reach the workbook either.
        endSession();
        return true;
    }
}

void cXlHndlr::Class_Terminate()
{
    CloseOpenDatasheet();
    forgetWorkbook();
}

} // namespace ostrand::datasheets
