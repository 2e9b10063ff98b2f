// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/open_command.h"

#include <QString>

#include <optional>

namespace ostrand::viewing {

/// How the desktop opens a file, given by its full path. The ending of its name tells the MIME
/// type; the user's and the system's lists of associations, and what the programs themselves tell,
/// give the program. Where a type has none, the types that it is a kind of are looked up. Nothing
/// where no installed program opens such files; raises 53 where only a terminal is missing.
std::optional<OpenCommand> desktopCommand(const QString& file);

} // namespace ostrand::viewing
