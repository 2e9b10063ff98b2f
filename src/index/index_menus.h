// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenu>
#include <QObject>

class QMainWindow;

namespace ostrand::index {

/// The menu tree of the main window and the three popup menus of its grid.
class IndexMenus final : public QObject
{
    Q_OBJECT

public:
    explicit IndexMenus(QMainWindow* window);

    /// An entry by its name, such as "mnuFileOpen".
    QAction* action(const QString& name) const;
    /// A menu by its name, such as "mnuEdit".
    QMenu* menu(const QString& name) const;

    /// The popup menu for a right click, or nullptr for none.
    QMenu* popupFor(bool rowsSelected, bool rowsCopied) const;

private:
    void buildBar();
    void buildPopups();

    QMainWindow* m_window;
};

} // namespace ostrand::index
