// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// The workbooks that a replacement of the logo goes through, by what `g_intLogoTarget` says.
namespace ostrand::datasheets {

/// The values of `g_intLogoTarget` while a replacement is under way.
namespace logoTarget {
inline constexpr int datasheets = 1;
inline constexpr int templates = 2;
} // namespace logoTarget

/// The project's folder of the datasheets or of the templates.
QString logoFolder();

/// The names of the workbooks in a folder, in the order of their names. Hidden files are none, nor
/// are those in which another program notes who has a workbook open. Raises 76 where there is no
/// such folder, 70 where it can't be read.
QStringList logoFiles(const QString& folder);

} // namespace ostrand::datasheets
