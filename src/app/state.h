// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

/// The state that lives as long as the program. The names are those that its maintainers know.
namespace ostrand::app {

class CRegHndlr;
class MainWindow;

/// Full path of the open project; "" while none is open.
extern QString g_strIndexFile;
/// Keeper of the recent project list.
extern std::unique_ptr<CRegHndlr> g_objRegHndlr;
/// The main window.
extern std::unique_ptr<MainWindow> g_frmIndex;
/// The project names a P&ID database.
extern bool g_blnPidLinked;
/// The default datasheet folder was changed in the folder picker, and to which.
extern bool g_blnFolderChanged;
extern QString g_strNewDatasheetFolder;
/// 1 while datasheet logos are replaced, 2 while template logos are.
extern int g_intLogoTarget;

/// The main window and the keeper of the recent list for callers that cannot do without; raise 91
/// while there is none.
MainWindow& mainWindow();
CRegHndlr& regHndlr();

} // namespace ostrand::app
