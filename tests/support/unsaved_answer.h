// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::tests {

/// The user's answer when the spreadsheet application asks about unsaved changes; with Death it
/// ends without warning instead.
enum class UnsavedAnswer { Save, Discard, Cancel, Death };

} // namespace ostrand::tests
