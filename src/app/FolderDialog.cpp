// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/FolderDialog.h"

#include "toolkit/prompts.h"

namespace ostrand::app {

QString BrowseForFolder(QWidget* owner, const QString& title)
{
    return toolkit::promptHost().folderDialog(owner, title).value_or(QString());
}

} // namespace ostrand::app
