// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Constants of the build and the folder that the program lies in.
namespace ostrand::app {

QString productTitle();  ///< "Ostrand Instrument Datasheets"
QString shortTitle();    ///< "Ostrand Datasheets"
QString buildDate();     ///< as it is shown in the about window
QString updateVersion(); ///< as the update program reads it

/// The folder of the program's own file: `index.mdb`, `Templates`, `Datasheets` and the help
/// files are found in it.
QString installationFolder();
/// For tests: another folder; "" brings back the real one.
void setInstallationFolder(const QString& folder);

/// Gives the application object its names: settings are kept under them.
void nameApplication();

} // namespace ostrand::app
