// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::datasheets {

/// The file name of a tag's datasheet: the tag and ".xls", with separators of paths as hyphens.
QString datasheetNameOf(const QString& tag);

} // namespace ostrand::datasheets
