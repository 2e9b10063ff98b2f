// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/grid_lines.h"

#include <atomic>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/util/URLTransformer.hpp>
#include <cppuhelper/implbase1.hxx>
#include <rtl/ref.hxx>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace ostrand::spreadsheet::libreoffice {
namespace {

/// Hears the state of a command, at once when it is added.
class StateListener final : public cppu::WeakImplHelper1<css::frame::XStatusListener>
{
public:
    bool isOn() const { return m_on; }

    void SAL_CALL statusChanged(const css::frame::FeatureStateEvent& event) override
    {
        bool on = false;
        if (event.State >>= on)
            m_on = on;
    }
    void SAL_CALL disposing(const css::lang::EventObject& /*source*/) override {}

private:
    std::atomic<bool> m_on = false;
};

/// The application has a command that changes the lines over, of the sheet in front.
class GridCommand
{
public:
    explicit GridCommand(LoWorksheet& sheet)
        : m_view(sheet.workbook().controller(), UNO_QUERY_THROW),
          m_front(m_view->getActiveSheet())
    {
        m_view->setActiveSheet(sheet.sheet());
        m_url.Complete = ".uno:ToggleSheetGrid";
        css::util::URLTransformer::create(sheet.workbook().office().context())->parseStrict(m_url);
        m_dispatch = Reference<css::frame::XDispatchProvider>(
                         sheet.workbook().controller()->getFrame(), UNO_QUERY_THROW)
                         ->queryDispatch(m_url, {}, 0);
    }

    bool isOn() const
    {
        const rtl::Reference<StateListener> listener(new StateListener);
        const Reference<css::frame::XStatusListener> face(listener.get());
        m_dispatch->addStatusListener(face, m_url);
        m_dispatch->removeStatusListener(face, m_url);
        return listener->isOn();
    }
    void changeOver() const { m_dispatch->dispatch(m_url, {}); }
    /// Brings the sheet back to the front that was there.
    void leave() const { m_view->setActiveSheet(m_front); }

private:
    Reference<css::sheet::XSpreadsheetView> m_view;
    Reference<css::sheet::XSpreadsheet> m_front;
    Reference<css::frame::XDispatch> m_dispatch;
    css::util::URL m_url;
};

} // namespace

bool showsGridLines(LoWorksheet& sheet)
{
    const GridCommand command(sheet);
    const bool shown = command.isOn();
    command.leave();
    return shown;
}

void showGridLines(LoWorksheet& sheet, bool shown)
{
    const GridCommand command(sheet);
    if (command.isOn() != shown)
        command.changeOver();
    command.leave();
}

} // namespace ostrand::spreadsheet::libreoffice
