// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <com/sun/star/task/XInteractionHandler.hpp>

namespace ostrand::spreadsheet::libreoffice {

/// Answers every question of the application with "abort", so that a call of ours fails instead of
/// waiting behind a window that may be hidden.
com::sun::star::uno::Reference<com::sun::star::task::XInteractionHandler> abortingInteraction();

} // namespace ostrand::spreadsheet::libreoffice
