// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::tour {

class Camera;

/// Chooses instruments of the sample's P&ID database, one of them a double, and looks at the report
/// of its new name.
void tourPopulate(const Camera& camera);

} // namespace ostrand::tour
