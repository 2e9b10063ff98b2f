// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "documents_tour.h"

#include "camera.h"
#include "index/frmIndex.h"
#include "toolkit/grid_window.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

/// One grid window, open.
class WindowTour
{
public:
    WindowTour(const Camera& camera, QDialog& window)
        : m_camera(camera),
          m_window(static_cast<toolkit::GridWindow&>(window)),
          m_grid(*window.findChild<toolkit::DataGrid*>())
    {
    }

    void goTo(int row, int column)
    {
        m_window.activateWindow();
        m_grid.setFocus();
        m_grid.setCurrentIndex(m_grid.model()->index(row, column));
        Camera::settle();
    }
    void goToNewRow(int column)
    {
        QTest::keyClick(&m_grid, Qt::Key_End, Qt::ControlModifier);
        Camera::settle();
        goTo(m_grid.model()->rowCount() - 1, column);
    }
    static void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClicks(QApplication::focusWidget(), QString(letter));
    }
    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        Camera::settle();
    }
    void press(const QString& name)
    {
        QTest::mouseClick(m_window.findChild<QPushButton*>(name), Qt::LeftButton);
        Camera::settle();
    }
    void sort(int column) { m_window.Sort(column); }
    void take(const QString& name) { m_camera.take(name, &m_window); }
    /// Presses a button that opens a box or a window.
    void takeModal(const QString& name, const QString& button)
    {
        m_camera.takeModal(name, [&] { press(button); });
    }
    void drop() { m_grid.cancelRow(); }
    void grow(int width, int height)
    {
        m_window.resize(m_window.size() + QSize(width, height));
        Camera::settle();
    }

private:
    const Camera& m_camera;
    toolkit::GridWindow& m_window;
    toolkit::DataGrid& m_grid;
};

void lookThroughRegister(const Camera& camera, QDialog& window)
{
    WindowTour tour(camera, window);
    tour.sort(1);
    tour.goTo(3, 2);
    WindowTour::key(Qt::Key_Down, Qt::AltModifier);
    tour.take(u"documents-kinds"_s);
    WindowTour::key(Qt::Key_Escape);
    WindowTour::key(Qt::Key_Escape);
    tour.drop();
    tour.goTo(4, 0);
    tour.takeModal(u"documents-delete"_s, u"cmdDelete"_s);
    tour.goToNewRow(1);
    WindowTour::type(u"Hook-up drawing"_s);
    tour.takeModal(u"documents-refused"_s, u"cmdSave"_s);
    tour.drop();
    tour.grow(-160, -120);
    tour.take(u"documents-smaller"_s);
    window.close();
}

void registerDocument(const Camera& camera, QDialog& window)
{
    const auto fill = [&](const char* name, const QString& text) {
        window.findChild<QLineEdit*>(QString::fromLatin1(name))->setText(text);
    };
    fill("txtDocNo", u"HGC-10-SK-014"_s);
    fill("txtDocTitle", u"Hook-up of the inlet pressure transmitter, sheet 1"_s);
    window.findChild<QComboBox*>(u"cmbDocType"_s)->setCurrentText(u"PID"_s);
    fill("txtDocPath", u"/plant/heronsfield/sketches"_s);
    fill("txtDocFileName", u"HGC-10-SK-014.pdf"_s);
    camera.take(u"document-new-filled"_s, &window);
    QTest::mouseClick(window.findChild<QPushButton*>(u"cmdSave"_s), Qt::LeftButton);
}

void tieDocuments(const Camera& camera, QDialog& window)
{
    WindowTour tour(camera, window);
    tour.goToNewRow(1);
    WindowTour::key(Qt::Key_Down, Qt::AltModifier);
    tour.take(u"references-list"_s);
    WindowTour::type(u"HGC-20-PID"_s);
    WindowTour::key(Qt::Key_Down);
    WindowTour::key(Qt::Key_Return);
    tour.take(u"references-picked"_s);
    tour.press(u"cmdSave"_s);
    camera.pictureOfNextModal(u"document-new"_s,
                              [&](QDialog& made) { registerDocument(camera, made); });
    tour.press(u"cmdReference"_s);
    tour.take(u"references-after"_s);
    tour.goTo(1, 1);
    tour.takeModal(u"references-delete"_s, u"cmdDeleteRef"_s);
    window.close();
}

void reviseIndex(const Camera& camera, QDialog& window)
{
    WindowTour tour(camera, window);
    tour.goToNewRow(1);
    WindowTour::type(u"2026-02-16"_s);
    tour.takeModal(u"revisions-refused"_s, u"cmdSave"_s);
    tour.drop();
    window.close();
}

} // namespace

void tourDocuments(const Camera& camera, index::frmIndex& window)
{
    const auto open = [&](const QString& menu, const QString& name, auto steps) {
        camera.pictureOfNextModal(name, [&camera, steps](QDialog& shown) { steps(camera, shown); });
        window.findChild<QAction*>(menu)->trigger();
        Camera::settle();
    };
    window.dbIndex().Recordset().MoveFirst();
    open(u"mnuDocAll"_s, u"documents"_s, lookThroughRegister);
    open(u"mnuDocRef"_s, u"references"_s, tieDocuments);
    open(u"mnuEditIndexRev"_s, u"revisions"_s, reviseIndex);
}

} // namespace ostrand::tour
