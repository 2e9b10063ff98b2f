// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/main_window.h"
#include "app/modMain.h"
#include "app/program.h"
#include "app/state.h"

#include <QApplication>
#include <QStringList>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    ostrand::app::nameApplication();
    QApplication::setQuitOnLastWindowClosed(false);
    ostrand::app::Main(QApplication::arguments().mid(1).join(u' '));
    // The window may have been closed already while the start window was open.
    return ostrand::app::g_frmIndex ? QApplication::exec() : 0;
}
