// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::pid {

/// The lines with a number in brackets that the last population inserted, and the same without
/// their brackets, in the same order; behind each entry stands a comma. They go from the window
/// that inserts to the one that reports.
extern QString g_strPopulateFunction;
extern QString g_strPopulateTag;

void clearPopulateReport();
/// Adds a line that was inserted, if it ends in a closing bracket.
void addToPopulateReport(const QString& line);

/// "... is renamed as ..." for each entry, each with CR LF behind it. An entry with a comma in it
/// counts as two.
QString populateReport();

} // namespace ostrand::pid
