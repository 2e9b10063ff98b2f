// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::toolkit {
class DataGrid;
} // namespace ostrand::toolkit

namespace ostrand::app {

/// Gives the columns of a window's grid the captions that the project keeps for them in
/// `FormColumnNames`; a column without a row there keeps its caption. Failures are shown.
void SetColumnNames(toolkit::DataGrid& grid, const QString& formName);

} // namespace ostrand::app
