// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QSizeF>
#include <QString>

#include <functional>

class QPainter;

namespace ostrand::logos {

/// Writes a picture of so many points on white; `draw` draws in points. The suffix of the file
/// tells the format. False when the file can't be written.
bool writePicture(const QString& file,
                  const QSizeF& size,
                  const std::function<void(QPainter&)>& draw);

} // namespace ostrand::logos
