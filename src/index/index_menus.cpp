// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "index/index_menus.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMenuBar>

#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace ostrand::index {
namespace {

struct Entry
{
    const char* name;
    const char* caption;
    const char* shortcut = "";
};

struct Menu
{
    const char* name;
    const char* caption;
    std::span<const Entry> entries;
};

constexpr std::array fileEntries{
    Entry{"mnuFileNew", QT_TRANSLATE_NOOP("IndexMenus", "&New"), "Ctrl+N"},
    Entry{"mnuFileOpen", QT_TRANSLATE_NOOP("IndexMenus", "&Open"), "Ctrl+O"},
    Entry{"mnuFileExit", QT_TRANSLATE_NOOP("IndexMenus", "E&xit"), "Ctrl+Q"},
};
constexpr std::array editEntries{
    Entry{"mnuEditIndexRev", QT_TRANSLATE_NOOP("IndexMenus", "&Index Revisions"), "Ctrl+I"},
    Entry{"mnuEditProjectInfo", QT_TRANSLATE_NOOP("IndexMenus", "&Project Information"), "Ctrl+R"},
    Entry{"mnuSetupDatasheets", QT_TRANSLATE_NOOP("IndexMenus", "Datasheet Logo")},
    Entry{"mnuSetupTemplates", QT_TRANSLATE_NOOP("IndexMenus", "Template Logo")},
};
constexpr std::array reportEntries{
    Entry{"mnuReportIndex", QT_TRANSLATE_NOOP("IndexMenus", "&Index")},
    Entry{"mnuReportAlarmSum", QT_TRANSLATE_NOOP("IndexMenus", "&Controller and Alarm Summary")},
    Entry{"mnuReportInstallationDetails", QT_TRANSLATE_NOOP("IndexMenus", "&Installation Details")},
    Entry{"mnuReportMaintenance", QT_TRANSLATE_NOOP("IndexMenus", "&Maintenance")},
};
constexpr std::array docEntries{
    Entry{"mnuDocAll", QT_TRANSLATE_NOOP("IndexMenus", "&All")},
    Entry{"mnuDocRef", QT_TRANSLATE_NOOP("IndexMenus", "Tag's &Reference Documents")},
    Entry{"mnuDocDtSht", QT_TRANSLATE_NOOP("IndexMenus", "Tag's &Datasheet")},
};
constexpr std::array helpEntries{
    Entry{"mnuOnlineHelp", QT_TRANSLATE_NOOP("IndexMenus", "Online Help"), "F1"},
    Entry{"mnuCheckForUpdates", QT_TRANSLATE_NOOP("IndexMenus", "Check For &Updates")},
    Entry{"muHelpAbout", QT_TRANSLATE_NOOP("IndexMenus", "&About")},
};
constexpr std::array bar{
    Menu{"mnuFile", QT_TRANSLATE_NOOP("IndexMenus", "&File"), fileEntries},
    Menu{"mnuEdit", QT_TRANSLATE_NOOP("IndexMenus", "&Edit"), editEntries},
    Menu{"mnuReport", QT_TRANSLATE_NOOP("IndexMenus", "&Report"), reportEntries},
    Menu{"mnuDoc", QT_TRANSLATE_NOOP("IndexMenus", "&Documents"), docEntries},
    Menu{"mnuHelp", QT_TRANSLATE_NOOP("IndexMenus", "&Help"), helpEntries},
};

constexpr std::array popup1{
    Entry{"mnuPopUpCopy1", QT_TRANSLATE_NOOP("IndexMenus", "&Copy "), "Ctrl+C"},
    Entry{"mnuPopUpPaste1", QT_TRANSLATE_NOOP("IndexMenus", "&Paste"), "Ctrl+V"},
    Entry{"mnuPopUpDelete1", QT_TRANSLATE_NOOP("IndexMenus", "&Delete"), "Del"},
};
constexpr std::array popup2{
    Entry{"mnuPopUpCopy2", QT_TRANSLATE_NOOP("IndexMenus", "&Copy")},
    Entry{"mnuPopUpDelete2", QT_TRANSLATE_NOOP("IndexMenus", "&Delete")},
};
constexpr std::array popup3{
    Entry{"mnuPopUpPaste3", QT_TRANSLATE_NOOP("IndexMenus", "&Paste")},
};
constexpr std::array popups{
    Menu{"mnuPopUp1", QT_TRANSLATE_NOOP("IndexMenus", "popup1"), popup1},
    Menu{"mnuPopUp2", QT_TRANSLATE_NOOP("IndexMenus", "PopUp2"), popup2},
    Menu{"mnuPopUp3", QT_TRANSLATE_NOOP("IndexMenus", "Popup3"), popup3},
};

QString caption(const char* text)
{
    return QCoreApplication::translate("IndexMenus", text);
}

void fill(QMenu* menu, const Menu& content)
{
    menu->setObjectName(QString::fromLatin1(content.name));
    for (const Entry& entry : content.entries) {
        QAction* action = menu->addAction(caption(entry.caption));
        action->setObjectName(QString::fromLatin1(entry.name));
        action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut)));
    }
}

} // namespace

IndexMenus::IndexMenus(QMainWindow* window)
    : QObject(window),
      m_window(window)
{
    buildBar();
    buildPopups();
}

void IndexMenus::buildBar()
{
    for (const Menu& content : bar)
        fill(m_window->menuBar()->addMenu(caption(content.caption)), content);
}

void IndexMenus::buildPopups()
{
    for (const Menu& content : popups) {
        auto* menu = new QMenu(caption(content.caption), m_window);
        fill(menu, content);
        // Their shortcuts work with no menu shown.
        m_window->addActions(menu->actions());
    }
}

QAction* IndexMenus::action(const QString& name) const
{
    auto* found = m_window->findChild<QAction*>(name);
    Q_ASSERT(found);
    return found;
}

QMenu* IndexMenus::menu(const QString& name) const
{
    auto* found = m_window->findChild<QMenu*>(name);
    Q_ASSERT(found);
    return found;
}

QMenu* IndexMenus::popupFor(bool rowsSelected, bool rowsCopied) const
{
    if (rowsSelected)
        return menu(rowsCopied ? u"mnuPopUp1"_s : u"mnuPopUp2"_s);
    return rowsCopied ? menu(u"mnuPopUp3"_s) : nullptr;
}

} // namespace ostrand::index
