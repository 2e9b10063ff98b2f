// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/data_control.h"

#include <optional>

namespace ostrand::toolkit {

/// Tells the error that keeps a record from being written or deleted, if there is one, as the
/// validation of every data control does.
void tellRecordFailure(DataControl::Action action, const std::optional<store::Error>& pending);

} // namespace ostrand::toolkit
