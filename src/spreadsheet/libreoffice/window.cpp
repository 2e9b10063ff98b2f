// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/window.h"

#include "spreadsheet/libreoffice/properties.h"

#include <com/sun/star/awt/XTopWindow2.hpp>
#include <com/sun/star/frame/XLayoutManager.hpp>
#include <com/sun/star/frame/XLayoutManagerEventBroadcaster.hpp>
#include <cppuhelper/implbase1.hxx>
#include <utility>

namespace css = com::sun::star;
using css::uno::Reference;

namespace ostrand::spreadsheet::libreoffice {
namespace {

class StatusBarBan final : public cppu::WeakImplHelper1<css::frame::XLayoutManagerListener>
{
public:
    explicit StatusBarBan(const Reference<css::frame::XLayoutManager>& layout)
        : m_layout(layout)
    {
    }
    void SAL_CALL layoutEvent(const css::lang::EventObject& /*source*/,
                              sal_Int16 /*event*/,
                              const css::uno::Any& /*info*/) override
    {
        if (m_layout.is() && m_layout->isElementVisible(statusBar))
            m_layout->hideElement(statusBar);
    }
    void SAL_CALL disposing(const css::lang::EventObject& /*source*/) override { m_layout.clear(); }

private:
    const rtl::OUString statusBar = "private:resource/statusbar/statusbar";
    Reference<css::frame::XLayoutManager> m_layout;
};

} // namespace

void banStatusBar(const Reference<css::frame::XFrame>& frame)
{
    const auto layout = property<Reference<css::frame::XLayoutManager>>(
        {frame, css::uno::UNO_QUERY_THROW}, "LayoutManager");
    const Reference<css::frame::XLayoutManagerEventBroadcaster> events(layout, css::uno::UNO_QUERY);
    if (events.is())
        events->addLayoutManagerEventListener(new StatusBarBan(layout));
}

void refuseInput(const Reference<css::frame::XFrame>& frame)
{
    frame->getContainerWindow()->setEnable(false);
    frame->getComponentWindow()->setEnable(false);
}

void showWindow(const Reference<css::frame::XFrame>& frame, std::optional<bool> fillsScreen)
{
    const Reference<css::awt::XWindow> window = frame->getContainerWindow();
    window->setVisible(true);
    const Reference<css::awt::XTopWindow2> top(window, css::uno::UNO_QUERY);
    if (top.is() && fillsScreen)
        top->setIsMaximized(*fillsScreen);
}

void bringToFront(const Reference<css::frame::XFrame>& frame)
{
    const Reference<css::awt::XTopWindow> top(frame->getContainerWindow(), css::uno::UNO_QUERY);
    if (top.is())
        top->toFront();
}

void hideWindow(const Reference<css::frame::XFrame>& frame)
{
    frame->getContainerWindow()->setVisible(false);
}

bool fillsScreen(const Reference<css::frame::XFrame>& frame)
{
    const Reference<css::awt::XTopWindow2> top(frame->getContainerWindow(), css::uno::UNO_QUERY);
    return top.is() && top->getIsMaximized();
}

} // namespace ostrand::spreadsheet::libreoffice
