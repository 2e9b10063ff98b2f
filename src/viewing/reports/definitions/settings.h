// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include "viewing/reports/report_data.h"

#include <QStringList>

/// Ranges, set points and alarm settings of a tag.
namespace ostrand::viewing::reports {

/// The six fields of alarm settings, from the highest to the lowest.
const QStringList& settingFields();

/// On the scale where that is told, else of the process, else of the calibration.
QString rangeOf(const Row& tag);
QString setPointOf(const Row& tag);

bool hasSettings(const Row& tag);
int settingCount(const Row& tag);

/// The setting in the field lies outside the range of the tag, or on the wrong side of its next
/// neighbour. Settings that are no values, or whose units differ, are not compared.
bool isDoubtful(const Row& tag, const QString& field);
bool isSetPointDoubtful(const Row& tag);
/// Any of its settings or its set point is.
bool isDoubtful(const Row& tag);

} // namespace ostrand::viewing::reports
