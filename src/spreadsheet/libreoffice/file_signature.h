// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::spreadsheet::libreoffice {

/// Looks at a file before the application does, as that takes any bytes for a text. Raises 1004
/// when it is not there, 70 when it can't be read, and 321 when it can be no workbook.
void checkWorkbookFile(const QString& path);

} // namespace ostrand::spreadsheet::libreoffice
