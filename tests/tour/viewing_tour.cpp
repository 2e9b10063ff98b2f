// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "viewing_tour.h"

#include "app/state.h"
#include "camera.h"
#include "index/frmIndex.h"
#include "index/index_columns.h"
#include "store/database.h"
#include "toolkit/data_grid.h"
#include "viewing/CViewer.h"
#include "viewing/frmViewDatasheets.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

class ViewingTour
{
public:
    ViewingTour(const Camera& camera, index::frmIndex& window)
        : m_camera(camera),
          m_window(window),
          m_grid(*window.findChild<toolkit::DataGrid*>(u"GridIndex"_s))
    {
    }

    void walk()
    {
        rows();
        notes();
        datasheets();
        files();
    }

private:
    void goTo(int row, int column)
    {
        m_grid.setFocus();
        m_grid.setCurrentIndex(m_grid.model()->index(row, column));
        Camera::settle();
    }

    void selectRows(int first, int last)
    {
        const QHeaderView* header = m_grid.verticalHeader();
        const auto click = [&](int row, Qt::KeyboardModifiers keys) {
            const QPoint place(header->width() / 2, header->sectionViewportPosition(row) + 5);
            QTest::mouseClick(header->viewport(), Qt::LeftButton, keys, place);
        };
        click(first, {});
        click(last, Qt::ShiftModifier);
    }

    void takePopup(const QString& name)
    {
        QTest::mouseClick(m_grid.viewport(),
                          Qt::RightButton,
                          {},
                          m_grid.visualRect(m_grid.model()->index(2, 1)).center());
        m_camera.take(name, &m_window);
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }

    void rows()
    {
        goTo(0, 0);
        selectRows(1, 3);
        takePopup(u"rows-selected"_s);
        QTest::keyClick(&m_grid, Qt::Key_C, Qt::ControlModifier);
        takePopup(u"rows-selected-and-copied"_s);
        m_grid.clearSelection();
        takePopup(u"rows-copied"_s);
        QTest::keyClick(&m_grid, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&m_grid, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClick(&m_grid, Qt::Key_Home);
        m_camera.take(u"rows-pasted"_s, &m_window);
        m_camera.takeModal(u"message-paste-failed"_s,
                           [this] { QTest::keyClick(&m_grid, Qt::Key_V, Qt::ControlModifier); });
        m_grid.cancelRow();
        goTo(0, 0);
        selectRows(0, 0);
        m_camera.takeModal(u"message-delete-rows"_s,
                           [this] { QTest::keyClick(&m_grid, Qt::Key_Delete); });
        m_grid.clearSelection();
    }

    void notes()
    {
        goTo(1, index::column::remarks);
        m_camera.take(u"notes-button"_s, &m_window);
        m_camera.pictureOfNextModal(u"notes"_s, [this](QDialog& notes) {
            auto* text = notes.findChild<QPlainTextEdit*>();
            text->moveCursor(QTextCursor::End);
            QTest::keyClicks(text, u" Recalibrated after the shutdown; range 0 to 16 bar."_s);
            QTest::keyClick(text, Qt::Key_Return);
            QTest::keyClicks(text, u"Impulse lines to be traced before winter."_s);
            m_camera.take(u"notes-typed"_s, &notes);
            notes.findChild<QPushButton*>(u"CmdOk"_s)->click();
        });
        QTest::keyClick(&m_grid, Qt::Key_Return, Qt::ControlModifier);
        m_camera.take(u"notes-taken"_s, &m_window);
        m_window.findChild<QPushButton*>(u"cmdSave"_s)->click();
    }

    /// A datasheet document that several tags share, all of them with a datasheet.
    static QString sharedDocument()
    {
        const auto project = store::DBEngine::OpenDatabase(app::g_strIndexFile);
        const auto documents = project.OpenSnapshot(
            u"select docNo from document where docType = 'DATASHEET' order by docNo desc"_s);
        const QString number = documents->Field(0).text();
        project.Execute(u"insert into itemDocXRef (docNo, PlantItemNo, context) select '"_s + number
                        + u"', PlantItemNo, 'DATASHEET' from [index] where PlantItemNo like "
                          u"'BDV-*'"_s);
        project.Execute(u"update [index] set TagFileName = 'x.xls' where PlantItemNo like "
                        u"'BDV-*'"_s);
        return number;
    }

    void datasheets()
    {
        m_camera.pictureOfNextModal(u"view-datasheets"_s, [this](QDialog& window) {
            window.findChild<QListWidget*>()->setCurrentRow(1);
            m_camera.take(u"view-datasheets-chosen"_s, &window);
            window.reject();
        });
        viewing::frmViewDatasheets(&m_window).ShowInfo(sharedDocument());
    }

    void files()
    {
        const QString folder = m_camera.folder() + u"/project"_s;
        const viewing::CViewer& viewer = viewing::viewer();
        m_camera.takeModal(u"message-file-gone"_s,
                           [&] { viewer.ViewFile(folder, u"P-100-001.dwg"_s); });
        QFile file(folder + u"/P-100-001.unknown"_s);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("%s cannot be written", qPrintable(file.fileName()));
        m_camera.takeModal(u"message-file-without-program"_s,
                           [&] { viewer.ViewFile(folder, u"P-100-001.unknown"_s); });
    }

    const Camera& m_camera;
    index::frmIndex& m_window;
    toolkit::DataGrid& m_grid;
};

} // namespace

void tourViewing(const Camera& camera, index::frmIndex& window)
{
    ViewingTour(camera, window).walk();
}

} // namespace ostrand::tour
