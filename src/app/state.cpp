// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/state.h"

#include "app/CRegHndlr.h"
#include "app/main_window.h"
#include "store/error.h"

using namespace Qt::StringLiterals;

namespace ostrand::app {

QString g_strIndexFile;
std::unique_ptr<CRegHndlr> g_objRegHndlr;
std::unique_ptr<MainWindow> g_frmIndex;
bool g_blnPidLinked = false;
bool g_blnFolderChanged = false;
QString g_strNewDatasheetFolder;
int g_intLogoTarget = 0;

namespace {

template <typename Object>
Object& required(const std::unique_ptr<Object>& object)
{
    if (!object)
        throw store::Error(store::errors::objectNotSet, u"Object variable not set"_s);
    return *object;
}

} // namespace

MainWindow& mainWindow()
{
    return required(g_frmIndex);
}

CRegHndlr& regHndlr()
{
    return required(g_objRegHndlr);
}

} // namespace ostrand::app
