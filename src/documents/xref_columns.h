// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/data_grid.h"

#include <vector>

/// The columns of `GridXref` by number.
namespace ostrand::documents {

namespace xref {
inline constexpr int tag = 0;
inline constexpr int docNo = 1;
inline constexpr int title = 2;
inline constexpr int docType = 3;
inline constexpr int path = 4;
inline constexpr int filename = 5;
inline constexpr int context = 6;
} // namespace xref

/// All columns in order.
std::vector<toolkit::GridColumn> xrefColumns();

} // namespace ostrand::documents
