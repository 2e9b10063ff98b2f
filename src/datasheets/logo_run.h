// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace ostrand::datasheets {

/// Replace the logo in all datasheets, or in all templates, of the project's folder, and tell when
/// it is done. `ShowProjectInfo` has the user edit the project's attributes.
void mnuSetupDatasheets(const std::function<void()>& ShowProjectInfo);
void mnuSetupTemplates(const std::function<void()>& ShowProjectInfo);

} // namespace ostrand::datasheets
