// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/data_grid.h"

#include <array>
#include <vector>

/// The columns of `GridIndex` by number. Handlers address them so, whatever order the user gave
/// them on the screen.
namespace ostrand::index {

namespace column {
inline constexpr int tag = 0;
inline constexpr int pid = 9;
inline constexpr int loopDwg = 10;
inline constexpr int requisition = 11;
inline constexpr int purchaseOrder = 12;
inline constexpr int datasheet = 13;
inline constexpr int datasheetPath = 14;
inline constexpr int datasheetFileName = 15;
inline constexpr int remarks = 33;
inline constexpr int firstDocument = pid;
inline constexpr int lastDocument = datasheet;
} // namespace column

constexpr bool isDocumentColumn(int number)
{
    return number >= column::firstDocument && number <= column::lastDocument;
}

/// All 34 columns in order.
std::vector<toolkit::GridColumn> indexColumns();

/// One of the five document kinds that have a column in the grid.
struct DocumentKind
{
    const char16_t* literal; ///< the kind as it stands in the database
    int column;
    const char16_t* dropDown;    ///< name of the list on the column
    const char16_t* dataControl; ///< name of the data control that feeds it
    const char16_t* recordSource;
    const char16_t* condition;  ///< of the statement that removes the kind's cross references
    const char16_t* insertTail; ///< of the statement that writes one
};

/// In the order in which every procedure treats them.
const std::array<DocumentKind, 5>& documentKinds();

} // namespace ostrand::index
