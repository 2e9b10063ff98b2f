// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace ostrand::spreadsheet::libreoffice {

/// Waits on the main thread until the condition holds, or for so many milliseconds (a negative
/// number is for ever), while windows are painted but take no input: what the user does to
/// them meanwhile is dropped. False when the time is over.
bool waitPatiently(const std::function<bool()>& condition, int timeout = -1);

} // namespace ostrand::spreadsheet::libreoffice
