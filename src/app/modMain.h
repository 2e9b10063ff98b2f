// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::app {

/// Starts the program: the shared objects, the start-up screen, the main window, and then the
/// project of the command line or the start window. Returns with the program alive in the event
/// loop. `commandLine` is the whole tail behind the program's name.
void Main(const QString& commandLine);

/// Releases the shared objects, as the main window's unload does.
void End();

} // namespace ostrand::app
