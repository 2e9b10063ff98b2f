// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/workbook_listener.h"

#include "spreadsheet/libreoffice/uno_text.h"

#include <QCoreApplication>
#include <QThread>

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XActivationBroadcaster.hpp>
#include <com/sun/star/sheet/XSheetCellRange.hpp>
#include <com/sun/star/util/XChangesNotifier.hpp>
#include <com/sun/star/util/XModifiable.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <cppuhelper/implbase4.hxx>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// The name of the sheet of the first cells that changed; "" where the event does not tell.
QString changedSheet(const css::util::ChangesEvent& event, ObjectKeeper& keeper)
{
    for (const css::util::ElementChange& change : event.Changes) {
        const Reference<css::sheet::XSheetCellRange> cells = keeper.keep(
            Reference<css::sheet::XSheetCellRange>(change.ReplacedElement, css::uno::UNO_QUERY));
        if (!cells.is())
            continue;
        const Reference<css::container::XNamed> sheet(keeper.keep(cells->getSpreadsheet()),
                                                      css::uno::UNO_QUERY);
        if (sheet.is())
            return qtText(sheet->getName());
    }
    return {};
}

} // namespace

/// What a call of our own sets off arrives on the main thread within that call, and is not the
/// user's doing.
class WorkbookListener::Ears final
    : public cppu::WeakImplHelper4<css::view::XSelectionChangeListener,
                                   css::sheet::XActivationEventListener,
                                   css::util::XChangesListener,
                                   css::util::XModifyListener>
{
public:
    explicit Ears(LoWorkbook& workbook)
        : m_workbook(workbook.weak_from_this()),
          m_events(workbook.office().events()),
          m_keeper(workbook.office().keeper()),
          m_saves(workbook.saves()),
          m_selection(workbook.controller(), UNO_QUERY_THROW),
          m_activation(workbook.controller(), UNO_QUERY_THROW),
          m_changes(workbook.document(), UNO_QUERY_THROW),
          m_modified(workbook.document(), UNO_QUERY_THROW)
    {
    }

    void attach()
    {
        m_selection->addSelectionChangeListener(this);
        m_activation->addActivationEventListener(this);
        m_changes->addChangesListener(this);
        m_modified->addModifyListener(this);
    }
    void detach()
    {
        try {
            m_selection->removeSelectionChangeListener(this);
            m_activation->removeActivationEventListener(this);
            m_changes->removeChangesListener(this);
            m_modified->removeModifyListener(this);
        } catch (const css::uno::Exception&) { // the document is gone
        }
    }

    void SAL_CALL selectionChanged(const css::lang::EventObject& /*event*/) override
    {
        tell([](LoWorkbook& workbook) { workbook.userSelected(); });
    }
    void SAL_CALL activeSpreadsheetChanged(const css::sheet::ActivationEvent& event) override
    {
        m_keeper->keep(event.ActiveSheet);
        tell([](LoWorkbook& workbook) { workbook.userSelected(); });
    }
    void SAL_CALL changesOccurred(const css::util::ChangesEvent& event) override
    {
        tell([sheet = changedSheet(event, *m_keeper)](LoWorkbook& workbook) {
            workbook.userChanged(sheet);
        });
    }
    /// Some changes are told in this way only, without saying where: a fill, or the source of a
    /// cut.
    void SAL_CALL modified(const css::lang::EventObject& /*event*/) override
    {
        if (*m_saves == 0 && m_modified->isModified())
            tell([](LoWorkbook& workbook) { workbook.userChanged({}); });
    }
    void SAL_CALL disposing(const css::lang::EventObject& /*source*/) override {}

private:
    template <typename Event>
    void tell(Event event)
    {
        if (QThread::currentThread() == QCoreApplication::instance()->thread())
            return;
        m_events->post(EventQueue::Kind::News, [weak = m_workbook, event = std::move(event)] {
            if (const std::shared_ptr<LoWorkbook> workbook = weak.lock())
                event(*workbook);
        });
    }

    std::weak_ptr<LoWorkbook> m_workbook;
    std::shared_ptr<EventQueue> m_events;
    std::shared_ptr<ObjectKeeper> m_keeper;
    std::shared_ptr<std::atomic<int>> m_saves;
    Reference<css::view::XSelectionSupplier> m_selection;
    Reference<css::sheet::XActivationBroadcaster> m_activation;
    Reference<css::util::XChangesNotifier> m_changes;
    Reference<css::util::XModifiable> m_modified;
};

WorkbookListener::WorkbookListener(LoWorkbook& workbook)
    : m_ears(new Ears(workbook))
{
    m_ears->attach();
}

WorkbookListener::~WorkbookListener()
{
    m_ears->detach();
}

} // namespace ostrand::spreadsheet::libreoffice
