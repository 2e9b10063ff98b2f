// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::store {

/// A text as it stands between the apostrophes of a statement: its own are doubled.
inline QString quoted(const QString& text)
{
    return QString(text).replace(QStringLiteral("'"), QStringLiteral("''"));
}

} // namespace ostrand::store
