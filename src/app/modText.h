// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::app {

/// Splits a path at its last separator, `\\` or `/`, into folder and file name. False with both
/// "" when the separator is the first or the last character; a path with none is an error, which
/// is shown.
bool SeparateFileDir(const QString& path, QString& dir, QString& file);

} // namespace ostrand::app
