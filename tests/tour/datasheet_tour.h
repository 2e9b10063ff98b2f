// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::index {
class frmIndex;
} // namespace ostrand::index

namespace ostrand::tour {

class Camera;

/// Chooses a datasheet type for a tag. The first walk goes on: it opens the datasheet in the
/// spreadsheet application, edits a cell there, saves it, and comes back to the index; and it
/// prints all templates. The others have nothing of their own to show there.
void tourDatasheet(const Camera& camera, index::frmIndex& window);

} // namespace ostrand::tour
