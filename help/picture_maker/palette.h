// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace ostrand::help {

/// The picture in at most 256 colours, which are chosen for it.
QImage withPalette(const QImage& picture);

} // namespace ostrand::help
