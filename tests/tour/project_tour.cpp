// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "project_tour.h"

#include "app/FolderDialog.h"
#include "app/frmLocateFolder.h"
#include "app/frmProjectInfo.h"
#include "app/main_window.h"
#include "app/state.h"
#include "camera.h"
#include "pid/frmLogin.h"
#include "toolkit/data_grid.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace ostrand::tour {

void tourProject(const Camera& camera)
{
    QWidget* owner = app::mainWindow().window();
    camera.takeModal(u"project-information"_s,
                     [owner] { owner->findChild<QAction*>(u"mnuEditProjectInfo"_s)->trigger(); });

    camera.pictureOfNextModal(u"project-information-editing"_s, [&](QDialog& window) {
        auto* grid = window.findChild<toolkit::DataGrid*>(u"GridInfo"_s);
        grid->setCurrentIndex(grid->model()->index(0, 1));
        QTest::keyClicks(grid, u"B"_s);
        camera.take(u"project-information-typing"_s, &window);
        grid->cancelRow();
        camera.takeModal(u"project-folder-dialog"_s, [&window] {
            app::BrowseForFolder(&window, u"Select default datasheet folder"_s);
        });
        camera.takeModal(u"project-locate-folder"_s, [&window, grid] {
            app::frmLocateFolder(&window).ShowInfo(*grid,
                                                   app::frmLocateFolder::Mode::DatasheetFolder);
        });
        window.reject();
    });
    app::frmProjectInfo(owner).ShowInfo();

    camera.pictureOfNextModal(u"project-login"_s, [&](QDialog& window) {
        window.findChild<QLineEdit*>(u"txtServer"_s)->setText(u"plant7"_s);
        window.findChild<QLineEdit*>(u"txtPassword"_s)->setText(u"********"_s);
        camera.take(u"project-login-filled"_s, &window);
        window.close();
    });
    pid::frmLogin(u"/plants/Heronsfield.mdb"_s, owner).ShowInfo();
}

} // namespace ostrand::tour
