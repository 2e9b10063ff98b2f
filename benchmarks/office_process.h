// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ostrand::bench {

/// A process of the spreadsheet application of its own that loads a file and stores it in a folder
/// in another format ("xls"). Its profile is a folder that it makes when it is not there. Ends the
/// program where that fails.
void convertInProcess(const QString& profile,
                      const QString& format,
                      const QString& folder,
                      const QString& file);

} // namespace ostrand::bench
