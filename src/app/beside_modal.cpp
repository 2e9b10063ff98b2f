// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/beside_modal.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace ostrand::app {

BesideModal::BesideModal(QWidget& window)
    : QObject(&window),
      m_window(window)
{
    belongTo(QApplication::activeModalWidget());
    QApplication::instance()->installEventFilter(this);
}

bool BesideModal::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::WindowBlocked || type == QEvent::WindowUnblocked) {
        if (watched == &m_window) {
            m_blocked = type == QEvent::WindowBlocked;
            QTimer::singleShot(0, this, &BesideModal::belongToTopmost);
        }
        return false;
    }
    if (type != QEvent::Show && type != QEvent::Hide)
        return false;
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !widget->isWindow() || !widget->isModal() || isOwn(widget))
        return false;
    // A window tells that it is shown before it blocks the others.
    if (type == QEvent::Show)
        belongTo(widget);
    else
        QTimer::singleShot(0, this, &BesideModal::belongToTopmost);
    return false;
}

/// Windows that were opened from this one block it rightly.
bool BesideModal::isOwn(const QWidget* widget) const
{
    while (widget && widget != &m_window)
        widget = widget->parentWidget();
    return widget != nullptr;
}

void BesideModal::belongTo(const QWidget* modal)
{
    if (!isOwn(modal))
        m_window.windowHandle()->setTransientParent(modal ? modal->windowHandle() : nullptr);
}

void BesideModal::belongToTopmost()
{
    const QWidget* modal = QApplication::activeModalWidget();
    if (isOwn(modal))
        return;
    belongTo(modal);
    if (!m_blocked || !m_window.isVisible())
        return;
    // Whether a window is blocked is decided when it is shown.
    m_blocked = false;
    m_window.hide();
    m_window.show();
}

} // namespace ostrand::app
