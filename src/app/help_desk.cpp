// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "app/help_desk.h"

#include "app/frmHelp.h"
#include "app/help_file.h"
#include "app/main_window.h"
#include "app/state.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace ostrand::app {
namespace {

QObject* keeperFor(QWidget* owner)
{
    QWidget* keeper = g_frmIndex ? g_frmIndex->window() : owner;
    if (!keeper)
        return QApplication::instance();
    while (QWidget* parent = keeper->parentWidget())
        keeper = parent;
    return keeper;
}

} // namespace

HelpDesk& HelpDesk::of(QWidget* owner)
{
    QObject* keeper = keeperFor(owner);
    auto* desk = keeper->findChild<HelpDesk*>(QString(), Qt::FindDirectChildrenOnly);
    return desk ? *desk : *new HelpDesk(keeper);
}

HelpDesk::HelpDesk(QObject* keeper)
    : QObject(keeper)
{
    keeper->installEventFilter(this);
}

HelpDesk::~HelpDesk()
{
    for (const QPointer<frmHelp>& window : m_windows)
        delete window;
}

bool HelpDesk::show(const QString& file, const QString& page, const QString& name)
{
    const auto help = HelpFile::open(file);
    if (!help)
        return false;
    frmHelp* open = m_windows.value(file).data();
    if (open != nullptr && open->isVisible())
        return open->ShowTopic(*help, page);
    auto window = std::make_unique<frmHelp>(name);
    if (!window->ShowTopic(*help, page))
        return false;
    m_windows.insert(file, window.release());
    return true;
}

bool HelpDesk::eventFilter(QObject* watched, QEvent* event)
{
    // A window that is minimized is hidden by the system.
    if (event->type() == QEvent::Hide && !event->spontaneous() && watched == parent())
        closeAll();
    return false;
}

void HelpDesk::closeAll()
{
    for (const QPointer<frmHelp>& window : m_windows) {
        if (window)
            window->close();
    }
}

} // namespace ostrand::app
