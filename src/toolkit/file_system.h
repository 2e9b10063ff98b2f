// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/error.h"

#include <QString>

/// File commands with the errors that callers know: 53 (file not found), 58 (file exists already),
/// 61 (disk full), 70 (permission denied), 76 (path not found). Paths may have either separator.
namespace ostrand::toolkit {

namespace fileErrors {
inline constexpr int fileNotFound = 53;
inline constexpr int deviceError = 57;
inline constexpr int fileExists = 58;
inline constexpr int diskFull = 61;
inline constexpr int pastEnd = 62;
inline constexpr int deviceUnavailable = 68;
inline constexpr int permissionDenied = 70;
inline constexpr int pathNotFound = 76;
} // namespace fileErrors

/// True for a file; a folder is none.
bool fileExists(const QString& path);

/// Moves a file; raises 53, 58 when the target exists, 61, 70, 76. A failure leaves it where it
/// was.
void moveFile(const QString& from, const QString& to);

/// Copies a file, over one that is there; raises 53, 61, 70, 76. A failure leaves an old target as
/// it was.
void copyFile(const QString& from, const QString& to);

/// Writes a text as UTF-8, over any file that is there; raises 61, 70, 76. A failure leaves an old
/// file as it was.
void writeText(const QString& path, const QString& text);

/// Deletes a file; a read-only file is not deleted and raises 70.
void deleteFile(const QString& path);

} // namespace ostrand::toolkit
