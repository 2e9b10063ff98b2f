// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::index {
class frmIndex;
} // namespace ostrand::index

namespace ostrand::tour {

class Camera;

/// Makes datasheets for the instruments of a unit, imports and exports them, and leaves both logs
/// beside the pictures. Only the first walk does so.
void tourLink(const Camera& camera, index::frmIndex& window);

} // namespace ostrand::tour
