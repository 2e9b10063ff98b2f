// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "camera.h"

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

constexpr int restMs = 250;
constexpr int margin = 4;

} // namespace

Camera::Camera(QString folder, QString mark)
    : m_folder(std::move(folder)),
      m_mark(std::move(mark))
{
}

void Camera::settle()
{
    QTest::qWait(restMs);
}

void Camera::take(const QString& name, const QWidget* window) const
{
    settle();
    QRect place = window->frameGeometry();
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        if (other->isVisible() && other->windowType() != Qt::ToolTip)
            place |= other->frameGeometry();
    }
    place.adjust(-margin, -margin, margin, margin);
    const QPixmap picture =
        window->screen()->grabWindow(0, place.x(), place.y(), place.width(), place.height());
    const QString file = m_folder + u'/' + m_mark + name + u".png"_s;
    if (!picture.save(file))
        qFatal("%s could not be written", qPrintable(file));
}

void Camera::pictureOfNextModal(const QString& name) const
{
    QTimer::singleShot(restMs, QApplication::instance(), [this, name] {
        auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!modal)
            qFatal("no window opened for %s", qPrintable(name));
        take(name, modal);
        modal->reject();
    });
}

} // namespace ostrand::tour
