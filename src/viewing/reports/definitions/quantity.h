// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace ostrand::viewing::reports {

/// A value with what it is measured in, as engineers type it: "85 bar(g)", "1,2e+04 kg/h",
/// "95 % rising".
struct Quantity
{
    double value;
    QString unit; ///< in a form in which equal units are equal texts; "" where none was typed
};

/// A range from its lower to its upper end.
struct Span
{
    double low;
    double high;
    QString unit;
};

/// Nothing for a text that is no value or that could be read in two ways, as "1,250" can.
std::optional<Quantity> quantityOf(QStringView text);

/// The range of a text such as "0 to 100 bar(g)", "-20...80 °C" or "0-100 %", whichever end was
/// typed first. Nothing for any other text.
std::optional<Span> spanOf(QStringView text);

/// Values can be compared when they have the same unit; one typed without is taken to be in the
/// other's.
bool isSameUnit(const QString& one, const QString& other);

} // namespace ostrand::viewing::reports
