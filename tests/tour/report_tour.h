// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::index {
class frmIndex;
} // namespace ostrand::index

namespace ostrand::tour {

class Camera;

/// Looks at the four reports, and leaves them as PDF beside the pictures.
void tourReports(const Camera& camera, index::frmIndex& window);

} // namespace ostrand::tour
