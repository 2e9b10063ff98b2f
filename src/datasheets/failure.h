// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"
#include "toolkit/prompts.h"

#include <QString>

namespace ostrand::datasheets {

namespace errors {
inline constexpr int internalError = 51;
inline constexpr int invalidUseOfNull = 94;
inline constexpr int unrecognizedObjectType = 20001;
} // namespace errors

/// The exception being handled, as number and words, whether the database or the spreadsheet
/// application raised it. To be called in a catch block only.
store::Error currentFailure();

/// An exclamation box under a title of its own.
void showFailure(const QString& text, const QString& title);

/// A box in the middle of a long run: the main window gets the focus and the usual pointer, so that
/// the box does not lie behind windows of the spreadsheet application.
toolkit::Answer showOverMainWindow(const toolkit::Box& box);

} // namespace ostrand::datasheets
