// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// What happens when the user changes, saves and closes the open datasheet. The events arrive in
// the middle of calls, also of the handlers' own: saving within a handler raises the save event
// again, closing the close event. The two flags of the session keep that finite.
#include "app/main_window.h"
#include "datasheets/cXlHndlr.h"
#include "datasheets/failure.h"
#include "toolkit/prompts.h"

#include <QScopedValueRollback>

#include <utility>

using namespace Qt::StringLiterals;

namespace ostrand::datasheets {
namespace {

QString updateQuestion()
{
    return QCoreApplication::translate("cXlHndlr",
                                       "You have modified data that belongs to the index.")
           + u"\r\n"_s
           + QCoreApplication::translate("cXlHndlr", "Do you wish to update the index database?");
}

} // namespace

spreadsheet::WorkbookEvents cXlHndlr::events()
{
    return {.BeforeClose = [this](bool& Cancel) { m_wrkBook_BeforeClose(Cancel); },
            .BeforeSave = [this](bool /*SaveAsUI*/, bool& Cancel) { m_wrkBook_BeforeSave(Cancel); },
            .SheetSelectionChange = [this] { m_wrkBook_SheetSelectionChange(); },
            .Lost = [this] { m_wrkBook_Lost(); }};
}

// ---- the current sheet

void cXlHndlr::m_wrkBook_SheetSelectionChange()
{
    try {
        followSheet(openWorkbook()->ActiveSheet());
    } catch (...) {
        m_standingError = currentFailure();
    }
}

/// A failure that stands is that of a selection, after which changes may be those of another sheet
/// than the one held. A type mismatch means that no worksheet was selected, which is no failure.
void cXlHndlr::m_wrkSht_Change()
{
    m_cleanSinceCheck = false;
    const auto standing = std::exchange(m_standingError, std::nullopt);
    if (!standing || standing->number() == spreadsheet::errors::typeMismatch)
        return;
    showFailure(toolkit::formB(tr("Error while editing spreadsheet. "), *standing), tr("Error"));
    setVisible(true);
}

// ---- saving

void cXlHndlr::m_wrkBook_BeforeSave(bool& Cancel)
{
    const QScopedValueRollback handling(m_handling, m_handling + 1);
    if (m_cleanSinceCheck)
        return;
    const Differences found = findDifferences();
    if (!found.any()) {
        m_cleanSinceCheck = true;
        return;
    }
    setVisible(false);
    const toolkit::Box question{.text = updateQuestion(),
                                .icon = toolkit::BoxIcon::None,
                                .buttons = toolkit::BoxButtons::YesNo,
                                .title = tr("Update index database?")};
    const bool update = toolkit::promptHost().messageBox(question) == toolkit::Answer::Yes;
    if (hasEnded()) {
        Cancel = true;
        return;
    }
    if (update) {
        updateDatabase(found);
        m_cleanSinceCheck = true;
        // The save in progress would meet the same failure.
        Cancel = !saveWorkbook();
    } else {
        PopulateXl();
        Cancel = true;
    }
    setVisible(true);
    m_cleanSinceCheck = true;
}

// ---- closing

/// The window stays hidden when the session ends: the user does not see the datasheet again.
void cXlHndlr::m_wrkBook_BeforeClose(bool& Cancel)
{
    const QScopedValueRollback handling(m_handling, m_handling + 1);
    const bool checks = !std::exchange(m_skipCloseCheck, false);
    if ((checks && !settleDifferences()) || !confirmClose()) {
        Cancel = true;
        setVisible(true);
        return;
    }
    endSession();
}

/// False when what the user wants saved could not be saved. An application that ends under the
/// question leaves nothing to settle.
bool cXlHndlr::settleDifferences()
{
    const Differences found = findDifferences();
    if (!found.any())
        return true;
    setVisible(false);
    const bool update = toolkit::askYesNo(updateQuestion());
    if (hasEnded())
        return true;
    if (!update) {
        closeUnsaved();
        return true;
    }
    updateDatabase(found);
    m_cleanSinceCheck = true;
    return saveWorkbook();
}

/// The close event that this raises ends the session.
void cXlHndlr::closeUnsaved()
{
    m_skipCloseCheck = true;
    try {
        openWorkbook()->Close(spreadsheet::SaveChanges::No);
    } catch (...) {
        const store::Error error = currentFailure();
        toolkit::showFailure(tr("Error while closing. ") + QString::number(error.number()) + u" "_s
                             + error.description());
    }
    m_skipCloseCheck = false;
}

/// What is unsaved beside the mapped cells is the application's own question. False when the user
/// goes on working there.
bool cXlHndlr::confirmClose()
{
    const auto workbook = m_wrkBook;
    if (!workbook)
        return true;
    try {
        return workbook->confirmClose();
    } catch (...) {
        const store::Error error = currentFailure();
        if (error.number() == spreadsheet::errors::serverGone) {
            m_wrkBook_Lost();
            return true;
        }
        toolkit::showFailure(tr("Error while closing. ") + QString::number(error.number()) + u" "_s
                             + error.description());
        return false;
    }
}

bool cXlHndlr::saveWorkbook()
{
    try {
        openWorkbook()->Save();
        return true;
    } catch (...) {
        toolkit::showFailure(toolkit::formA(
            tr("Error while saving datasheet ") + filename() + u"."_s, currentFailure()));
        return false;
    }
}

// ---- the application has gone

/// The application may end under a question of ours. That is told at once, and nothing else is done
/// in vain.
bool cXlHndlr::hasEnded()
{
    if (m_xlApp && !m_xlApp->isRunning())
        m_wrkBook_Lost();
    return !XlAlreadyOpen();
}

/// The workbook is forgotten first: the message may let a handler go on that was under way.
void cXlHndlr::m_wrkBook_Lost()
{
    if (!XlAlreadyOpen())
        return;
    forgetWorkbook();
    toolkit::showFailure(tr("The spreadsheet application has ended unexpectedly. Changes of "
                            "datasheet ")
                         + m_openedName + tr(" since its last save are lost."));
    giveBackMainWindow();
}

// ---- both moments

cXlHndlr::Differences cXlHndlr::findDifferences()
{
    Differences found;
    found.index = DataDifIndexInfo();
    found.documents = DataDifXdocRef();
    return found;
}

void cXlHndlr::updateDatabase(const Differences& found)
{
    if (found.index)
        UpdateDbIndex();
    if (found.documents)
        StoreData();
}

} // namespace ostrand::datasheets
