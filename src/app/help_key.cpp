// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_key.h"

#include "app/frmHelp.h"
#include "app/help.h"

#include <QApplication>
#include <QKeyEvent>

namespace ostrand::app {
namespace {

bool isHelpKey(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

} // namespace

HelpKey::HelpKey(QObject* parent)
    : QObject(parent)
{
    QApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || !isHelpKey(*event))
        return false;
    QWidget* window = widget->window();
    if (window->windowType() == Qt::Popup || qobject_cast<frmHelp*>(window))
        return false;
    ShowHelpTopic(window, helpTopicManual(), true);
    return true;
}

} // namespace ostrand::app
