// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::toolkit {

/// Folder and name as one path, with the platform's separator.
QString joinPath(const QString& folder, const QString& name);

/// A stored path as the file system takes it: `\\` and `/` both count as separators, so that a
/// project made on another system still finds its files. Stored values stay as they were stored.
QString filePath(const QString& stored);

/// The last part of a path, whichever separators it has.
QString fileTitle(const QString& path);

/// What follows the last point of the file's name, without it; "" for none.
QString fileExtension(const QString& path);

} // namespace ostrand::toolkit
