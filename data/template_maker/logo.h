// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::template_maker {

/// The room for the logo in the title block, in points.
inline constexpr double logoBoxWidth = 200;
inline constexpr double logoBoxHeight = 40;

/// Draws the neutral logo that stands until a project has its own, and writes it as a picture file.
/// False when the file can't be written.
bool writeLogo(const QString& file);

} // namespace ostrand::template_maker
