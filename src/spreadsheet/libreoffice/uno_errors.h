// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "spreadsheet/error.h"
#include "spreadsheet/libreoffice/call_watch.h"

#include <utility>

namespace ostrand::spreadsheet::libreoffice {

/// Turns the exception of the interfaces that is being handled into an `Error`, and raises that.
/// `number` is that of failures which say no more than their words.
[[noreturn]] void raiseAsError(int number = errors::applicationError);

/// Runs calls to the application; whatever they raise comes out as an `Error`.
template <typename Calls>
auto guarded(Calls&& calls, int number = errors::applicationError) -> decltype(calls())
{
    const CallWatch::Call call;
    try {
        return std::forward<Calls>(calls)();
    } catch (...) {
        raiseAsError(number);
    }
}

} // namespace ostrand::spreadsheet::libreoffice
