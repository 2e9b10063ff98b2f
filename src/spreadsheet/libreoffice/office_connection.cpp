// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "spreadsheet/libreoffice/office_connection.h"

#include "spreadsheet/libreoffice/uno_text.h"

#include <com/sun/star/bridge/BridgeFactory.hpp>
#include <com/sun/star/connection/Connector.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <cppuhelper/implbase1.hxx>
#include <csignal>
#include <rtl/bootstrap.hxx>

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using namespace Qt::StringLiterals;

namespace ostrand::spreadsheet::libreoffice {
namespace {

class EndListener final : public cppu::WeakImplHelper1<css::lang::XEventListener>
{
public:
    explicit EndListener(std::function<void()> ended)
        : m_ended(std::move(ended))
    {
    }
    void SAL_CALL disposing(const css::lang::EventObject& /*source*/) override { m_ended(); }

private:
    std::function<void()> m_ended;
};

/// The components of our own side of the line.
const Reference<css::uno::XComponentContext>& localContext()
{
    static const Reference<css::uno::XComponentContext> context = [] {
        // A call to an application that has just ended writes to a closed pipe. It is to fail, and
        // not to end this program.
        std::signal(SIGPIPE, SIG_IGN);
        // Without the office's own types the first call on one of its interfaces crashes.
        rtl::Bootstrap::set("URE_MORE_TYPES",
                            unoText(u"file://" OSTRAND_LIBREOFFICE "/program/types/offapi.rdb"_s));
        return cppu::defaultBootstrap_InitialComponentContext();
    }();
    return context;
}

} // namespace

bool OfficeConnection::open(const QString& pipe)
{
    try {
        const Reference<css::connection::XConnection> connection =
            css::connection::Connector::create(localContext())
                ->connect(unoText(u"pipe,name="_s + pipe));
        m_bridge = css::bridge::BridgeFactory::create(localContext())
                       ->createBridge(rtl::OUString(), "urp", connection, nullptr);
        m_remote.set(m_bridge->getInstance("StarOffice.ComponentContext"), UNO_QUERY_THROW);
        return true;
    } catch (const css::connection::NoConnectException&) {
        return false;
    } catch (const css::lang::DisposedException&) {
        return false;
    }
}

void OfficeConnection::close()
{
    const Reference<css::lang::XComponent> bridge(m_bridge, css::uno::UNO_QUERY);
    m_bridge.clear();
    m_remote.clear();
    if (bridge.is())
        bridge->dispose();
}

void OfficeConnection::onEnd(std::function<void()> ended)
{
    const Reference<css::lang::XComponent> bridge(m_bridge, UNO_QUERY_THROW);
    bridge->addEventListener(new EndListener(std::move(ended)));
}

} // namespace ostrand::spreadsheet::libreoffice
