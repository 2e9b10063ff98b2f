// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::app {

/// The user's folder for files that the program leaves behind; it is made where it is not there.
/// Raises `store::Error` 70 (permission denied), 76 (path not found) and the like.
QString stateFolder();

/// The full path for a file that the program writes beside itself: in the installation folder, or
/// in the user's state folder where that one cannot be written. Raises as `stateFolder` does.
QString writableProgramFile(const QString& name);

} // namespace ostrand::app
