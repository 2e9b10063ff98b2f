// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
//
// A document's window: showing and hiding it, and what its user does there.
#include "spreadsheet/libreoffice/lo_workbook.h"
#include "spreadsheet/libreoffice/lo_worksheet.h"
#include "spreadsheet/libreoffice/number_formats.h"
#include "spreadsheet/libreoffice/uno_errors.h"
#include "spreadsheet/libreoffice/window.h"
#include "spreadsheet/libreoffice/window_commands.h"
#include "spreadsheet/libreoffice/workbook_listener.h"

#include <algorithm>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <utility>

namespace css = com::sun::star;
using css::uno::Reference;

namespace ostrand::spreadsheet::libreoffice {

/// The first time it waits until the main thread comes to rest: what the program does with the
/// workbook until then would compete with the painting of the new window, and takes a third of the
/// time while there is none. A headless application has nothing to show.
void LoWorkbook::setVisible(bool visible)
{
    if (!m_open || office().settings().headless)
        return;
    m_showPending = visible && !m_hasShown;
    if (m_showPending) {
        whenAtRest([](LoWorkbook& workbook) {
            if (std::exchange(workbook.m_showPending, false))
                workbook.show(true);
        });
        return;
    }
    endWriting();
    guarded([&] { show(visible); });
}

void LoWorkbook::show(bool visible)
{
    const Reference<css::frame::XFrame> frame = controller()->getFrame();
    if (!visible) {
        if (std::exchange(m_isShown, false))
            office().noteWindowFillsScreen(fillsScreen(frame));
        hideWindow(frame);
        return;
    }
    if (!std::exchange(m_isShown, true))
        showOnScreen(frame);
    if (!std::exchange(m_hasShown, true))
        banStatusBar(frame);
}

/// Where input is refused, that holds before the window shows, and once more for the parts that it
/// makes as it does.
void LoWorkbook::showOnScreen(const Reference<css::frame::XFrame>& frame) const
{
    if (!takesInput())
        refuseInput(frame);
    showWindow(frame, office().windowFillsScreen());
    if (takesInput())
        bringToFront(frame);
    else
        refuseInput(frame);
}

/// Runs an action on an open workbook when the main thread comes to rest. A failure means that the
/// application has ended, which is told in its own way.
void LoWorkbook::whenAtRest(const std::function<void(LoWorkbook&)>& action)
{
    QMetaObject::invokeMethod(
        office().events().get(),
        [weak = weak_from_this(), action] {
            const std::shared_ptr<LoWorkbook> workbook = weak.lock();
            if (!workbook || !workbook->m_open)
                return;
            try {
                guarded([&] { action(*workbook); });
            } catch (const Error&) {
                return;
            }
        },
        Qt::QueuedConnection);
}

/// While the program writes, the window need not follow each cell. That ends when the main thread
/// comes to rest; what the program has written is then no step that its user could undo.
void LoWorkbook::beginWriting()
{
    if (std::exchange(m_writing, true))
        return;
    guarded([this] { m_model->lockControllers(); });
    whenAtRest([](LoWorkbook& workbook) { workbook.endWriting(); });
}

void LoWorkbook::endWriting() noexcept
{
    if (!std::exchange(m_writing, false) || !m_open)
        return;
    try {
        guarded([this] {
            m_undo->clear();
            m_model->unlockControllers();
        });
    } catch (const Error&) { // the application has ended
    }
}

void LoWorkbook::subscribe(WorkbookEvents events)
{
    requireOpen();
    m_events = std::move(events);
    if (m_listener)
        return;
    guarded([&] {
        m_commands = std::make_unique<WindowCommands>(*this);
        m_listener = std::make_unique<WorkbookListener>(*this);
    });
    office().onEnd(weak_from_this(), [this] {
        const std::shared_ptr<LoWorkbook> self = shared_from_this();
        forget();
        if (m_events.Lost)
            m_events.Lost();
    });
}

void LoWorkbook::addSubscriber(LoWorksheet* sheet)
{
    m_subscribers.push_back(sheet);
}

void LoWorkbook::removeSubscriber(const LoWorksheet* sheet)
{
    std::erase(m_subscribers, sheet);
}

void LoWorkbook::noteChange(const QString& sheet)
{
    m_hasChanged = true;
    const std::vector<LoWorksheet*> subscribers = m_subscribers;
    for (LoWorksheet* subscriber : subscribers) {
        // A subscriber may go while another is told.
        if (std::find(m_subscribers.begin(), m_subscribers.end(), subscriber)
            == m_subscribers.end())
            continue;
        if (sheet.isEmpty() || subscriber->cachedName() == sheet)
            subscriber->raiseChange();
    }
}

void LoWorkbook::userChanged(const QString& sheet)
{
    // The user may have renamed the sheet since.
    for (LoWorksheet* subscriber : m_subscribers)
        subscriber->refreshName();
    noteChange(sheet);
}

void LoWorkbook::userSelected() const
{
    if (m_open && m_events.SheetSelectionChange)
        m_events.SheetSelectionChange();
}

/// What the user was typing into a cell when he gave a command belongs to the cell: the handlers
/// have to see it, and to hear of the change first. Any command ends such an entry; this one does
/// nothing else.
void LoWorkbook::endCellEntry()
{
    endWriting();
    if (!m_listener || !m_hasShown)
        return;
    const Reference<css::frame::XDispatchProvider> window(
        guarded([this] { return controller()->getFrame(); }), css::uno::UNO_QUERY);
    office().callInOffice([window, context = office().context()] {
        css::frame::DispatchHelper::create(context)->executeDispatch(
            window, ".uno:AcceptFormula", {}, 0, {});
    });
    office().events()->handleNews();
}

void LoWorkbook::userSaves(bool asUi, const std::function<void()>& passOn)
{
    if (!m_open)
        return;
    endCellEntry();
    bool cancel = false;
    if (m_events.BeforeSave)
        m_events.BeforeSave(asUi, cancel);
    if (!cancel && m_open)
        passOn();
}

} // namespace ostrand::spreadsheet::libreoffice
