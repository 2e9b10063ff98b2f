// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <com/sun/star/bridge/XBridge.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <functional>

namespace ostrand::spreadsheet::libreoffice {

/// The line to a running application.
class OfficeConnection
{
public:
    /// Connects to the pipe; false when nobody listens there (yet). May wait long for an
    /// application that is still starting. Safe on any thread.
    bool open(const QString& pipe);
    /// Cuts the line.
    void close();

    /// Calls back when the line is cut, from whatever side, on any thread. Calls that wait for an
    /// answer fail at the same moment.
    void onEnd(std::function<void()> ended);

    /// The application's component context.
    const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& remote() const
    {
        return m_remote;
    }

private:
    com::sun::star::uno::Reference<com::sun::star::bridge::XBridge> m_bridge;
    com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> m_remote;
};

} // namespace ostrand::spreadsheet::libreoffice
