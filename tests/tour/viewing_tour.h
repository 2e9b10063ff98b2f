// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::index {
class frmIndex;
} // namespace ostrand::index

namespace ostrand::tour {

class Camera;

/// Copies and pastes rows of the index, edits a tag's remarks, and looks at documents; pictures of
/// the menus, windows and messages on the way. It leaves changes in the project.
void tourViewing(const Camera& camera, index::frmIndex& window);

} // namespace ostrand::tour
