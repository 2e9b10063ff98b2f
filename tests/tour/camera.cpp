// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "camera.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ostrand::tour {
namespace {

constexpr int restMs = 250;
constexpr int patienceMs = 30000;
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
    save(window->screen()->grabWindow(0, place.x(), place.y(), place.width(), place.height()),
         name);
}

void Camera::takeScreen(const QString& name) const
{
    save(QGuiApplication::primaryScreen()->grabWindow(0), name);
}

void Camera::save(const QPixmap& picture, const QString& name) const
{
    const QString file = m_folder + u'/' + m_mark + name + u".png"_s;
    if (!picture.save(file))
        qFatal("%s could not be written", qPrintable(file));
}

void Camera::pictureOfNextModal(const QString& name, std::function<void(QDialog&)> answer) const
{
    auto* look = new QTimer(QApplication::instance());
    const QDeadlineTimer patience(patienceMs);
    QObject::connect(look, &QTimer::timeout, look, [this, look, name, answer, patience] {
        auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!modal && patience.hasExpired())
            qFatal("no window opened for %s", qPrintable(name));
        if (!modal)
            return;
        look->stop();
        look->deleteLater();
        take(name, modal);
        answer(*modal);
    });
    look->start(restMs);
}

} // namespace ostrand::tour
