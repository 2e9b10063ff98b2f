// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

namespace ostrand::store {

/// The character that stands for a character and its other case, by the frozen folding table.
char32_t foldCase(char32_t character);

/// A text folded character by character; its length in UTF-16 units stays.
QString foldCase(QStringView text);

} // namespace ostrand::store
