// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace ostrand::viewing::reports {

/// The order in which people count tags: runs of digits as numbers, letters in any case.
/// FT-2 < FT-10 < FT-10A < FT-11. Negative, 0 or positive as a stands before, with or after b.
int compareNatural(QStringView a, QStringView b);

} // namespace ostrand::viewing::reports
