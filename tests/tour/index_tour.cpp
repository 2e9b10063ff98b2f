// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index_tour.h"

#include "app/CRegHndlr.h"
#include "app/frmAbout.h"
#include "app/frmOpen.h"
#include "app/modMain.h"
#include "app/state.h"
#include "camera.h"
#include "datasheet_tour.h"
#include "documents_tour.h"
#include "help_tour.h"
#include "index/frmIndex.h"
#include "index/index_columns.h"
#include "link_tour.h"
#include "logo_tour.h"
#include "populate_tour.h"
#include "project_tour.h"
#include "report_tour.h"
#include "store/database.h"
#include "toolkit/data_grid.h"
#include "viewing_tour.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

/// The walk through one main window.
class IndexTour
{
public:
    IndexTour(const Camera& camera, index::frmIndex& window)
        : m_camera(camera),
          m_window(window),
          m_grid(*window.findChild<toolkit::DataGrid*>(u"GridIndex"_s))
    {
    }

    void walk()
    {
        // A walk at a larger scale has a smaller screen.
        const QSize screen = m_window.screen()->availableSize();
        m_window.resize(std::min(1280, screen.width() - 60), std::min(760, screen.height() - 80));
        m_window.move(20, 20);
        m_camera.take(u"index"_s, &m_window);
        menus();
        sorting();
        editing();
        dropDown();
        newTag();
        selection();
        messages();
    }

private:
    void goTo(int row, int column)
    {
        m_grid.setFocus();
        m_grid.setCurrentIndex(m_grid.model()->index(row, column));
        Camera::settle();
    }

    static void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClicks(QApplication::focusWidget(), QString(letter));
    }

    void menus()
    {
        for (const char* name : {"mnuFile", "mnuEdit", "mnuReport", "mnuDoc", "mnuHelp"}) {
            auto* menu = m_window.findChild<QMenu*>(QString::fromLatin1(name));
            menu->popup(m_window.mapToGlobal(QPoint(60, 40)));
            m_camera.take(u"menu-"_s + QString::fromLatin1(name), &m_window);
            menu->close();
        }
    }

    void sorting()
    {
        m_window.Sort(3);
        m_camera.take(u"index-sorted"_s, &m_window);
        m_window.Sort(index::column::tag);
    }

    void editing()
    {
        goTo(4, 2);
        QTest::keyClick(&m_grid, Qt::Key_F2);
        type(u", revised"_s);
        m_camera.take(u"index-editing"_s, &m_window);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Camera::settle();
    }

    void dropDown()
    {
        goTo(6, index::column::pid);
        QTest::keyClick(&m_grid, Qt::Key_Down, Qt::AltModifier);
        Camera::settle();
        m_camera.take(u"index-documents"_s, &m_window);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        m_grid.cancelRow();
    }

    void newTag()
    {
        goTo(m_grid.model()->rowCount() - 1, index::column::tag);
        type(u"PT-9901"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        type(u"Pressure transmitter"_s);
        m_camera.take(u"index-new-tag"_s, &m_window);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Camera::settle();
        m_camera.take(u"index-new-tag-written"_s, &m_window);
    }

    void selection()
    {
        goTo(2, 0);
        const QHeaderView* rows = m_grid.verticalHeader();
        const auto clickRow = [&](int row, Qt::KeyboardModifiers keys) {
            QTest::mouseClick(rows->viewport(),
                              Qt::LeftButton,
                              keys,
                              QPoint(rows->width() / 2, rows->sectionViewportPosition(row) + 5));
        };
        clickRow(2, {});
        clickRow(5, Qt::ShiftModifier);
        auto* popup = m_window.findChild<QMenu*>(u"mnuPopUp2"_s);
        popup->popup(m_grid.viewport()->mapToGlobal(QPoint(180, 120)));
        m_camera.take(u"index-selection"_s, &m_window);
        popup->close();
        m_grid.clearSelection();
    }

    void messages()
    {
        goTo(2, 0);
        m_camera.takeModal(u"message-delete"_s, [this] {
            QTest::mouseClick(m_window.findChild<QPushButton*>(u"cmdDelete"_s), Qt::LeftButton);
        });
        m_camera.takeModal(u"message-sort"_s, [this] { m_window.Sort(index::column::pid); });
    }

    const Camera& m_camera;
    index::frmIndex& m_window;
    toolkit::DataGrid& m_grid;
};

void make(const QStringList& arguments)
{
    const QDir bin(QCoreApplication::applicationDirPath());
    if (QProcess::execute(bin.filePath(u"ostrand-make-project"_s), arguments) != 0)
        qFatal("the sample project could not be made");
}

/// A sample project of its own with all its files, as the tour changes them.
QString makeProject(const Camera& camera)
{
    const QString folder = camera.folder() + u"/project"_s;
    const QString project = folder + u"/Heronsfield.mdb"_s;
    const QString pid = folder + u"/HGC_PID.mdb"_s;
    const QString logo = folder + u"/Wexcombe.jpg"_s;
    QDir(folder).removeRecursively();
    QDir().mkpath(folder + u"/Datasheets"_s);
    QDir().mkpath(folder + u"/Templates"_s);
    const QDir bin(QCoreApplication::applicationDirPath());
    QFile::copy(bin.filePath(u"Samples/Wexcombe.jpg"_s), logo);
    make({u"pid"_s, pid});
    make({u"--datasheets"_s,
          folder + u"/Datasheets"_s,
          u"--templates"_s,
          folder + u"/Templates"_s,
          u"--pid"_s,
          pid,
          u"--logo"_s,
          logo,
          u"sample"_s,
          project});
    const QDir templates(bin.filePath(u"Templates"_s));
    for (const QString& name : templates.entryList({u"*.xlt"_s})) {
        QFile::copy(templates.filePath(name), folder + u"/Templates/"_s + name);
    }
    return project;
}

} // namespace

void tourIndex(const Camera& camera)
{
    const QString project = makeProject(camera);

    app::frmAbout about;
    about.showAsStartScreen();
    camera.take(u"about"_s, &about);
    about.close();

    app::Main(project);
    auto& window = static_cast<index::frmIndex&>(*app::g_frmIndex);
    Camera::settle();

    camera.takeModal(u"open"_s, [&] {
        app::frmOpen open(&window);
        open.exec();
    });
    IndexTour(camera, window).walk();
    tourHelp(camera, window);
    tourProject(camera);
    tourReports(camera, window);
    tourPopulate(camera);
    tourDocuments(camera, window);
    tourDatasheet(camera, window);
    tourLink(camera, window);
    tourLogo(camera, window);
    tourViewing(camera, window);
    app::End();
}

} // namespace ostrand::tour
