// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::tour {

class Camera;

/// Opens the windows of the project's attributes on the project that is open, and takes pictures.
void tourProject(const Camera& camera);

} // namespace ostrand::tour
