// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::spreadsheet::libreoffice {

/// Removes the lock that an application of ours has left at a workbook because it was killed, so
/// that the workbook does not open as read-only for ever. A lock of anybody who may still be alive
/// stays.
void removeStaleLock(const QString& workbook);

/// Whether an application says, by a file beside it, that it has the workbook open.
bool isLocked(const QString& workbook);

} // namespace ostrand::spreadsheet::libreoffice
