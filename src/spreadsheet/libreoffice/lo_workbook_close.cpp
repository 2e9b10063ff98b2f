// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// How a document closes: by the program, by its user, or with the application.
#include "spreadsheet/libreoffice/lo_workbook.h"
#include "spreadsheet/libreoffice/number_formats.h"
#include "spreadsheet/libreoffice/save_scope.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/window.h"
#include "spreadsheet/libreoffice/window_commands.h"
#include "spreadsheet/libreoffice/workbook_listener.h"

#include <com/sun/star/util/CloseVetoException.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <utility>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {

void LoWorkbook::Close(SaveChanges changes)
{
    requireOpen();
    const std::shared_ptr<LoWorkbook> self = shared_from_this();
    const EventQueue::Hold hold(*office().events());
    endCellEntry();
    if (raiseBeforeClose(changes) && office().isAlive())
        settle(changes);
}

void LoWorkbook::userCloses()
{
    if (!m_open)
        return;
    endCellEntry();
    if (raiseBeforeClose(SaveChanges::Ask) && office().isAlive())
        settle(SaveChanges::Ask);
}

/// True when the handler has no objection.
bool LoWorkbook::raiseBeforeClose(SaveChanges changes)
{
    struct Scope
    {
        std::optional<SaveChanges>& closing;
        std::optional<SaveChanges> outer;
        ~Scope() { closing = outer; }
    };
    const Scope scope{m_closing, std::exchange(m_closing, changes)};
    bool cancel = false;
    if (m_events.BeforeClose)
        m_events.BeforeClose(cancel);
    return !cancel;
}

bool LoWorkbook::confirmClose()
{
    return settle(m_closing.value_or(SaveChanges::Ask));
}

/// Closes the document; false when its user wants to go on working.
bool LoWorkbook::settle(SaveChanges changes)
{
    if (!m_open)
        return true;
    if (changes == SaveChanges::Ask)
        return closeAsking();
    if (changes == SaveChanges::Yes)
        guarded([&] {
            if (m_modifiable->isModified() || (m_hasChanged && m_storable->isReadonly()))
                store();
        });
    discard();
    return true;
}

/// The application asks, in its own window, on its own thread. Its answer "no" to our closing means
/// that the user pressed Cancel, or Save: it takes a save that went through our hands for none, and
/// does not look whether anything is left to save.
bool LoWorkbook::closeAsking()
{
    // The application may end while it asks; then its thread comes back later than this one.
    const auto agreed = std::make_shared<std::atomic<bool>>(true);
    if (guarded([this] { return m_modifiable->isModified(); })) {
        office().callInOffice(
            [agreed, saves = m_saves, changes = m_modifiable, view = guarded([this] {
                                                                  return controller();
                                                              })] {
                const SaveScope scope(*saves);
                *agreed = view->suspend(true) || !changes->isModified();
            });
    }
    if (*agreed)
        discard();
    return *agreed;
}

void LoWorkbook::discard() noexcept
{
    if (!m_open)
        return;
    bool closed = false;
    office().callBriefly([&] {
        m_listener.reset();
        m_commands.reset();
        closed = tryClose();
    });
    forget();
    // A dialog of the application keeps the document open. Nobody minds it any more.
    if (!closed && office().isAlive() && office().workbooks() == 0)
        office().kill();
}

/// False when it stays open, without its window.
bool LoWorkbook::tryClose() const
{
    try {
        const Reference<css::frame::XFrame> frame = controller()->getFrame();
        if (!frame.is()) // its user got the window closed
            return true;
        if (m_isShown)
            office().noteWindowFillsScreen(fillsScreen(frame));
        try {
            Reference<css::util::XCloseable>(m_document, UNO_QUERY_THROW)->close(true);
            return true;
        } catch (const css::util::CloseVetoException&) {
            hideWindow(frame);
        }
    } catch (const css::uno::Exception&) { // it goes with the application at the latest
    }
    return false;
}

/// From here on nothing is told any more, and no call goes out.
void LoWorkbook::forget()
{
    if (std::exchange(m_open, false))
        office().noteClosed();
    m_listener.reset();
    m_commands.reset();
}

} // namespace ostrand::spreadsheet::libreoffice
