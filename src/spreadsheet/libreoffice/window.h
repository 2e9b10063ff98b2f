// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <com/sun/star/frame/XFrame.hpp>
#include <optional>

namespace ostrand::spreadsheet::libreoffice {

/// Keeps the status bar away for good: it has an icon that saves on a click and tells nobody. The
/// window makes it when it shows for the first time.
void banStatusBar(const com::sun::star::uno::Reference<com::sun::star::frame::XFrame>& frame);

/// Has a document's window drop all that its user does there, closing it included.
void refuseInput(const com::sun::star::uno::Reference<com::sun::star::frame::XFrame>& frame);

/// Shows a document's window. The window manager forgets of a hidden window whether it
/// filled the screen: `fillsScreen` says so, and nothing leaves its size alone.
void showWindow(const com::sun::star::uno::Reference<com::sun::star::frame::XFrame>& frame,
                std::optional<bool> fillsScreen);
void bringToFront(const com::sun::star::uno::Reference<com::sun::star::frame::XFrame>& frame);
void hideWindow(const com::sun::star::uno::Reference<com::sun::star::frame::XFrame>& frame);
bool fillsScreen(const com::sun::star::uno::Reference<com::sun::star::frame::XFrame>& frame);

} // namespace ostrand::spreadsheet::libreoffice
