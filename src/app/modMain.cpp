// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/modMain.h"

#include "app/CRegHndlr.h"
#include "app/frmAbout.h"
#include "app/frmOpen.h"
#include "app/frmProjectInfo.h"
#include "app/help_key.h"
#include "app/state.h"
#include "datasheets/cXlHndlr.h"
#include "documents/frmDocXref.h"
#include "index/frmIndex.h"
#include "spreadsheet/host.h"
#include "viewing/CViewer.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ostrand::app {
namespace {

/// The main window outlives the event that closes it; then the program ends, whatever windows are
/// still open.
void endOutright()
{
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        End();
        QCoreApplication::quit();
    });
}

/// The main window takes the window along when it closes first.
void showProjectInfo(QWidget* owner)
{
    const QPointer<frmProjectInfo> window = new frmProjectInfo(owner);
    window->ShowInfo();
    delete window;
}

} // namespace

void Main(const QString& commandLine)
{
    g_strNewDatasheetFolder.clear();
    g_blnFolderChanged = false;
    g_objRegHndlr = std::make_unique<CRegHndlr>();
    datasheets::g_objXlHndlr = std::make_unique<datasheets::cXlHndlr>();
    auto window = std::make_unique<index::frmIndex>();
    index::frmIndex& frmIndex = *window;
    QObject::connect(&frmIndex, &index::frmIndex::unloaded, &endOutright);
    frmIndex.setCommands({.ShowProjectInfo = [&frmIndex] { showProjectInfo(&frmIndex); }});
    new HelpKey(&frmIndex);
    g_frmIndex = std::move(window);
    viewing::g_objViewer = std::make_unique<viewing::CViewer>();
    g_strIndexFile.clear();

    frmAbout about;
    about.showAsStartScreen();
    about.repaint();
    g_blnPidLinked = false;
    frmIndex.show();
    about.close();

    if (!commandLine.isEmpty() && commandLine != u"/cmd"_s) {
        g_frmIndex->OpenIndex(QString(commandLine).remove(u'"'));
        return;
    }
    // The main window takes the start window along when it closes first.
    const QPointer<frmOpen> open = new frmOpen(g_frmIndex->window());
    open->exec();
    delete open;
}

void End()
{
    datasheets::g_objXlHndlr.reset();
    g_frmIndex.reset();
    delete documents::g_frmDocXref;
    g_objRegHndlr.reset();
    viewing::g_objViewer.reset();
    spreadsheet::endHost();
}

} // namespace ostrand::app
