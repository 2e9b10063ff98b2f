// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "store/value.h"

#include <QDateTime>

#include <optional>

namespace ostrand::store {

/// The date and time that a value stands for: a date text, or a number of days since 1899-12-30.
std::optional<QDateTime> momentOf(const Value& value);

/// The date that a text value stands for; a number is none here.
std::optional<QDateTime> momentOfText(const QString& text);

} // namespace ostrand::store
