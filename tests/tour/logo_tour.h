// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ostrand::index {
class frmIndex;
} // namespace ostrand::index

namespace ostrand::tour {

class Camera;

/// Replaces the logo in the datasheets of the project, once asked for a picture that is missing,
/// with a datasheet before and after it. Only the first walk does so, the others see the question.
void tourLogo(const Camera& camera, index::frmIndex& window);

} // namespace ostrand::tour
