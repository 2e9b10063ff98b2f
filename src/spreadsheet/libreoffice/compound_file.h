// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QIODevice>

namespace ostrand::spreadsheet::libreoffice {

/// True when the file is a compound file, the container of the binary workbook format.
bool isCompoundFile(QIODevice& file);

/// True when a compound file has all the sectors that its allocation table counts. What the
/// application loads from a file that was cut off is a part of the workbook, and it does not say
/// so.
bool isCompleteCompoundFile(QIODevice& file);

/// True when a compound file holds a workbook, and not a letter or another program's work. From
/// these the application makes an empty workbook.
bool holdsWorkbook(QIODevice& file);

} // namespace ostrand::spreadsheet::libreoffice
