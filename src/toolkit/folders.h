// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// Folder commands with the errors that callers know: 58 (exists already), 61 (disk full), 68
/// (device unavailable), 70 (permission denied), 76 (path not found). Paths may have either
/// separator.
namespace ostrand::toolkit {

/// A link to a folder counts as one.
bool folderExists(const QString& path);

/// The names of the folders in a folder, sorted, without hidden ones. Raises 68, 70, 76.
QStringList subfolders(const QString& path);

/// Makes one folder; those above it have to be there. Raises 58, 61, 68, 70, 76.
void createFolder(const QString& path);

/// Deletes a folder with its content, as far as it may be deleted; of a link only the link. Raises
/// 68, 70, 76.
void deleteFolder(const QString& path);

} // namespace ostrand::toolkit
