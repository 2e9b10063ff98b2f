// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace ostrand::store::sql {

/// The stored form of a date literal, given without its number signs: month/day/year or
/// year-month-day, with or without a time of day. A bare time falls on 1899-12-30. Nothing when
/// there is no such date.
std::optional<QString> dateLiteral(QStringView literal);

} // namespace ostrand::store::sql
