// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace ostrand::viewing {

enum class Glyph { Print, SavePdf, First, Previous, Next, Last, ZoomOut, ZoomIn, Up, Down };

/// A sign for a button, drawn as lines in the colour of button texts, sharp at every size.
QIcon viewerIcon(Glyph glyph);

} // namespace ostrand::viewing
