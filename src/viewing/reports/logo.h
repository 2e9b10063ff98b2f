// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace ostrand::viewing::reports {

/// The picture that a project names as its logo, a relative path beginning at the project's folder;
/// no picture where it cannot be read or is unreasonably large.
QImage readLogo(const QString& stored, const QString& project, QSize mostPixels);

} // namespace ostrand::viewing::reports
