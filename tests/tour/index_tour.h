// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::tour {

class Camera;

/// Starts the program on the sample project, edits in the grid and takes pictures on the way.
void tourIndex(const Camera& camera);

} // namespace ostrand::tour
