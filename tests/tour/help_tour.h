// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace ostrand::tour {

class Camera;

/// Opens the manual from the main window, reads and searches in it, and takes pictures.
void tourHelp(const Camera& camera, QWidget& window);

} // namespace ostrand::tour
