// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <com/sun/star/frame/XDispatchProviderInterception.hpp>
#include <com/sun/star/frame/XDispatchProviderInterceptor.hpp>

namespace ostrand::spreadsheet::libreoffice {

class LoWorkbook;

/// Stands between a workbook's window and the commands that its user gives there, whichever way:
/// by menu, key, tool bar or window manager. Commands to save and to close are brought to the
/// program, which has the last word; commands that would put another document, or a second window,
/// beside the workbook have no effect.
class WindowCommands
{
public:
    explicit WindowCommands(LoWorkbook& workbook);
    ~WindowCommands();
    WindowCommands(const WindowCommands&) = delete;
    WindowCommands& operator=(const WindowCommands&) = delete;

private:
    com::sun::star::uno::Reference<com::sun::star::frame::XDispatchProviderInterception> m_frame;
    com::sun::star::uno::Reference<com::sun::star::frame::XDispatchProviderInterceptor>
        m_interceptor;
};

} // namespace ostrand::spreadsheet::libreoffice
